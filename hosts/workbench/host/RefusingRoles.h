// A host may refuse any operation. Between the add-on and the roles of the workbench stand roles that ask first whether
// they are to; what drives the workbench reaches its roles without them.
#pragma once

#include "host/AddOnCommands.h"
#include "host/Commands.h"
#include "host/Dialogs.h"
#include "host/Drawing.h"
#include "host/Libraries.h"
#include "host/Model.h"
#include "host/Properties.h"
#include "host/Teamwork.h"
#include "host/UserInput.h"
#include "host/Xml.h"
#include "workbench/host/Refusals.h"

#include <utility>

namespace workbench {

/// A role in front of another one.
template <typename Role>
class Refusing : public Role {
public:
    Refusing(Role& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}

protected:
    /// The refusal of an operation that is about the subject, or what the other role answers.
    template <typename... Parameters, typename... Arguments>
    host::ErrorCode AskAbout(const host::Guid& subject, const char* name,
                             host::ErrorCode (Role::*operation)(Parameters...), Arguments&&... arguments) {
        if (const host::ErrorCode refused = refusals.Ask(name, subject)) return refused;
        return (inner.*operation)(std::forward<Arguments>(arguments)...);
    }
    template <typename... Parameters, typename... Arguments>
    host::ErrorCode Ask(const char* name, host::ErrorCode (Role::*operation)(Parameters...), Arguments&&... arguments) {
        return AskAbout({}, name, operation, std::forward<Arguments>(arguments)...);
    }
    /// For the operations that answer no code.
    bool IsRefused(const char* name) const { return static_cast<bool>(refusals.Ask(name)); }

    Role& inner;

private:
    const Refusals& refusals;
};

class RefusingModel : public Refusing<host::Model> {
public:
    using Refusing::Refusing;
    host::ErrorCode ListElements(host::ElementType type, host::ElementScope scope,
                                 std::vector<host::Guid>& elements) override {
        return Ask("Model.ListElements", &Model::ListElements, type, scope, elements);
    }
    host::ErrorCode ReadElementHeader(const host::Guid& element, host::ElementHeader& header) override {
        return AskAbout(element, "Model.ReadElementHeader", &Model::ReadElementHeader, element, header);
    }
    host::ErrorCode ReadElementComponents(const host::ElementHeader& element,
                                          std::vector<host::MaterialComponent>& components) override {
        return AskAbout(element.guid, "Model.ReadElementComponents", &Model::ReadElementComponents, element,
                        components);
    }
    host::ErrorCode ReadProjectName(std::string& name) override {
        return Ask("Model.ReadProjectName", &Model::ReadProjectName, name);
    }
};

class RefusingAttributes : public Refusing<host::Attributes> {
public:
    using Refusing::Refusing;
    host::ErrorCode CountBuildingMaterials(std::int32_t& highestIndex) override {
        return Ask("Attributes.CountBuildingMaterials", &Attributes::CountBuildingMaterials, highestIndex);
    }
    host::ErrorCode ReadBuildingMaterial(host::AttributeIndex index, host::BuildingMaterial& material) override {
        return Ask("Attributes.ReadBuildingMaterial", &Attributes::ReadBuildingMaterial, index, material);
    }
    host::ErrorCode ReadLayerName(host::AttributeIndex index, std::string& name) override {
        return Ask("Attributes.ReadLayerName", &Attributes::ReadLayerName, index, name);
    }
    host::ErrorCode ReadPenColour(std::int16_t pen, host::Shade& colour) override {
        return Ask("Attributes.ReadPenColour", &Attributes::ReadPenColour, pen, colour);
    }
    host::ErrorCode ReadFillPattern(host::AttributeIndex index, host::FillPattern& pattern) override {
        return Ask("Attributes.ReadFillPattern", &Attributes::ReadFillPattern, index, pattern);
    }
    host::ErrorCode ReadSurfaceColour(host::AttributeIndex index, host::Shade& colour) override {
        return Ask("Attributes.ReadSurfaceColour", &Attributes::ReadSurfaceColour, index, colour);
    }
};

class RefusingDatabases : public Refusing<host::Databases> {
public:
    using Refusing::Refusing;
    host::ErrorCode ReadCurrentDatabase(host::Database& database) override {
        return Ask("Databases.ReadCurrentDatabase", &Databases::ReadCurrentDatabase, database);
    }
    host::ErrorCode ChangeCurrentDatabase(const host::Database& database) override {
        return Ask("Databases.ChangeCurrentDatabase", &Databases::ChangeCurrentDatabase, database);
    }
    host::ErrorCode ReadFrontWindow(host::Database& database) override {
        return Ask("Databases.ReadFrontWindow", &Databases::ReadFrontWindow, database);
    }
    host::ErrorCode ListDatabases(host::DatabaseType type, std::vector<host::Database>& databases) override {
        return Ask("Databases.ListDatabases", &Databases::ListDatabases, type, databases);
    }
};

class RefusingLibraries : public Refusing<host::Libraries> {
public:
    using Refusing::Refusing;
    host::ErrorCode FindObject(const std::string& identifier, host::LibraryPartIndex& part) override {
        return Ask("Libraries.FindObject", &Libraries::FindObject, identifier, part);
    }
    host::ErrorCode ListFavourites(const std::string& mainIdentifier, std::vector<std::string>& names) override {
        return Ask("Libraries.ListFavourites", &Libraries::ListFavourites, mainIdentifier, names);
    }
    host::ErrorCode ReadParameters(const host::ObjectSource& source,
                                   std::vector<host::ObjectParameter>& parameters) override {
        return Ask("Libraries.ReadParameters", &Libraries::ReadParameters, source, parameters);
    }
};

class RefusingPlacedObjects : public Refusing<host::PlacedObjects> {
public:
    using Refusing::Refusing;
    host::ErrorCode ReadLibraryPart(const host::Guid& object, host::LibraryPartIndex& part) override {
        return AskAbout(object, "PlacedObjects.ReadLibraryPart", &PlacedObjects::ReadLibraryPart, object, part);
    }
    host::ErrorCode ReadParameters(const host::Guid& object, std::vector<host::ObjectParameter>& parameters) override {
        return AskAbout(object, "PlacedObjects.ReadParameters", &PlacedObjects::ReadParameters, object, parameters);
    }
    host::ErrorCode WriteParameters(const host::Guid& object,
                                    const std::vector<host::ObjectParameter>& parameters) override {
        return AskAbout(object, "PlacedObjects.WriteParameters", &PlacedObjects::WriteParameters, object, parameters);
    }
    host::ErrorCode Create(const host::ObjectSource& source, const host::Point& position,
                           const std::vector<host::ObjectParameter>& parameters, host::Guid& object) override {
        return Ask("PlacedObjects.Create", &PlacedObjects::Create, source, position, parameters, object);
    }
};

class RefusingProperties : public Refusing<host::Properties> {
public:
    using Refusing::Refusing;
    host::ErrorCode ListGroups(std::vector<host::PropertyGroup>& groups) override {
        return Ask("Properties.ListGroups", &Properties::ListGroups, groups);
    }
    host::ErrorCode CreateGroup(host::PropertyGroup& group) override {
        return Ask("Properties.CreateGroup", &Properties::CreateGroup, group);
    }
    host::ErrorCode ListDefinitions(const host::Guid& group,
                                    std::vector<host::PropertyDefinition>& definitions) override {
        return Ask("Properties.ListDefinitions", &Properties::ListDefinitions, group, definitions);
    }
    host::ErrorCode CreateDefinition(host::PropertyDefinition& definition) override {
        return Ask("Properties.CreateDefinition", &Properties::CreateDefinition, definition);
    }
    host::ErrorCode ChangeDefinition(const host::PropertyDefinition& definition) override {
        return Ask("Properties.ChangeDefinition", &Properties::ChangeDefinition, definition);
    }
    host::ErrorCode ReadElementValues(const host::Guid& element, const std::vector<host::Guid>& definitions,
                                      std::vector<host::PropertyValue>& values) override {
        return AskAbout(element, "Properties.ReadElementValues", &Properties::ReadElementValues, element, definitions,
                        values);
    }
    host::ErrorCode ReadMaterialValues(host::AttributeIndex material, const std::vector<host::Guid>& definitions,
                                       std::vector<host::PropertyValue>& values) override {
        return Ask("Properties.ReadMaterialValues", &Properties::ReadMaterialValues, material, definitions, values);
    }
    host::ErrorCode WriteMaterialValues(host::AttributeIndex material,
                                        const std::vector<host::PropertyValue>& values) override {
        return Ask("Properties.WriteMaterialValues", &Properties::WriteMaterialValues, material, values);
    }
};

class RefusingClassifications : public Refusing<host::Classifications> {
public:
    using Refusing::Refusing;
    host::ErrorCode ListSystems(std::vector<host::ClassificationSystem>& systems) override {
        return Ask("Classifications.ListSystems", &Classifications::ListSystems, systems);
    }
    host::ErrorCode CreateSystem(host::ClassificationSystem& system) override {
        return Ask("Classifications.CreateSystem", &Classifications::CreateSystem, system);
    }
    host::ErrorCode ListRootItems(const host::Guid& system, std::vector<host::ClassificationItem>& items) override {
        return Ask("Classifications.ListRootItems", &Classifications::ListRootItems, system, items);
    }
    host::ErrorCode ListChildItems(const host::Guid& item, std::vector<host::ClassificationItem>& items) override {
        return Ask("Classifications.ListChildItems", &Classifications::ListChildItems, item, items);
    }
    host::ErrorCode CreateRootItem(const host::Guid& system, host::ClassificationItem& item) override {
        return Ask("Classifications.CreateRootItem", &Classifications::CreateRootItem, system, item);
    }
    host::ErrorCode ReadMaterialClassifications(host::AttributeIndex material,
                                                std::vector<host::Classification>& list) override {
        return Ask("Classifications.ReadMaterialClassifications", &Classifications::ReadMaterialClassifications,
                   material, list);
    }
    host::ErrorCode ClassifyMaterial(host::AttributeIndex material, const host::Guid& item) override {
        return Ask("Classifications.ClassifyMaterial", &Classifications::ClassifyMaterial, material, item);
    }
};

class RefusingDialogs : public Refusing<host::Dialogs> {
public:
    using Refusing::Refusing;
    host::ErrorCode RegisterPalette(std::int16_t resource, const host::Guid& palette,
                                    host::PaletteRequestHandler handler) override {
        return Ask("Dialogs.RegisterPalette", &Dialogs::RegisterPalette, resource, palette, handler);
    }
    host::ErrorCode UnregisterPalette(const host::Guid& palette) override {
        return Ask("Dialogs.UnregisterPalette", &Dialogs::UnregisterPalette, palette);
    }
    host::DialogId OpenPalette(const host::Guid& palette, host::DialogHandler& handler) override {
        if (IsRefused("Dialogs.OpenPalette")) return {};
        return inner.OpenPalette(palette, handler);
    }
    std::int16_t RunModal(std::int16_t resource, const host::Guid& guid, host::DialogHandler& handler) override {
        if (IsRefused("Dialogs.RunModal")) return {};
        return inner.RunModal(resource, guid, handler);
    }
    void Close(host::DialogId dialog) override { return inner.Close(dialog); }
    host::Size ReadSize(host::DialogId dialog) override { return inner.ReadSize(dialog); }
    void SetMinimumSize(host::DialogId dialog, host::Size size) override { return inner.SetMinimumSize(dialog, size); }
    void BeginMoveGrow(host::DialogId dialog) override { return inner.BeginMoveGrow(dialog); }
    void EndMoveGrow(host::DialogId dialog) override { return inner.EndMoveGrow(dialog); }
};

class RefusingTeamwork : public Refusing<host::Teamwork> {
public:
    using Refusing::Refusing;
    bool IsTeamworkProject() override { return inner.IsTeamworkProject(); }
    bool HasConnection() override { return inner.HasConnection(); }
    host::Guid FindLockableSet(const std::string& name) override { return inner.FindLockableSet(name); }
    host::LockableStatus ReadLockableStatus(const host::Guid& lockableSet) override {
        if (IsRefused("Teamwork.ReadLockableStatus")) return host::LockableStatus::Unknown;
        return inner.ReadLockableStatus(lockableSet);
    }
    std::vector<std::int16_t> ListHolders(const host::Guid& lockableSet) override {
        return inner.ListHolders(lockableSet);
    }
    host::ErrorCode Reserve(const host::Guid& lockableSet, host::HostDialogs dialogs) override {
        return Ask("Teamwork.Reserve", &Teamwork::Reserve, lockableSet, dialogs);
    }
    host::ErrorCode Release(const host::Guid& lockableSet, host::HostDialogs dialogs) override {
        return Ask("Teamwork.Release", &Teamwork::Release, lockableSet, dialogs);
    }
    host::ErrorCode ListMembers(std::vector<host::ProjectMember>& members) override {
        return Ask("Teamwork.ListMembers", &Teamwork::ListMembers, members);
    }
};

class RefusingUndoableCommands : public Refusing<host::UndoableCommands> {
public:
    using Refusing::Refusing;
    host::ErrorCode Call(const std::string& undoName, const std::function<host::ErrorCode()>& command) override {
        return Ask("UndoableCommands.Call", &UndoableCommands::Call, undoName, command);
    }
};

class RefusingProgressWindow : public Refusing<host::ProgressWindow> {
public:
    using Refusing::Refusing;
    host::ErrorCode Open(const std::string& title) override {
        return Ask("ProgressWindow.Open", &ProgressWindow::Open, title);
    }
    host::ErrorCode StartPhase(const std::string& text, std::int32_t maximum) override {
        return Ask("ProgressWindow.StartPhase", &ProgressWindow::StartPhase, text, maximum);
    }
    host::ErrorCode SetValue(std::int32_t value) override {
        return Ask("ProgressWindow.SetValue", &ProgressWindow::SetValue, value);
    }
    host::ErrorCode Close() override { return Ask("ProgressWindow.Close", &ProgressWindow::Close); }
};

class RefusingPictures : public Refusing<host::Pictures> {
public:
    using Refusing::Refusing;
    host::ErrorCode ReadSpecialFolder(std::int16_t number, std::string& path) override {
        return Ask("Pictures.ReadSpecialFolder", &Pictures::ReadSpecialFolder, number, path);
    }
    host::ErrorCode WriteJpeg(const std::string& path, int width, int height, double scale,
                              const std::function<void(host::NativeContext&)>& draw) override {
        return Ask("Pictures.WriteJpeg", &Pictures::WriteJpeg, path, width, height, scale, draw);
    }
};

class RefusingAddOnCommands : public Refusing<host::AddOnCommands> {
public:
    using Refusing::Refusing;
    host::ErrorCode CreateParameterList(host::ParameterListId& list) override {
        return Ask("AddOnCommands.CreateParameterList", &AddOnCommands::CreateParameterList, list);
    }
    host::ErrorCode AddParameter(host::ParameterListId list, const host::CommandParameter& parameter) override {
        return Ask("AddOnCommands.AddParameter", &AddOnCommands::AddParameter, list, parameter);
    }
    host::ErrorCode ReadParameter(host::ParameterListId list, const std::string& name,
                                  host::CommandParameter& parameter) override {
        return Ask("AddOnCommands.ReadParameter", &AddOnCommands::ReadParameter, list, name, parameter);
    }
    host::ErrorCode ChangeParameter(host::ParameterListId list, const host::CommandParameter& parameter) override {
        return Ask("AddOnCommands.ChangeParameter", &AddOnCommands::ChangeParameter, list, parameter);
    }
    host::ErrorCode FreeParameterList(host::ParameterListId list) override {
        return Ask("AddOnCommands.FreeParameterList", &AddOnCommands::FreeParameterList, list);
    }
    host::ErrorCode Call(const host::ModuleId& target, std::uint32_t code, std::int32_t version,
                         host::ParameterListId list, bool silent) override {
        return Ask("AddOnCommands.Call", &AddOnCommands::Call, target, code, version, list, silent);
    }
};

class RefusingUserInput : public Refusing<host::UserInput> {
public:
    using Refusing::Refusing;
    std::optional<host::PickerColour> PickColour(const host::PickerColour& present) override {
        if (IsRefused("UserInput.PickColour")) return {};
        return inner.PickColour(present);
    }
    std::optional<host::Point> PickPoint(const std::string& prompt) override {
        if (IsRefused("UserInput.PickPoint")) return {};
        return inner.PickPoint(prompt);
    }
    std::optional<std::string> PickSaveFile(const host::SaveFileQuestion& question) override {
        if (IsRefused("UserInput.PickSaveFile")) return {};
        return inner.PickSaveFile(question);
    }
};

class RefusingXmlReading : public Refusing<host::XmlReading> {
public:
    using Refusing::Refusing;
    host::ErrorCode ReadDocument(const std::string& document, const std::string& rootName,
                                 std::unique_ptr<host::DOMReader>& reader) override {
        return Ask("XmlReading.ReadDocument", &XmlReading::ReadDocument, document, rootName, reader);
    }
};

} // namespace workbench
