#include "workbench/app/EnergyTransfer.h"

#include "workbench/app/SchemaView.h"
#include "workbench/app/Text.h"

#include "lca/Numbers.h"
#include "workbench/energy/UserCommands.h"
#include "workbench/trees/XmlDocument.h"

#include <filesystem>

namespace workbench {

namespace {

namespace Exchange = host::EnergyExchange;
using lca::FloorQuantity;

constexpr char TooLarge[] = ": the document is too large to be read; nothing was taken; export less";

constexpr const char* Names[] = {"Gross floor area", "Operational emission",   "Reference floor area",
                                 "Solar panels",     "Max solar contribution", "Electricity factor"};
constexpr const char* Units[] = {"m2", "kg CO2eq/a", "m2", "kWh/a", "kWh/m2/a", "kg CO2eq/kWh"};
static_assert(std::size(Names) == lca::FloorQuantityCount && std::size(Units) == lca::FloorQuantityCount);

Failure DescribeRefusal(const Session& session, const std::string& file, host::ErrorCode code) {
    if (code == host::Errors::BadValue)
        return Failure::Input(file + ": this is no whole XML document with the root element <" + Exchange::RootElement +
                              ">; nothing was taken; export it anew, as UTF-8");
    if (code == host::Errors::OutOfMemory) return Failure::Input(file + TooLarge);
    return session.DescribeWriteRefusal(code);
}

const char* DescribeSource(const lca::LCAProjectData& record, FloorQuantity quantity) {
    return record.GetFloorChoice(quantity) == lca::FloorSource::ByHand ? "by hand" : "energy evaluation";
}

bool IsChanged(const EnergyTransfer& transfer, FloorQuantity quantity) {
    return transfer.before.GetFloorValue(quantity) != transfer.after.GetFloorValue(quantity) ||
           transfer.before.GetFloorChoice(quantity) != transfer.after.GetFloorChoice(quantity);
}

} // namespace

Result<std::vector<std::string>> ListExportTargets(Session& session) {
    std::vector<std::string> menuTexts;
    if (energy::ListTargets(session.GetHost().addOnCommands, menuTexts) != host::NoError)
        return Failure::Input("the energy evaluation is not there; build it anew");
    return menuTexts;
}

Result<EnergyTransfer> ExportEnergyData(Session& session, const std::string& file, const std::string& target) {
    std::error_code unknown; // a size that cannot be told shows when the file is read
    if (const auto size = std::filesystem::file_size(file, unknown); !unknown && size > XmlMemoryLimit)
        return Failure::Input(file + TooLarge);
    Result<std::string> document = ReadFile(file, "the file cannot be read; check that it exists and may be read");
    if (document.HasFailed()) return document.GetFailure();
    if (const host::ErrorCode error = ConvertXmlToUtf8(document.Get())) return DescribeRefusal(session, file, error);
    EnergyTransfer transfer;
    transfer.before = ReadRecord(session.GetProject().model);
    WorkbenchHost& host = session.GetHost();
    const host::ErrorCode code =
        energy::ExportDocument(host.addOnCommands, host.registration, target, document.Get(), transfer.request);
    if (code != host::NoError) return DescribeRefusal(session, file, code);
    transfer.after = ReadRecord(session.GetProject().model);
    return transfer;
}

std::vector<QuantityChange> ListQuantities(const EnergyTransfer& transfer) {
    std::vector<QuantityChange> quantities;
    for (const FloorQuantity quantity : lca::AllFloorQuantities) {
        const auto index = static_cast<std::size_t>(quantity);
        quantities.push_back({Names[index], lca::WriteDecimal(transfer.before.GetFloorValue(quantity)),
                              lca::WriteDecimal(transfer.after.GetFloorValue(quantity)), Units[index],
                              DescribeSource(transfer.after, quantity), IsChanged(transfer, quantity)});
    }
    return quantities;
}

std::vector<std::string> DescribeChanges(const EnergyTransfer& transfer, const std::string& file) {
    std::vector<std::string> sentences;
    for (const QuantityChange& quantity : ListQuantities(transfer))
        if (quantity.isChanged)
            sentences.push_back(quantity.name + ": " + quantity.before + " -> " + quantity.after + " " + quantity.unit +
                                " (" + quantity.source + ")");
    if (sentences.empty())
        sentences.push_back(file + " changed nothing: it holds no usable values, or those that the project has");
    return sentences;
}

} // namespace workbench
