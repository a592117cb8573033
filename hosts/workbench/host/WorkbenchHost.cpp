#include "workbench/host/WorkbenchHost.h"

#include <utility>

namespace workbench {

WorkbenchHost::WorkbenchHost()
    : access(project), registration(refusals), databases(project), model(project, databases), attributes(project),
      libraries(project), placedObjects(project, databases), properties(project, access),
      classifications(project, access), commands(project), dialogManager(openDialogs),
      teamwork(project, access, registration, dialogManager), dialogItems(openDialogs), itemValues(openDialogs),
      listLayout(openDialogs), listRows(openDialogs), listCells(openDialogs), listSelection(openDialogs),
      userInput(openDialogs, dialogManager), addOnCommands(registration) {
    dialogManager.mayRegisterPalettes = [this] {
        return registration.GetPhase() == RegistrationRole::Phase::Initialising;
    };
}

void WorkbenchHost::OpenProject(std::unique_ptr<Project> opened, host::ProjectEvent event) {
    ownedProject = std::move(opened);
    project = ownedProject.get();
    databases.Reset();
    teamwork.TakeHolders();
    // As in any host, what an add-on answers to an event changes nothing; it reports by itself.
    std::ignore = registration.RaiseEvent(event);
    if (!std::exchange(isStartComplete, true))
        std::ignore = registration.RaiseEvent(host::ProjectEvent::AllInputFinished);
}

host::ErrorCode WorkbenchHost::SwitchWindow(const host::Database& database) {
    if (const host::ErrorCode error = databases.ChangeCurrentDatabase(database)) return error;
    databases.frontWindow = databases.GetCurrent();
    return registration.RaiseEvent(host::ProjectEvent::WindowChanged);
}

} // namespace workbench
