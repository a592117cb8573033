// Any bytes as exported data and as settings: nothing crashes, a refused document changes nothing, what is taken is
// finite, and a settings tree that was read survives the processor and both text forms. What another parser takes as
// well-formed must be taken.
#include "General/ObjectStateProcessor.h"
#include "src/AddOnContext.h"
#include "src/EnergyExchange.h"
#include "workbench/trees/TreeJson.h"
#include "workbench/trees/TreeXml.h"
#include "workbench/trees/XmlReader.h"

#include <expat.h>

#include "support/NullHost.h"
#include "support/TreeText.h"

#include <cmath>
#include <cstdlib>

namespace {

using Extensions::Utilities::ObjectStateProcessor;
using host::ObjectState;
using test::WriteTree;

void Require(bool holds) {
    if (!holds) std::abort();
}

bool IsWellFormedElsewhere(const std::string& document) {
    // Declarations are what parsers differ in: entities, encodings.
    if (document.find("<!") != std::string::npos || document.find("<?") != std::string::npos) return false;
    XML_Parser parser = XML_ParserCreate("UTF-8");
    const XML_Status status = XML_Parse(parser, document.data(), static_cast<int>(document.size()), XML_TRUE);
    XML_ParserFree(parser);
    return status == XML_STATUS_OK;
}

void ReadAsData(const std::string& document) {
    workbench::XmlReadingRole reading;
    test::NullHost host;
    host.xmlReading = &reading;
    AddOnContext context(host);
    const lca::LCAProjectData before = context.projectData;
    const host::ErrorCode error = TakeExportedData(host, context, document);
    Require(error == host::NoError || context.projectData == before);
    for (const lca::FloorQuantity quantity : lca::AllFloorQuantities)
        Require(std::isfinite(context.projectData.GetFloorValue(quantity)));
}

void CheckTree(const ObjectState& tree) {
    const std::string text = WriteTree(tree);
    Require(WriteTree(ObjectState(tree)) == text);
    ObjectStateProcessor copier, changer;
    tree.Enumerate(copier);
    Require(WriteTree(copier.TakeResult()) == text);
    for (const char* container : {"xlsValues", "a", ""})
        for (const char* field : {"enableExport", "a", ""}) {
            changer.AddOverride(container, field, true);
            changer.AddOverride(container, field, std::string("Yearly"));
            changer.AddOverride(container, field, ObjectState());
        }
    tree.Enumerate(changer);
    std::string form;
    ObjectState again;
    if (workbench::WriteTreeXml(tree, form) == host::NoError) {
        Require(workbench::ReadTreeXml(form, again) == host::NoError);
        Require(WriteTree(again) == text);
    }
    if (workbench::WriteTreeJson(tree, form) == host::NoError) {
        Require(workbench::ReadTreeJson(form, again) == host::NoError);
        std::string second; // JSON does not tell small unsigned numbers from signed ones
        Require(workbench::WriteTreeJson(again, second) == host::NoError && second == form);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::string converted = text;
    if (workbench::ConvertXmlToUtf8(converted) == host::NoError) ReadAsData(converted);
    ReadAsData(text);
    ObjectState tree;
    pugi::xml_document document;
    const host::ErrorCode loaded = workbench::LoadXml(text, document);
    Require(loaded == host::NoError || !IsWellFormedElsewhere(text));
    if (workbench::ReadTreeXml(text, tree) == host::NoError) CheckTree(tree);
    if (workbench::ReadTreeJson(text, tree) == host::NoError) CheckTree(tree);
    return 0;
}
