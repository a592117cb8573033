#include "workbench/host/WorkbenchHost.h"

namespace workbench {

WorkbenchHost::WorkbenchHost()
    : access(project), model(project), attributes(project), properties(project, access),
      classifications(project, access), teamwork(project, access), commands(project), dialogManager(openDialogs),
      dialogItems(openDialogs), itemValues(openDialogs), listLayout(openDialogs), listRows(openDialogs),
      listCells(openDialogs), listSelection(openDialogs), userInput(openDialogs) {}

void WorkbenchHost::OpenProject(std::unique_ptr<Project> opened, host::ProjectEvent event) {
    ownedProject = std::move(opened);
    project = ownedProject.get();
    databases.current = host::DatabaseType::FloorPlan;
    registration.RaiseEvent(event);
}

} // namespace workbench
