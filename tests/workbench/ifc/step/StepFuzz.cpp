// Any bytes as a STEP file: reading ends without a crash, every value and every text can be asked for, texts are UTF-8,
// and what the index says of an entity leads back to it.
#include "text/Utf8.h"
#include "workbench/ifc/entities/Model.h"

#include <cstdlib>

using namespace workbench;
using namespace workbench::step;

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

/// As deep as the reader lets lists go.
void Ask(const Value& value, std::size_t depth) {
    Require(depth <= 2 * 32 + 2);
    Require(utf8::IsUtf8(value.GetText()));
    (void)value.GetNumber();
    (void)value.GetInteger();
    (void)value.GetLogical();
    (void)value.GetReference();
    (void)value.GetBinary();
    (void)value.GetTypeName();
    if (value.GetKind() == ValueKind::Typed) Ask(value.GetContent(), depth + 1);
    for (const Value& item : value)
        Ask(item, depth + 1);
}

void AskAll(const StepFile& file) {
    for (EntityIndex i = 0; i < file.CountEntities(); ++i) {
        Require(file.Find(file.GetNumber(i)) == i);
        Ask(file.GetArguments(i), 0);
    }
}

void AskModel(StepFile file) {
    const entities::Model model(std::move(file), schema::IFC4);
    for (const entities::Entity& entity : model.GetAll("IfcRoot")) {
        Require(model.Find(entity.GetNumber()) == entity);
        (void)entity.GetChain("ObjectPlacement", 8);
        for (const entities::Entity& relation : model.GetReferencing(entity, "IfcRelAggregates", "RelatedObjects"))
            Require(relation.IsA("IfcRelAggregates"));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    Require(utf8::IsUtf8(TextDecoder().Decode(text)));
    Require(utf8::IsUtf8(TextDecoder({.name = "CP932", .isRawUtf8 = false}).Decode(text)));
    const std::string data1 = "ISO-10303-21;DATA;" + text + "ENDSEC;";
    for (const std::string& whole : {text, data1}) {
        Problem problem;
        auto file = StepFile::Read(whole, {}, problem);
        Require(file.has_value() == problem.what.empty());
        if (!file) continue;
        AskAll(*file);
        AskModel(std::move(*file));
    }
    return 0;
}
