// A host whose every operation does nothing and succeeds, but that it finds no document. Tests derive from the roles
// that they care for; where these share a name with another role, such as Call, they bring in both.
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

using namespace host;

class NullDialogs : public Dialogs {
public:
    ErrorCode RegisterPalette(std::int16_t, const Guid&, PaletteRequestHandler) override { return 0; }
    ErrorCode UnregisterPalette(const Guid&) override { return 0; }
    DialogId OpenPalette(const Guid&, DialogHandler&) override { return {}; }
    std::int16_t RunModal(std::int16_t, const Guid&, DialogHandler&) override { return 0; }
    void Close(DialogId) override {}
    Size ReadSize(DialogId) override { return {}; }
    void SetMinimumSize(DialogId, Size) override {}
    void BeginMoveGrow(DialogId) override {}
    void EndMoveGrow(DialogId) override {}
};

class NullDialogItems : public DialogItems {
public:
    Rectangle ReadRectangle(DialogId, std::int16_t) override { return {}; }
    void SetRectangle(DialogId, std::int16_t, const Rectangle&) override {}
    std::string ReadText(DialogId, std::int16_t) override { return {}; }
    void SetText(DialogId, std::int16_t, const std::string&) override {}
    void Show(DialogId, std::int16_t, bool) override {}
    void Enable(DialogId, std::int16_t, bool) override {}
    void SetIcon(DialogId, std::int16_t, std::int16_t) override {}
    void SetBackground(DialogId, std::int16_t, const Colour&) override {}
    void Redraw(DialogId, std::int16_t) override {}
    void EnableDrawing(DialogId, std::int16_t, bool) override {}
};

/// The roles other than dialogs and their items.
class NullRoles : public host::Registration,
                  public host::Resources,
                  public host::Model,
                  public host::Attributes,
                  public host::Databases,
                  public host::Libraries,
                  public host::PlacedObjects,
                  public host::Properties,
                  public host::Classifications,
                  public host::Teamwork,
                  public host::UndoableCommands,
                  public host::ProgressWindow,
                  public host::ItemValues,
                  public host::ListLayout,
                  public host::ListRows,
                  public host::ListCells,
                  public host::ListSelection,
                  public host::UserInput,
                  public host::Alerts,
                  public host::TextMeasuring,
                  public host::Pictures,
                  public host::AddOnCommands,
                  public host::XmlReading {
public:
    void KeepInMemory(bool) override {}
    ErrorCode RegisterMenu(std::int16_t, std::int16_t) override { return 0; }
    ErrorCode RegisterSupportedCommand(std::uint32_t, std::int32_t) override { return 0; }
    ErrorCode InstallMenuHandler(std::int16_t, MenuHandler) override { return 0; }
    ErrorCode InstallSettingsCommandHandler(std::uint32_t, std::int32_t, SettingsCommandHandler) override { return 0; }
    ErrorCode InstallDocumentCommandHandler(std::uint32_t, std::int32_t, DocumentCommandHandler) override { return 0; }
    ErrorCode InstallProjectEventHandler(std::uint32_t, ProjectEventHandler) override { return 0; }
    ErrorCode InstallReservationChangeHandler(ReservationChangeHandler, const std::set<Guid>&) override { return 0; }
    ErrorCode SetMenuItemText(std::int16_t, std::int32_t, const std::string&) override { return 0; }
    std::string ReadString(std::int16_t, std::int16_t) override { return {}; }
    ModuleId ReadModuleId(std::int16_t) override { return {}; }
    std::string FormatNumber(double, std::int16_t) override { return {}; }
    std::string FormatCurrentTime(std::uint32_t) override { return {}; }
    std::string ToLowerCase(const std::string& text) override { return text; }
    ErrorCode ListElements(ElementType, ElementScope, std::vector<Guid>&) override { return 0; }
    ErrorCode ReadElementHeader(const Guid&, ElementHeader&) override { return 0; }
    ErrorCode ReadElementComponents(const ElementHeader&, std::vector<MaterialComponent>&) override { return 0; }
    ErrorCode ReadProjectName(std::string&) override { return 0; }
    ErrorCode CountBuildingMaterials(std::int32_t&) override { return 0; }
    ErrorCode ReadBuildingMaterial(AttributeIndex, BuildingMaterial&) override { return 0; }
    ErrorCode ReadLayerName(AttributeIndex, std::string&) override { return 0; }
    ErrorCode ReadPenColour(std::int16_t, Shade&) override { return 0; }
    ErrorCode ReadFillPattern(AttributeIndex, FillPattern&) override { return 0; }
    ErrorCode ReadSurfaceColour(AttributeIndex, Shade&) override { return 0; }
    ErrorCode ReadCurrentDatabase(Database&) override { return 0; }
    ErrorCode ChangeCurrentDatabase(const Database&) override { return 0; }
    ErrorCode ReadFrontWindow(Database&) override { return 0; }
    ErrorCode ListDatabases(DatabaseType, std::vector<Database>&) override { return 0; }
    ErrorCode FindObject(const std::string&, LibraryPartIndex&) override { return 0; }
    ErrorCode ListFavourites(const std::string&, std::vector<std::string>&) override { return 0; }
    ErrorCode ReadParameters(const ObjectSource&, std::vector<ObjectParameter>&) override { return 0; }
    ErrorCode ReadLibraryPart(const Guid&, LibraryPartIndex&) override { return 0; }
    ErrorCode ReadParameters(const Guid&, std::vector<ObjectParameter>&) override { return 0; }
    ErrorCode WriteParameters(const Guid&, const std::vector<ObjectParameter>&) override { return 0; }
    ErrorCode Create(const ObjectSource&, const Point&, const std::vector<ObjectParameter>&, Guid&) override {
        return 0;
    }
    ErrorCode ListGroups(std::vector<PropertyGroup>&) override { return 0; }
    ErrorCode CreateGroup(PropertyGroup&) override { return 0; }
    ErrorCode ListDefinitions(const Guid&, std::vector<PropertyDefinition>&) override { return 0; }
    ErrorCode CreateDefinition(PropertyDefinition&) override { return 0; }
    ErrorCode ChangeDefinition(const PropertyDefinition&) override { return 0; }
    ErrorCode ReadElementValues(const Guid&, const std::vector<Guid>&, std::vector<PropertyValue>&) override {
        return 0;
    }
    ErrorCode ReadMaterialValues(AttributeIndex, const std::vector<Guid>&, std::vector<PropertyValue>&) override {
        return 0;
    }
    ErrorCode WriteMaterialValues(AttributeIndex, const std::vector<PropertyValue>&) override { return 0; }
    ErrorCode ListSystems(std::vector<ClassificationSystem>&) override { return 0; }
    ErrorCode CreateSystem(ClassificationSystem&) override { return 0; }
    ErrorCode ListRootItems(const Guid&, std::vector<ClassificationItem>&) override { return 0; }
    ErrorCode ListChildItems(const Guid&, std::vector<ClassificationItem>&) override { return 0; }
    ErrorCode CreateRootItem(const Guid&, ClassificationItem&) override { return 0; }
    ErrorCode ReadMaterialClassifications(AttributeIndex, std::vector<Classification>&) override { return 0; }
    ErrorCode ClassifyMaterial(AttributeIndex, const Guid&) override { return 0; }
    bool IsTeamworkProject() override { return false; }
    Guid FindLockableSet(const std::string&) override { return Guid{{1}}; }
    bool HasConnection() override { return false; }
    LockableStatus ReadLockableStatus(const Guid&) override { return LockableStatus::Unknown; }
    std::vector<std::int16_t> ListHolders(const Guid&) override { return {}; }
    ErrorCode Reserve(const Guid&, HostDialogs) override { return 0; }
    ErrorCode Release(const Guid&, HostDialogs) override { return 0; }
    ErrorCode ListMembers(std::vector<ProjectMember>&) override { return 0; }
    ErrorCode Call(const std::string&, const std::function<ErrorCode()>& command) override { return command(); }
    ErrorCode Open(const std::string&) override { return 0; }
    ErrorCode StartPhase(const std::string&, std::int32_t) override { return 0; }
    ErrorCode SetValue(std::int32_t) override { return 0; }
    ErrorCode Close() override { return 0; }
    double ReadReal(DialogId, std::int16_t) override { return 0.0; }
    void SetReal(DialogId, std::int16_t, double) override {}
    std::int32_t ReadInteger(DialogId, std::int16_t) override { return 0; }
    void SetInteger(DialogId, std::int16_t, std::int32_t) override {}
    bool IsChecked(DialogId, std::int16_t) override { return false; }
    void SetChecked(DialogId, std::int16_t, bool) override {}
    std::vector<std::string> ListPopUpTexts(DialogId, std::int16_t) override { return {}; }
    void SetPopUpTexts(DialogId, std::int16_t, const std::vector<std::string>&) override {}
    std::int16_t ReadPopUpEntry(DialogId, std::int16_t) override { return 0; }
    void SelectPopUpEntry(DialogId, std::int16_t, std::int16_t) override {}
    void SetColumnCount(DialogId, std::int16_t, std::int16_t) override {}
    std::int16_t CountColumns(DialogId, std::int16_t) override { return 0; }
    void SetColumn(DialogId, std::int16_t, std::int16_t, const ListColumn&) override {}
    ListColumn ReadColumn(DialogId, std::int16_t, std::int16_t) override { return {}; }
    void SetHeader(DialogId, std::int16_t, std::int16_t, const ListHeader&) override {}
    ListHeader ReadHeader(DialogId, std::int16_t, std::int16_t) override { return {}; }
    void SetOwnerDrawn(DialogId, std::int16_t, std::int16_t, bool) override {}
    Size ReadCellSpace(DialogId, std::int16_t) override { return {}; }
    void BindEditor(DialogId, std::int16_t, std::int16_t, std::int16_t) override {}
    std::int16_t ReadBoundEditor(DialogId, std::int16_t, std::int16_t) override { return 0; }
    std::int32_t Insert(DialogId, std::int16_t, std::int32_t) override { return 0; }
    std::int32_t InsertSeparator(DialogId, std::int16_t, std::int32_t) override { return 0; }
    void Delete(DialogId, std::int16_t, std::int32_t) override {}
    void DeleteAll(DialogId, std::int16_t) override {}
    std::optional<std::int32_t> ReadUserData(DialogId, std::int16_t, std::int32_t) override { return {}; }
    void SetUserData(DialogId, std::int16_t, std::int32_t, std::int32_t) override {}
    void SetStatus(DialogId, std::int16_t, std::int32_t, RowStatus) override {}
    void SetStyle(DialogId, std::int16_t, std::int32_t, TextStyle) override {}
    std::string ReadText(DialogId, std::int16_t, std::int32_t, std::int16_t) override { return {}; }
    void SetText(DialogId, std::int16_t, std::int32_t, std::int16_t, const std::string&) override {}
    StandardIcon ReadIcon(DialogId, std::int16_t, std::int32_t, std::int16_t) override { return StandardIcon::None; }
    void SetIcon(DialogId, std::int16_t, std::int32_t, std::int16_t, StandardIcon) override {}
    void SetStyle(DialogId, std::int16_t, std::int32_t, std::int16_t, TextStyle) override {}
    std::int32_t ReadFirst(DialogId, std::int16_t) override { return 0; }
    std::vector<std::int32_t> ListRows(DialogId, std::int16_t) override { return {}; }
    void Select(DialogId, std::int16_t, std::int32_t) override {}
    std::optional<PickerColour> PickColour(const PickerColour&) override { return {}; }
    std::optional<Point> PickPoint(const std::string&) override { return {}; }
    std::optional<std::string> PickSaveFile(const SaveFileQuestion&) override { return {}; }
    std::int16_t Show(const Alert&) override { return 1; }
    void WriteReport(const std::string&) override {}
    double MeasureWidth(const std::string&) override { return 0.0; }
    double ReadCapitalHeight() override { return 0.0; }
    ErrorCode ReadSpecialFolder(std::int16_t, std::string&) override { return 0; }
    ErrorCode WriteJpeg(const std::string&, int, int, double, const std::function<void(NativeContext&)>&) override {
        return 0;
    }
    ErrorCode CreateParameterList(ParameterListId&) override { return 0; }
    ErrorCode AddParameter(ParameterListId, const CommandParameter&) override { return 0; }
    ErrorCode ReadParameter(ParameterListId, const std::string&, CommandParameter&) override { return 0; }
    ErrorCode ChangeParameter(ParameterListId, const CommandParameter&) override { return 0; }
    ErrorCode FreeParameterList(ParameterListId) override { return 0; }
    ErrorCode Call(const ModuleId&, std::uint32_t, std::int32_t, ParameterListId, bool) override { return 0; }
    ErrorCode ReadDocument(const std::string&, const std::string&, std::unique_ptr<DOMReader>&) override {
        return Errors::BadValue;
    }
};

/// Plays all roles; these can be replaced by others, which must outlive the host.
class NullHost : public Host, public NullRoles {
public:
    host::Registration& GetRegistration() override { return *this; }
    host::Resources& GetResources() override { return *resources; }
    host::Model& GetModel() override { return *this; }
    host::Attributes& GetAttributes() override { return *this; }
    host::Databases& GetDatabases() override { return *this; }
    host::Libraries& GetLibraries() override { return *this; }
    host::PlacedObjects& GetPlacedObjects() override { return *this; }
    host::Properties& GetProperties() override { return *this; }
    host::Classifications& GetClassifications() override { return *this; }
    host::Teamwork& GetTeamwork() override { return *teamwork; }
    host::UndoableCommands& GetUndoableCommands() override { return *this; }
    host::ProgressWindow& GetProgressWindow() override { return *this; }
    host::Dialogs& GetDialogs() override { return *dialogs; }
    host::DialogItems& GetDialogItems() override { return *dialogItems; }
    host::ItemValues& GetItemValues() override { return *this; }
    host::ListLayout& GetListLayout() override { return *this; }
    host::ListRows& GetListRows() override { return *this; }
    host::ListCells& GetListCells() override { return *this; }
    host::ListSelection& GetListSelection() override { return *this; }
    host::Alerts& GetAlerts() override { return *alerts; }
    host::UserInput& GetUserInput() override { return *this; }
    host::TextMeasuring& GetTextMeasuring() override { return *this; }
    host::Pictures& GetPictures() override { return *this; }
    host::AddOnCommands& GetAddOnCommands() override { return *this; }
    host::XmlReading& GetXmlReading() override { return *xmlReading; }

    NullDialogs nullDialogs;
    NullDialogItems nullDialogItems;
    host::Resources* resources = this;
    host::Teamwork* teamwork = this;
    host::Dialogs* dialogs = &nullDialogs;
    host::DialogItems* dialogItems = &nullDialogItems;
    host::Alerts* alerts = this;
    host::XmlReading* xmlReading = this;
};

} // namespace test
