// energy: the export targets of the energy evaluation, and sending its results to one of them.
#include "workbench/app/EnergyTransfer.h"
#include "workbench/cli/Columns.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Opening.h"
#include "workbench/cli/Options.h"
#include "workbench/trees/TreeJson.h"
#include "workbench/trees/TreeXml.h"

#include <filesystem>

namespace workbench::cli {

namespace {

Outcome CheckOptions(const EnergyOptions& options) {
    if (Outcome outcome = CheckSave(options.save); outcome.HasFailed()) return outcome;
    if (options.data.empty() && !(options.target + options.save + options.request).empty())
        return Failure::Usage("--target, --save and --request tell how data are sent; give --export DATA.xml too");
    return Outcome::Done();
}

Outcome WriteRequest(const std::string& path, const host::ObjectState& request) {
    std::string text;
    const bool isXml = std::filesystem::path(path).extension() == ".xml";
    const host::ErrorCode error = isXml ? WriteTreeXml(request, text) : WriteTreeJson(request, text);
    if (error != host::NoError) return Failure::Output(path + ": the export settings cannot be written");
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
    Result<std::vector<std::string>> targets = ListExportTargets(session);
    if (targets.HasFailed()) return targets;
    std::string text;
    for (const std::string& target : targets.Get())
        text.append(target).append("\n");
    return WriteOutput({}, text);
}

/// Which file keeps the data: without --save the model itself, where it is a project; empty where none does.
std::string ChooseSavePath(const EnergyOptions& options) {
    if (options.data.empty()) return {};
    return options.save.empty() && IsProjectFile(options.model.path) ? options.model.path : options.save;
}

} // namespace

Outcome RunEnergy(const EnergyOptions& options) {
    if (Outcome outcome = CheckOptions(options); outcome.HasFailed()) return outcome;
    const std::string savePath = ChooseSavePath(options);
    Result<OpenedModel> opened = OpenModel(options.model, savePath);
    if (opened.HasFailed()) return opened;
    OpenedModel& model = opened.Get();
    const Purpose purpose = options.data.empty() ? Purpose::Reading : Purpose::Changing;
    if (Outcome outcome = StartAs(model, options.as, purpose); outcome.HasFailed()) return outcome;
    if (options.data.empty()) return PrintTargets(model.GetSession());
    Result<EnergyTransfer> transfer = SendEnergyData(model.GetSession(), options.data, options.target);
    if (transfer.HasFailed()) return transfer;
    if (savePath.empty())
        PrintNote(options.model.path + " cannot keep the data; name with --save a .kvp file that does");
    if (Outcome outcome = model.Save(); outcome.HasFailed()) return outcome;
    for (const std::string& message : model.GetSession().GetMessages())
        PrintWarning(message);
    if (!options.request.empty())
        if (Outcome outcome = WriteRequest(options.request, transfer.Get().request); outcome.HasFailed())
            return outcome;
    return options.request == "-" ? Outcome::Done() : WriteOutput({}, WriteQuantities(transfer.Get()));
}

} // namespace workbench::cli
