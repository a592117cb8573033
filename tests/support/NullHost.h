// A host whose every operation does nothing and succeeds. Tests derive from the roles that they care for.
#pragma once

#include "host/AddOnCommands.h"
#include "host/Commands.h"
#include "host/Dialogs.h"
#include "host/Host.h"
#include "host/Libraries.h"
#include "host/Model.h"
#include "host/Properties.h"
#include "host/Registration.h"
#include "host/Resources.h"
#include "host/Teamwork.h"
#include "host/UserInput.h"
#include "host/Xml.h"

namespace test {

class NullRegistration : public host::Registration {
public:
    void KeepInMemory(bool) override {}
    host::ErrorCode RegisterMenu(std::int16_t, std::int16_t) override { return 0; }
    host::ErrorCode RegisterSupportedCommand(std::uint32_t, std::int32_t) override { return 0; }
    host::ErrorCode InstallMenuHandler(std::int16_t, host::MenuHandler) override { return 0; }
    host::ErrorCode InstallSettingsCommandHandler(std::uint32_t, std::int32_t, host::SettingsCommandHandler) override {
        return 0;
    }
    host::ErrorCode InstallDocumentCommandHandler(std::uint32_t, std::int32_t, host::DocumentCommandHandler) override {
        return 0;
    }
    host::ErrorCode InstallProjectEventHandler(std::uint32_t, host::ProjectEventHandler) override { return 0; }
    host::ErrorCode InstallReservationChangeHandler(host::ReservationChangeHandler,
                                                    const std::set<host::Guid>&) override {
        return 0;
    }
    host::ErrorCode SetMenuItemText(std::int16_t, std::int32_t, const std::string&) override { return 0; }
};

class NullResources : public host::Resources {
public:
    std::string ReadString(std::int16_t, std::int16_t) override { return {}; }
    host::ModuleId ReadModuleId(std::int16_t) override { return {}; }
    std::string FormatNumber(double, std::int16_t) override { return {}; }
    std::string FormatCurrentTime(std::uint32_t) override { return {}; }
    std::string ToLowerCase(const std::string& text) override { return text; }
};

class NullModel : public host::Model {
public:
    host::ErrorCode ListElements(host::ElementType, host::ElementScope, std::vector<host::Guid>&) override { return 0; }
    host::ErrorCode ReadElementHeader(const host::Guid&, host::ElementHeader&) override { return 0; }
    host::ErrorCode ReadElementComponents(const host::ElementHeader&, std::vector<host::MaterialComponent>&) override {
        return 0;
    }
};

class NullAttributes : public host::Attributes {
public:
    host::ErrorCode CountBuildingMaterials(std::int32_t&) override { return 0; }
    host::ErrorCode ReadBuildingMaterial(host::AttributeIndex, host::BuildingMaterial&) override { return 0; }
    host::ErrorCode ReadLayerName(host::AttributeIndex, std::string&) override { return 0; }
    host::ErrorCode ReadPenColour(std::int16_t, host::Shade&) override { return 0; }
    host::ErrorCode ReadFillPattern(host::AttributeIndex, host::FillPattern&) override { return 0; }
    host::ErrorCode ReadSurfaceColour(host::AttributeIndex, host::Shade&) override { return 0; }
};

class NullDatabases : public host::Databases {
public:
    host::ErrorCode ReadCurrentDatabase(host::Database&) override { return 0; }
    host::ErrorCode ChangeCurrentDatabase(const host::Database&) override { return 0; }
    host::ErrorCode ReadFrontWindow(host::Database&) override { return 0; }
    host::ErrorCode ListDatabases(host::DatabaseType, std::vector<host::Database>&) override { return 0; }
};

class NullLibraries : public host::Libraries {
public:
    host::ErrorCode FindObject(const std::string&, host::LibraryPartIndex&) override { return 0; }
    host::ErrorCode ListFavourites(const std::string&, std::vector<std::string>&) override { return 0; }
    host::ErrorCode ReadParameters(const host::ObjectSource&, std::vector<host::ObjectParameter>&) override {
        return 0;
    }
};

class NullPlacedObjects : public host::PlacedObjects {
public:
    host::ErrorCode ReadLibraryPart(const host::Guid&, host::LibraryPartIndex&) override { return 0; }
    host::ErrorCode ReadParameters(const host::Guid&, std::vector<host::ObjectParameter>&) override { return 0; }
    host::ErrorCode WriteParameters(const host::Guid&, const std::vector<host::ObjectParameter>&) override { return 0; }
    host::ErrorCode Create(const host::ObjectSource&, const host::Point&, const std::vector<host::ObjectParameter>&,
                           host::Guid&) override {
        return 0;
    }
};

class NullProperties : public host::Properties {
public:
    host::ErrorCode ListGroups(std::vector<host::PropertyGroup>&) override { return 0; }
    host::ErrorCode CreateGroup(host::PropertyGroup&) override { return 0; }
    host::ErrorCode ListDefinitions(const host::Guid&, std::vector<host::PropertyDefinition>&) override { return 0; }
    host::ErrorCode CreateDefinition(host::PropertyDefinition&) override { return 0; }
    host::ErrorCode ChangeDefinition(const host::PropertyDefinition&) override { return 0; }
    host::ErrorCode ReadElementValues(const host::Guid&, const std::vector<host::Guid>&,
                                      std::vector<host::PropertyValue>&) override {
        return 0;
    }
    host::ErrorCode ReadMaterialValues(host::AttributeIndex, const std::vector<host::Guid>&,
                                       std::vector<host::PropertyValue>&) override {
        return 0;
    }
    host::ErrorCode WriteMaterialValues(host::AttributeIndex, const std::vector<host::PropertyValue>&) override {
        return 0;
    }
};

class NullClassifications : public host::Classifications {
public:
    host::ErrorCode ListSystems(std::vector<host::ClassificationSystem>&) override { return 0; }
    host::ErrorCode CreateSystem(host::ClassificationSystem&) override { return 0; }
    host::ErrorCode ListRootItems(const host::Guid&, std::vector<host::ClassificationItem>&) override { return 0; }
    host::ErrorCode ListChildItems(const host::Guid&, std::vector<host::ClassificationItem>&) override { return 0; }
    host::ErrorCode CreateRootItem(const host::Guid&, host::ClassificationItem&) override { return 0; }
    host::ErrorCode ReadMaterialClassifications(host::AttributeIndex, std::vector<host::Classification>&) override {
        return 0;
    }
    host::ErrorCode ClassifyMaterial(host::AttributeIndex, const host::Guid&) override { return 0; }
};

class NullTeamwork : public host::Teamwork {
public:
    bool IsTeamworkProject() override { return false; }
    host::Guid FindLockableSet(const std::string&) override { return host::Guid{{1}}; }
    bool HasConnection() override { return false; }
    host::LockableStatus ReadLockableStatus(const host::Guid&) override { return host::LockableStatus::Unknown; }
    std::vector<std::int16_t> ListHolders(const host::Guid&) override { return {}; }
    host::ErrorCode Reserve(const host::Guid&, host::HostDialogs) override { return 0; }
    host::ErrorCode Release(const host::Guid&, host::HostDialogs) override { return 0; }
    host::ErrorCode ListMembers(std::vector<host::ProjectMember>&) override { return 0; }
};

class NullUndoableCommands : public host::UndoableCommands {
public:
    host::ErrorCode Call(const std::string&, const std::function<host::ErrorCode()>& command) override {
        return command();
    }
};

class NullProgressWindow : public host::ProgressWindow {
public:
    host::ErrorCode Open(const std::string&) override { return 0; }
    host::ErrorCode StartPhase(const std::string&, std::int32_t) override { return 0; }
    host::ErrorCode SetValue(std::int32_t) override { return 0; }
    host::ErrorCode Close() override { return 0; }
};

class NullDialogs : public host::Dialogs {
public:
    host::ErrorCode RegisterPalette(std::int16_t, const host::Guid&, host::PaletteRequestHandler) override { return 0; }
    host::ErrorCode UnregisterPalette(const host::Guid&) override { return 0; }
    host::DialogId OpenPalette(const host::Guid&, host::DialogHandler&) override { return {}; }
    std::int16_t RunModal(std::int16_t, const host::Guid&, host::DialogHandler&) override { return 0; }
    void Close(host::DialogId) override {}
    host::Size ReadSize(host::DialogId) override { return {}; }
    void SetMinimumSize(host::DialogId, host::Size) override {}
    void BeginMoveGrow(host::DialogId) override {}
    void EndMoveGrow(host::DialogId) override {}
};

class NullDialogItems : public host::DialogItems {
public:
    host::Rectangle ReadRectangle(host::DialogId, std::int16_t) override { return {}; }
    void SetRectangle(host::DialogId, std::int16_t, const host::Rectangle&) override {}
    std::string ReadText(host::DialogId, std::int16_t) override { return {}; }
    void SetText(host::DialogId, std::int16_t, const std::string&) override {}
    void Show(host::DialogId, std::int16_t, bool) override {}
    void Enable(host::DialogId, std::int16_t, bool) override {}
    void SetIcon(host::DialogId, std::int16_t, std::int16_t) override {}
    void SetBackground(host::DialogId, std::int16_t, const host::Colour&) override {}
    void Redraw(host::DialogId, std::int16_t) override {}
    void EnableDrawing(host::DialogId, std::int16_t, bool) override {}
};

class NullItemValues : public host::ItemValues {
public:
    double ReadReal(host::DialogId, std::int16_t) override { return 0.0; }
    void SetReal(host::DialogId, std::int16_t, double) override {}
    std::int32_t ReadInteger(host::DialogId, std::int16_t) override { return 0; }
    void SetInteger(host::DialogId, std::int16_t, std::int32_t) override {}
    bool IsChecked(host::DialogId, std::int16_t) override { return false; }
    void SetChecked(host::DialogId, std::int16_t, bool) override {}
    std::vector<std::string> ListPopUpTexts(host::DialogId, std::int16_t) override { return {}; }
    void SetPopUpTexts(host::DialogId, std::int16_t, const std::vector<std::string>&) override {}
    std::int16_t ReadPopUpEntry(host::DialogId, std::int16_t) override { return 0; }
    void SelectPopUpEntry(host::DialogId, std::int16_t, std::int16_t) override {}
};

class NullListLayout : public host::ListLayout {
public:
    void SetColumnCount(host::DialogId, std::int16_t, std::int16_t) override {}
    std::int16_t CountColumns(host::DialogId, std::int16_t) override { return 0; }
    void SetColumn(host::DialogId, std::int16_t, std::int16_t, const host::ListColumn&) override {}
    host::ListColumn ReadColumn(host::DialogId, std::int16_t, std::int16_t) override { return {}; }
    void SetHeader(host::DialogId, std::int16_t, std::int16_t, const host::ListHeader&) override {}
    host::ListHeader ReadHeader(host::DialogId, std::int16_t, std::int16_t) override { return {}; }
    void SetOwnerDrawn(host::DialogId, std::int16_t, std::int16_t, bool) override {}
    host::Size ReadCellSpace(host::DialogId, std::int16_t) override { return {}; }
    void BindEditor(host::DialogId, std::int16_t, std::int16_t, std::int16_t) override {}
    std::int16_t ReadBoundEditor(host::DialogId, std::int16_t, std::int16_t) override { return 0; }
};

class NullListRows : public host::ListRows {
public:
    std::int32_t Insert(host::DialogId, std::int16_t, std::int32_t) override { return 0; }
    std::int32_t InsertSeparator(host::DialogId, std::int16_t, std::int32_t) override { return 0; }
    void Delete(host::DialogId, std::int16_t, std::int32_t) override {}
    void DeleteAll(host::DialogId, std::int16_t) override {}
    std::optional<std::int32_t> ReadUserData(host::DialogId, std::int16_t, std::int32_t) override { return {}; }
    void SetUserData(host::DialogId, std::int16_t, std::int32_t, std::int32_t) override {}
    void SetStatus(host::DialogId, std::int16_t, std::int32_t, host::RowStatus) override {}
    void SetStyle(host::DialogId, std::int16_t, std::int32_t, host::TextStyle) override {}
};

class NullListCells : public host::ListCells {
public:
    std::string ReadText(host::DialogId, std::int16_t, std::int32_t, std::int16_t) override { return {}; }
    void SetText(host::DialogId, std::int16_t, std::int32_t, std::int16_t, const std::string&) override {}
    host::StandardIcon ReadIcon(host::DialogId, std::int16_t, std::int32_t, std::int16_t) override {
        return host::StandardIcon::None;
    }
    void SetIcon(host::DialogId, std::int16_t, std::int32_t, std::int16_t, host::StandardIcon) override {}
    void SetStyle(host::DialogId, std::int16_t, std::int32_t, std::int16_t, host::TextStyle) override {}
};

class NullListSelection : public host::ListSelection {
public:
    std::int32_t ReadFirst(host::DialogId, std::int16_t) override { return 0; }
    std::vector<std::int32_t> ListRows(host::DialogId, std::int16_t) override { return {}; }
    void Select(host::DialogId, std::int16_t, std::int32_t) override {}
};

class NullUserInput : public host::UserInput {
public:
    std::optional<host::PickerColour> PickColour(const host::PickerColour&) override { return {}; }
    std::optional<host::Point> PickPoint(const std::string&) override { return {}; }
    std::optional<std::string> PickSaveFile(const host::SaveFileQuestion&) override { return {}; }
};

class NullAlerts : public host::Alerts {
public:
    std::int16_t Show(const host::Alert&) override { return 1; }
    void WriteReport(const std::string&) override {}
};

class NullTextMeasuring : public host::TextMeasuring {
public:
    double MeasureWidth(const std::string&) override { return 0.0; }
    double ReadCapitalHeight() override { return 0.0; }
};

class NullPictures : public host::Pictures {
public:
    host::ErrorCode ReadSpecialFolder(std::int16_t, std::string&) override { return 0; }
    host::ErrorCode WriteJpeg(const std::string&, int, int, double,
                              const std::function<void(host::NativeContext&)>&) override {
        return 0;
    }
};

class NullAddOnCommands : public host::AddOnCommands {
public:
    host::ErrorCode CreateParameterList(host::ParameterListId&) override { return 0; }
    host::ErrorCode AddParameter(host::ParameterListId, const host::CommandParameter&) override { return 0; }
    host::ErrorCode ReadParameter(host::ParameterListId, const std::string&, host::CommandParameter&) override {
        return 0;
    }
    host::ErrorCode ChangeParameter(host::ParameterListId, const host::CommandParameter&) override { return 0; }
    host::ErrorCode FreeParameterList(host::ParameterListId) override { return 0; }
    host::ErrorCode Call(const host::ModuleId&, std::uint32_t, std::int32_t, host::ParameterListId, bool) override {
        return 0;
    }
};

/// Finds no document.
class NullXmlReading : public host::XmlReading {
public:
    host::ErrorCode ReadDocument(const std::string&, const std::string&, std::unique_ptr<host::DOMReader>&) override {
        return host::Errors::BadValue;
    }
};

/// Each role can be replaced by one of the test's own, which must outlive the host.
class NullHost : public host::Host {
public:
    host::Registration& GetRegistration() override { return *registration; }
    host::Resources& GetResources() override { return *resources; }
    host::Model& GetModel() override { return *model; }
    host::Attributes& GetAttributes() override { return *attributes; }
    host::Databases& GetDatabases() override { return *databases; }
    host::Libraries& GetLibraries() override { return *libraries; }
    host::PlacedObjects& GetPlacedObjects() override { return *placedObjects; }
    host::Properties& GetProperties() override { return *properties; }
    host::Classifications& GetClassifications() override { return *classifications; }
    host::Teamwork& GetTeamwork() override { return *teamwork; }
    host::UndoableCommands& GetUndoableCommands() override { return *commands; }
    host::ProgressWindow& GetProgressWindow() override { return *progress; }
    host::Dialogs& GetDialogs() override { return *dialogs; }
    host::DialogItems& GetDialogItems() override { return *dialogItems; }
    host::ItemValues& GetItemValues() override { return *itemValues; }
    host::ListLayout& GetListLayout() override { return *listLayout; }
    host::ListRows& GetListRows() override { return *listRows; }
    host::ListCells& GetListCells() override { return *listCells; }
    host::ListSelection& GetListSelection() override { return *listSelection; }
    host::Alerts& GetAlerts() override { return *alerts; }
    host::UserInput& GetUserInput() override { return *userInput; }
    host::TextMeasuring& GetTextMeasuring() override { return *textMeasuring; }
    host::Pictures& GetPictures() override { return *pictures; }
    host::AddOnCommands& GetAddOnCommands() override { return *addOnCommands; }
    host::XmlReading& GetXmlReading() override { return *xmlReading; }

private:
    NullRegistration nullRegistration;
    NullResources nullResources;
    NullModel nullModel;
    NullAttributes nullAttributes;
    NullDatabases nullDatabases;
    NullLibraries nullLibraries;
    NullPlacedObjects nullPlacedObjects;
    NullProperties nullProperties;
    NullClassifications nullClassifications;
    NullTeamwork nullTeamwork;
    NullUndoableCommands nullCommands;
    NullProgressWindow nullProgress;
    NullDialogs nullDialogs;
    NullDialogItems nullDialogItems;
    NullItemValues nullItemValues;
    NullListLayout nullListLayout;
    NullListRows nullListRows;
    NullListCells nullListCells;
    NullListSelection nullListSelection;
    NullAlerts nullAlerts;
    NullUserInput nullUserInput;
    NullTextMeasuring nullTextMeasuring;
    NullPictures nullPictures;
    NullAddOnCommands nullAddOnCommands;
    NullXmlReading nullXmlReading;

public:
    host::Registration* registration = &nullRegistration;
    host::Resources* resources = &nullResources;
    host::Model* model = &nullModel;
    host::Attributes* attributes = &nullAttributes;
    host::Databases* databases = &nullDatabases;
    host::Libraries* libraries = &nullLibraries;
    host::PlacedObjects* placedObjects = &nullPlacedObjects;
    host::Properties* properties = &nullProperties;
    host::Classifications* classifications = &nullClassifications;
    host::Teamwork* teamwork = &nullTeamwork;
    host::UndoableCommands* commands = &nullCommands;
    host::ProgressWindow* progress = &nullProgress;
    host::Dialogs* dialogs = &nullDialogs;
    host::DialogItems* dialogItems = &nullDialogItems;
    host::ItemValues* itemValues = &nullItemValues;
    host::ListLayout* listLayout = &nullListLayout;
    host::ListRows* listRows = &nullListRows;
    host::ListCells* listCells = &nullListCells;
    host::ListSelection* listSelection = &nullListSelection;
    host::Alerts* alerts = &nullAlerts;
    host::UserInput* userInput = &nullUserInput;
    host::TextMeasuring* textMeasuring = &nullTextMeasuring;
    host::Pictures* pictures = &nullPictures;
    host::AddOnCommands* addOnCommands = &nullAddOnCommands;
    host::XmlReading* xmlReading = &nullXmlReading;
};

} // namespace test
