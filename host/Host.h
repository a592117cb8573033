// A host as the add-on sees it: one object per role. The host owns the roles; they live as long as the module is
// loaded.
#pragma once

namespace host {

class Registration;
class Resources;
class Model;
class Attributes;
class Databases;
class Libraries;
class PlacedObjects;
class Properties;
class Classifications;
class Teamwork;
class UndoableCommands;
class ProgressWindow;
class Dialogs;
class DialogItems;
class ItemValues;
class ListLayout;
class ListRows;
class ListCells;
class ListSelection;
class Alerts;
class UserInput;
class TextMeasuring;
class Pictures;
class AddOnCommands;
class XmlReading;

class Host {
public:
    virtual ~Host() = default;

    virtual Registration& GetRegistration() = 0;
    virtual Resources& GetResources() = 0;
    virtual Model& GetModel() = 0;
    virtual Attributes& GetAttributes() = 0;
    virtual Databases& GetDatabases() = 0;
    virtual Libraries& GetLibraries() = 0;
    virtual PlacedObjects& GetPlacedObjects() = 0;
    virtual Properties& GetProperties() = 0;
    virtual Classifications& GetClassifications() = 0;
    virtual Teamwork& GetTeamwork() = 0;
    virtual UndoableCommands& GetUndoableCommands() = 0;
    virtual ProgressWindow& GetProgressWindow() = 0;
    virtual Dialogs& GetDialogs() = 0;
    virtual DialogItems& GetDialogItems() = 0;
    virtual ItemValues& GetItemValues() = 0;
    virtual ListLayout& GetListLayout() = 0;
    virtual ListRows& GetListRows() = 0;
    virtual ListCells& GetListCells() = 0;
    virtual ListSelection& GetListSelection() = 0;
    virtual Alerts& GetAlerts() = 0;
    virtual UserInput& GetUserInput() = 0;
    virtual TextMeasuring& GetTextMeasuring() = 0;
    virtual Pictures& GetPictures() = 0;
    virtual AddOnCommands& GetAddOnCommands() = 0;
    virtual XmlReading& GetXmlReading() = 0;
};

} // namespace host
