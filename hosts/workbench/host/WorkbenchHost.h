// The workbench as a host: every role of the interface on one open project.
#pragma once

#include "host/Host.h"
#include "workbench/dialogs/DialogManager.h"
#include "workbench/dialogs/ItemRoles.h"
#include "workbench/host/AddOnCommandsRole.h"
#include "workbench/host/LibraryRoles.h"
#include "workbench/host/PropertyRoles.h"
#include "workbench/host/RefusingRoles.h"
#include "workbench/host/RegistrationRole.h"
#include "workbench/host/SmallRoles.h"
#include "workbench/host/TeamworkRole.h"
#include "workbench/host/UserInputRole.h"
#include "workbench/trees/XmlReader.h"

#include <memory>

namespace workbench {

class WorkbenchHost : public host::Host {
public:
    WorkbenchHost();

    /// Opens a project and raises the event of it; the former one is closed. The palette stays open. After the first
    /// one the start is complete, which is an event of its own.
    void OpenProject(std::unique_ptr<Project> opened, host::ProjectEvent event);
    /// Brings the window that shows this database to the front, which becomes the current one too, and says so.
    /// BadDatabase when the project has none of that type and identifier; an identifier is needed where there may be
    /// several.
    host::ErrorCode SwitchWindow(const host::Database& database);
    /// Tells the add-ons that the host ends; they are to be unloaded next.
    void Quit() { std::ignore = registration.RaiseEvent(host::ProjectEvent::Quit); }
    /// What a host does between two actions of the user: learns what other processes have done to a shared project.
    void TurnEventLoop() { teamwork.TurnEventLoop(); }
    /// Null while none is open.
    Project* GetProject() const { return project; }

    host::Registration& GetRegistration() override { return registration; }
    host::Resources& GetResources() override { return resources; }
    host::Model& GetModel() override { return refusingModel; }
    host::Attributes& GetAttributes() override { return refusingAttributes; }
    host::Databases& GetDatabases() override { return refusingDatabases; }
    host::Libraries& GetLibraries() override { return refusingLibraries; }
    host::PlacedObjects& GetPlacedObjects() override { return refusingPlacedObjects; }
    host::Properties& GetProperties() override { return refusingProperties; }
    host::Classifications& GetClassifications() override { return refusingClassifications; }
    host::Teamwork& GetTeamwork() override { return refusingTeamwork; }
    host::UndoableCommands& GetUndoableCommands() override { return refusingUndoableCommands; }
    host::ProgressWindow& GetProgressWindow() override { return refusingProgressWindow; }
    host::Dialogs& GetDialogs() override { return refusingDialogs; }
    host::DialogItems& GetDialogItems() override { return dialogItems; }
    host::ItemValues& GetItemValues() override { return itemValues; }
    host::ListLayout& GetListLayout() override { return listLayout; }
    host::ListRows& GetListRows() override { return listRows; }
    host::ListCells& GetListCells() override { return listCells; }
    host::ListSelection& GetListSelection() override { return listSelection; }
    host::Alerts& GetAlerts() override { return dialogManager; }
    host::UserInput& GetUserInput() override { return refusingUserInput; }
    host::TextMeasuring& GetTextMeasuring() override { return textMeasuring; }
    host::Pictures& GetPictures() override { return refusingPictures; }
    host::AddOnCommands& GetAddOnCommands() override { return refusingAddOnCommands; }
    host::XmlReading& GetXmlReading() override { return refusingXmlReading; }

private:
    std::unique_ptr<Project> ownedProject;
    Project* project = nullptr;
    bool isStartComplete = false;

public:
    // The roles with what only the workbench itself may do.
    Access access;
    Refusals refusals;
    RegistrationRole registration;
    ResourcesRole resources;
    DatabasesRole databases;
    ModelRole model;
    AttributesRole attributes;
    LibrariesRole libraries;
    PlacedObjectsRole placedObjects;
    PropertiesRole properties;
    ClassificationsRole classifications;
    UndoableCommandsRole commands;
    ProgressRole progress;
    OpenDialogs openDialogs;
    DialogManager dialogManager;
    TeamworkRole teamwork;
    DialogItemsRole dialogItems;
    ItemValuesRole itemValues;
    ListLayoutRole listLayout;
    ListRowsRole listRows;
    ListCellsRole listCells;
    ListSelectionRole listSelection;
    UserInputRole userInput;
    TextMeasuringRole textMeasuring;
    PicturesRole pictures;
    AddOnCommandsRole addOnCommands;
    XmlReadingRole xmlReading;

private:
    RefusingModel refusingModel{model, refusals};
    RefusingAttributes refusingAttributes{attributes, refusals};
    RefusingDatabases refusingDatabases{databases, refusals};
    RefusingLibraries refusingLibraries{libraries, refusals};
    RefusingPlacedObjects refusingPlacedObjects{placedObjects, refusals};
    RefusingProperties refusingProperties{properties, refusals};
    RefusingClassifications refusingClassifications{classifications, refusals};
    RefusingTeamwork refusingTeamwork{teamwork, refusals};
    RefusingUndoableCommands refusingUndoableCommands{commands, refusals};
    RefusingProgressWindow refusingProgressWindow{progress, refusals};
    RefusingDialogs refusingDialogs{dialogManager, refusals};
    RefusingUserInput refusingUserInput{userInput, refusals};
    RefusingPictures refusingPictures{pictures, refusals};
    RefusingAddOnCommands refusingAddOnCommands{addOnCommands, refusals};
    RefusingXmlReading refusingXmlReading{xmlReading, refusals};
};

} // namespace workbench
