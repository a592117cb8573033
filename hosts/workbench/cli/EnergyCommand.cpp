// energy: the export targets of the energy evaluation, and sending its results to one of them.
#include "workbench/app/EnergyTransfer.h"
#include "workbench/app/ModelInput.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Placing.h"
#include "workbench/cli/Waiting.h"
#include "workbench/trees/TreeJson.h"
#include "workbench/trees/TreeXml.h"

#include <filesystem>

namespace workbench::cli {

namespace {

Outcome CheckOptions(const EnergyOptions& options) {
    if (Outcome failure = CheckSave(options.save)) return failure;
    if (options.data.empty() && !(options.target + options.save + options.request).empty())
        return Failure{UsageError, "--target, --save and --request tell how data are sent; give --export DATA.xml too"};
    return {};
}

Outcome WriteRequest(const std::string& path, const host::ObjectState& request) {
    std::string text;
    const bool isXml = std::filesystem::path(path).extension() == ".xml";
    const host::ErrorCode error = isXml ? WriteTreeXml(request, text) : WriteTreeJson(request, text);
    if (error != host::NoError) return Failure{OutputUnwritable, path + ": the export settings cannot be written"};
    return WriteOutput(path, text);
}

std::string WriteQuantities(const EnergyTransfer& transfer) {
    std::vector<std::vector<std::string>> rows = {{"Quantity", "Before", "After", "Unit", "Taken from", ""}};
    for (const QuantityChange& quantity : ListQuantities(transfer))
        rows.push_back({quantity.name, quantity.before, quantity.after, quantity.unit, quantity.source,
                        quantity.isChanged ? "changed" : ""});
    return AlignColumns(rows, {Align::Left, Align::Right, Align::Right, Align::Left, Align::Left, Align::Left});
}

Outcome PrintTargets(Session& session) {
    std::vector<std::string> targets;
    if (Outcome failure = ListExportTargets(session, targets)) return failure;
    std::string text;
    for (const std::string& target : targets)
        text.append(target).append("\n");
    return WriteOutput({}, text);
}

} // namespace

Outcome RunEnergy(const EnergyOptions& options) {
    if (Outcome failure = CheckOptions(options)) return failure;
    const bool changesModel = !options.data.empty() && IsProjectFile(options.model) &&
                              (options.save.empty() || IsSameFile(options.model, options.save));
    const KeepChanges keep = changesModel ? KeepChanges::InFile : KeepChanges::InMemory;
    ModelInput input;
    if (Outcome failure = ReadModel(options.model, keep, input)) return failure;
    const host::ProjectEvent event = input.building ? host::ProjectEvent::New : host::ProjectEvent::Open;
    const Purpose purpose = options.data.empty() ? Purpose::Reading : Purpose::Changing;
    Session session;
    if (Outcome failure = session.StartAs(std::move(input.project), event, options.model, options.as, purpose))
        return failure;
    if (const std::string& failure = session.GetProject().GetStoreFailure(); !failure.empty())
        return Failure{OutputUnwritable, failure};
    if (options.data.empty()) return PrintTargets(session);
    EnergyTransfer transfer;
    if (Outcome failure = ExportEnergyData(session, options.data, options.target, transfer)) return failure;
    if (options.save.empty() && !changesModel)
        PrintNote(options.model + " cannot keep the data; name with --save a .kvp file that does");
    if (!options.save.empty() && !changesModel) {
        const std::string failure = SaveProject(session.GetProject(), options.save);
        if (!failure.empty()) return Failure{OutputUnwritable, failure};
    }
    for (const std::string& message : session.GetMessages())
        PrintWarning(message);
    if (!options.request.empty())
        if (Outcome failure = WriteRequest(options.request, transfer.request)) return failure;
    return options.request == "-" ? Outcome() : WriteOutput({}, WriteQuantities(transfer));
}

} // namespace workbench::cli
