#include "workbench/app/Session.h"

#include <filesystem>

namespace workbench {

Session::Session()
    : host(std::make_unique<WorkbenchHost>()), module(std::make_unique<Module>(*host)),
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
    std::string failure = module->Load(GetModulePath(AddOnFile));
    if (failure.empty()) failure = module->Start();
    if (const auto file = GetModulePath(EnergyEvaluationFile); failure.empty() && std::filesystem::exists(file)) {
        failure = energyModule->Load(file);
        if (failure.empty()) failure = energyModule->Start();
    }
    if (!failure.empty()) return Failure{InputUnreadable, failure};
    host->OpenProject(std::move(project), event);
    return {};
}

Outcome Session::StartAs(std::unique_ptr<Project> project, host::ProjectEvent event, const std::string& file,
                         const std::string& login, Purpose purpose) {
    if (Outcome failure = SelectMember(project->model, file, login, purpose, host->access.userId)) return failure;
    return Start(std::move(project), event);
}

} // namespace workbench
