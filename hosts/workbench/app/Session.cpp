#include "workbench/app/Session.h"

#include <filesystem>

namespace workbench {

Session::Session(Actor actor)
    : actor(std::move(actor)), host(std::make_unique<WorkbenchHost>()), module(std::make_unique<Module>(*host)),
      energyModule(std::make_unique<Module>(*host)) {
    host->dialogManager.reportSink = [this](const std::string& line) { messages.push_back(line); };
    host->dialogManager.alertAnswer = [this](const host::Alert& alert) {
        const bool isBad = alert.type != host::AlertType::Information || alert.title == RequestAlertTitle;
        if (isBad && (messages.empty() || messages.back() != alert.largeText)) messages.push_back(alert.largeText);
        // Nobody is there to agree: who wants to release presses the set's button.
        // Nor is there anybody to look at a report that was saved.
        return alert.type == host::AlertType::Information ? std::int16_t{2} : std::int16_t{1};
    };
}

Session::~Session() {
    host->Quit();
    module->Unload();
    energyModule->Unload();
}

Outcome Session::Start(std::unique_ptr<Project> project, host::ProjectEvent event) {
    const auto loadAndStart = [](Module& loaded, const std::filesystem::path& file) {
        const Outcome outcome = loaded.Load(file);
        return outcome.HasFailed() ? outcome : loaded.Start();
    };
    if (Outcome outcome = loadAndStart(*module, GetModulePath(AddOnFile)); outcome.HasFailed()) return outcome;
    if (const auto file = GetModulePath(EnergyEvaluationFile); std::filesystem::exists(file))
        if (Outcome outcome = loadAndStart(*energyModule, file); outcome.HasFailed()) return outcome;
    host->access.userId = actor.userId;
    host->OpenProject(std::move(project), event);
    return Outcome::Done();
}

Failure Session::DescribeWriteRefusal(host::ErrorCode code) const {
    if (const Outcome& stored = GetProject().GetStoreOutcome(); stored.HasFailed()) return stored.GetFailure();
    if (code == host::Errors::NoAccessRight)
        return Failure::Output("the project is shared and its settings are not reserved by this member; reserve them " +
                               (actor.howToReserve.empty() ? "" : actor.howToReserve + " ") + "and try again");
    return Failure::Output("the project did not take the values (host error " + host::WriteErrorCode(code) + ")");
}

} // namespace workbench
