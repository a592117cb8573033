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

namespace workbench {

class RefusingModel : public host::Model {
public:
    RefusingModel(host::Model& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode ListElements(host::ElementType type, host::ElementScope scope,
                                 std::vector<host::Guid>& elements) override {
        if (const host::ErrorCode refused = refusals.Ask("Model.ListElements")) return refused;
        return inner.ListElements(type, scope, elements);
    }
    host::ErrorCode ReadElementHeader(const host::Guid& element, host::ElementHeader& header) override {
        if (const host::ErrorCode refused = refusals.Ask("Model.ReadElementHeader", element)) return refused;
        return inner.ReadElementHeader(element, header);
    }
    host::ErrorCode ReadElementComponents(const host::ElementHeader& element,
                                          std::vector<host::MaterialComponent>& components) override {
        if (const host::ErrorCode refused = refusals.Ask("Model.ReadElementComponents", element.guid)) return refused;
        return inner.ReadElementComponents(element, components);
    }
    host::ErrorCode ReadProjectName(std::string& name) override {
        if (const host::ErrorCode refused = refusals.Ask("Model.ReadProjectName")) return refused;
        return inner.ReadProjectName(name);
    }

private:
    host::Model& inner;
    const Refusals& refusals;
};

class RefusingAttributes : public host::Attributes {
public:
    RefusingAttributes(host::Attributes& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode CountBuildingMaterials(std::int32_t& highestIndex) override {
        if (const host::ErrorCode refused = refusals.Ask("Attributes.CountBuildingMaterials")) return refused;
        return inner.CountBuildingMaterials(highestIndex);
    }
    host::ErrorCode ReadBuildingMaterial(host::AttributeIndex index, host::BuildingMaterial& material) override {
        if (const host::ErrorCode refused = refusals.Ask("Attributes.ReadBuildingMaterial")) return refused;
        return inner.ReadBuildingMaterial(index, material);
    }
    host::ErrorCode ReadLayerName(host::AttributeIndex index, std::string& name) override {
        if (const host::ErrorCode refused = refusals.Ask("Attributes.ReadLayerName")) return refused;
        return inner.ReadLayerName(index, name);
    }
    host::ErrorCode ReadPenColour(std::int16_t pen, host::Shade& colour) override {
        if (const host::ErrorCode refused = refusals.Ask("Attributes.ReadPenColour")) return refused;
        return inner.ReadPenColour(pen, colour);
    }
    host::ErrorCode ReadFillPattern(host::AttributeIndex index, host::FillPattern& pattern) override {
        if (const host::ErrorCode refused = refusals.Ask("Attributes.ReadFillPattern")) return refused;
        return inner.ReadFillPattern(index, pattern);
    }
    host::ErrorCode ReadSurfaceColour(host::AttributeIndex index, host::Shade& colour) override {
        if (const host::ErrorCode refused = refusals.Ask("Attributes.ReadSurfaceColour")) return refused;
        return inner.ReadSurfaceColour(index, colour);
    }

private:
    host::Attributes& inner;
    const Refusals& refusals;
};

class RefusingDatabases : public host::Databases {
public:
    RefusingDatabases(host::Databases& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode ReadCurrentDatabase(host::Database& database) override {
        if (const host::ErrorCode refused = refusals.Ask("Databases.ReadCurrentDatabase")) return refused;
        return inner.ReadCurrentDatabase(database);
    }
    host::ErrorCode ChangeCurrentDatabase(const host::Database& database) override {
        if (const host::ErrorCode refused = refusals.Ask("Databases.ChangeCurrentDatabase")) return refused;
        return inner.ChangeCurrentDatabase(database);
    }
    host::ErrorCode ReadFrontWindow(host::Database& database) override {
        if (const host::ErrorCode refused = refusals.Ask("Databases.ReadFrontWindow")) return refused;
        return inner.ReadFrontWindow(database);
    }
    host::ErrorCode ListDatabases(host::DatabaseType type, std::vector<host::Database>& databases) override {
        if (const host::ErrorCode refused = refusals.Ask("Databases.ListDatabases")) return refused;
        return inner.ListDatabases(type, databases);
    }

private:
    host::Databases& inner;
    const Refusals& refusals;
};

class RefusingLibraries : public host::Libraries {
public:
    RefusingLibraries(host::Libraries& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode FindObject(const std::string& identifier, host::LibraryPartIndex& part) override {
        if (const host::ErrorCode refused = refusals.Ask("Libraries.FindObject")) return refused;
        return inner.FindObject(identifier, part);
    }
    host::ErrorCode ListFavourites(const std::string& mainIdentifier, std::vector<std::string>& names) override {
        if (const host::ErrorCode refused = refusals.Ask("Libraries.ListFavourites")) return refused;
        return inner.ListFavourites(mainIdentifier, names);
    }
    host::ErrorCode ReadParameters(const host::ObjectSource& source,
                                   std::vector<host::ObjectParameter>& parameters) override {
        if (const host::ErrorCode refused = refusals.Ask("Libraries.ReadParameters")) return refused;
        return inner.ReadParameters(source, parameters);
    }

private:
    host::Libraries& inner;
    const Refusals& refusals;
};

class RefusingPlacedObjects : public host::PlacedObjects {
public:
    RefusingPlacedObjects(host::PlacedObjects& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode ReadLibraryPart(const host::Guid& object, host::LibraryPartIndex& part) override {
        if (const host::ErrorCode refused = refusals.Ask("PlacedObjects.ReadLibraryPart", object)) return refused;
        return inner.ReadLibraryPart(object, part);
    }
    host::ErrorCode ReadParameters(const host::Guid& object, std::vector<host::ObjectParameter>& parameters) override {
        if (const host::ErrorCode refused = refusals.Ask("PlacedObjects.ReadParameters", object)) return refused;
        return inner.ReadParameters(object, parameters);
    }
    host::ErrorCode WriteParameters(const host::Guid& object,
                                    const std::vector<host::ObjectParameter>& parameters) override {
        if (const host::ErrorCode refused = refusals.Ask("PlacedObjects.WriteParameters", object)) return refused;
        return inner.WriteParameters(object, parameters);
    }
    host::ErrorCode Create(const host::ObjectSource& source, const host::Point& position,
                           const std::vector<host::ObjectParameter>& parameters, host::Guid& object) override {
        if (const host::ErrorCode refused = refusals.Ask("PlacedObjects.Create")) return refused;
        return inner.Create(source, position, parameters, object);
    }

private:
    host::PlacedObjects& inner;
    const Refusals& refusals;
};

class RefusingProperties : public host::Properties {
public:
    RefusingProperties(host::Properties& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode ListGroups(std::vector<host::PropertyGroup>& groups) override {
        if (const host::ErrorCode refused = refusals.Ask("Properties.ListGroups")) return refused;
        return inner.ListGroups(groups);
    }
    host::ErrorCode CreateGroup(host::PropertyGroup& group) override {
        if (const host::ErrorCode refused = refusals.Ask("Properties.CreateGroup")) return refused;
        return inner.CreateGroup(group);
    }
    host::ErrorCode ListDefinitions(const host::Guid& group,
                                    std::vector<host::PropertyDefinition>& definitions) override {
        if (const host::ErrorCode refused = refusals.Ask("Properties.ListDefinitions")) return refused;
        return inner.ListDefinitions(group, definitions);
    }
    host::ErrorCode CreateDefinition(host::PropertyDefinition& definition) override {
        if (const host::ErrorCode refused = refusals.Ask("Properties.CreateDefinition")) return refused;
        return inner.CreateDefinition(definition);
    }
    host::ErrorCode ChangeDefinition(const host::PropertyDefinition& definition) override {
        if (const host::ErrorCode refused = refusals.Ask("Properties.ChangeDefinition")) return refused;
        return inner.ChangeDefinition(definition);
    }
    host::ErrorCode ReadElementValues(const host::Guid& element, const std::vector<host::Guid>& definitions,
                                      std::vector<host::PropertyValue>& values) override {
        if (const host::ErrorCode refused = refusals.Ask("Properties.ReadElementValues", element)) return refused;
        return inner.ReadElementValues(element, definitions, values);
    }
    host::ErrorCode ReadMaterialValues(host::AttributeIndex material, const std::vector<host::Guid>& definitions,
                                       std::vector<host::PropertyValue>& values) override {
        if (const host::ErrorCode refused = refusals.Ask("Properties.ReadMaterialValues")) return refused;
        return inner.ReadMaterialValues(material, definitions, values);
    }
    host::ErrorCode WriteMaterialValues(host::AttributeIndex material,
                                        const std::vector<host::PropertyValue>& values) override {
        if (const host::ErrorCode refused = refusals.Ask("Properties.WriteMaterialValues")) return refused;
        return inner.WriteMaterialValues(material, values);
    }

private:
    host::Properties& inner;
    const Refusals& refusals;
};

class RefusingClassifications : public host::Classifications {
public:
    RefusingClassifications(host::Classifications& inner, const Refusals& refusals)
        : inner(inner), refusals(refusals) {}
    host::ErrorCode ListSystems(std::vector<host::ClassificationSystem>& systems) override {
        if (const host::ErrorCode refused = refusals.Ask("Classifications.ListSystems")) return refused;
        return inner.ListSystems(systems);
    }
    host::ErrorCode CreateSystem(host::ClassificationSystem& system) override {
        if (const host::ErrorCode refused = refusals.Ask("Classifications.CreateSystem")) return refused;
        return inner.CreateSystem(system);
    }
    host::ErrorCode ListRootItems(const host::Guid& system, std::vector<host::ClassificationItem>& items) override {
        if (const host::ErrorCode refused = refusals.Ask("Classifications.ListRootItems")) return refused;
        return inner.ListRootItems(system, items);
    }
    host::ErrorCode ListChildItems(const host::Guid& item, std::vector<host::ClassificationItem>& items) override {
        if (const host::ErrorCode refused = refusals.Ask("Classifications.ListChildItems")) return refused;
        return inner.ListChildItems(item, items);
    }
    host::ErrorCode CreateRootItem(const host::Guid& system, host::ClassificationItem& item) override {
        if (const host::ErrorCode refused = refusals.Ask("Classifications.CreateRootItem")) return refused;
        return inner.CreateRootItem(system, item);
    }
    host::ErrorCode ReadMaterialClassifications(host::AttributeIndex material,
                                                std::vector<host::Classification>& list) override {
        if (const host::ErrorCode refused = refusals.Ask("Classifications.ReadMaterialClassifications")) return refused;
        return inner.ReadMaterialClassifications(material, list);
    }
    host::ErrorCode ClassifyMaterial(host::AttributeIndex material, const host::Guid& item) override {
        if (const host::ErrorCode refused = refusals.Ask("Classifications.ClassifyMaterial")) return refused;
        return inner.ClassifyMaterial(material, item);
    }

private:
    host::Classifications& inner;
    const Refusals& refusals;
};

class RefusingDialogs : public host::Dialogs {
public:
    RefusingDialogs(host::Dialogs& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode RegisterPalette(std::int16_t resource, const host::Guid& palette,
                                    host::PaletteRequestHandler handler) override {
        if (const host::ErrorCode refused = refusals.Ask("Dialogs.RegisterPalette")) return refused;
        return inner.RegisterPalette(resource, palette, handler);
    }
    host::ErrorCode UnregisterPalette(const host::Guid& palette) override {
        if (const host::ErrorCode refused = refusals.Ask("Dialogs.UnregisterPalette")) return refused;
        return inner.UnregisterPalette(palette);
    }
    host::DialogId OpenPalette(const host::Guid& palette, host::DialogHandler& handler) override {
        if (refusals.Ask("Dialogs.OpenPalette")) return {};
        return inner.OpenPalette(palette, handler);
    }
    std::int16_t RunModal(std::int16_t resource, const host::Guid& guid, host::DialogHandler& handler) override {
        if (refusals.Ask("Dialogs.RunModal")) return {};
        return inner.RunModal(resource, guid, handler);
    }
    void Close(host::DialogId dialog) override { return inner.Close(dialog); }
    host::Size ReadSize(host::DialogId dialog) override { return inner.ReadSize(dialog); }
    void SetMinimumSize(host::DialogId dialog, host::Size size) override { return inner.SetMinimumSize(dialog, size); }
    void BeginMoveGrow(host::DialogId dialog) override { return inner.BeginMoveGrow(dialog); }
    void EndMoveGrow(host::DialogId dialog) override { return inner.EndMoveGrow(dialog); }

private:
    host::Dialogs& inner;
    const Refusals& refusals;
};

class RefusingTeamwork : public host::Teamwork {
public:
    RefusingTeamwork(host::Teamwork& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    bool IsTeamworkProject() override { return inner.IsTeamworkProject(); }
    bool HasConnection() override { return inner.HasConnection(); }
    host::Guid FindLockableSet(const std::string& name) override { return inner.FindLockableSet(name); }
    host::LockableStatus ReadLockableStatus(const host::Guid& lockableSet) override {
        if (refusals.Ask("Teamwork.ReadLockableStatus")) return host::LockableStatus::Unknown;
        return inner.ReadLockableStatus(lockableSet);
    }
    std::vector<std::int16_t> ListHolders(const host::Guid& lockableSet) override {
        return inner.ListHolders(lockableSet);
    }
    host::ErrorCode Reserve(const host::Guid& lockableSet, host::HostDialogs dialogs) override {
        if (const host::ErrorCode refused = refusals.Ask("Teamwork.Reserve")) return refused;
        return inner.Reserve(lockableSet, dialogs);
    }
    host::ErrorCode Release(const host::Guid& lockableSet, host::HostDialogs dialogs) override {
        if (const host::ErrorCode refused = refusals.Ask("Teamwork.Release")) return refused;
        return inner.Release(lockableSet, dialogs);
    }
    host::ErrorCode ListMembers(std::vector<host::ProjectMember>& members) override {
        if (const host::ErrorCode refused = refusals.Ask("Teamwork.ListMembers")) return refused;
        return inner.ListMembers(members);
    }

private:
    host::Teamwork& inner;
    const Refusals& refusals;
};

class RefusingUndoableCommands : public host::UndoableCommands {
public:
    RefusingUndoableCommands(host::UndoableCommands& inner, const Refusals& refusals)
        : inner(inner), refusals(refusals) {}
    host::ErrorCode Call(const std::string& undoName, const std::function<host::ErrorCode()>& command) override {
        if (const host::ErrorCode refused = refusals.Ask("UndoableCommands.Call")) return refused;
        return inner.Call(undoName, command);
    }

private:
    host::UndoableCommands& inner;
    const Refusals& refusals;
};

class RefusingProgressWindow : public host::ProgressWindow {
public:
    RefusingProgressWindow(host::ProgressWindow& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode Open(const std::string& title) override {
        if (const host::ErrorCode refused = refusals.Ask("ProgressWindow.Open")) return refused;
        return inner.Open(title);
    }
    host::ErrorCode StartPhase(const std::string& text, std::int32_t maximum) override {
        if (const host::ErrorCode refused = refusals.Ask("ProgressWindow.StartPhase")) return refused;
        return inner.StartPhase(text, maximum);
    }
    host::ErrorCode SetValue(std::int32_t value) override {
        if (const host::ErrorCode refused = refusals.Ask("ProgressWindow.SetValue")) return refused;
        return inner.SetValue(value);
    }
    host::ErrorCode Close() override {
        if (const host::ErrorCode refused = refusals.Ask("ProgressWindow.Close")) return refused;
        return inner.Close();
    }

private:
    host::ProgressWindow& inner;
    const Refusals& refusals;
};

class RefusingPictures : public host::Pictures {
public:
    RefusingPictures(host::Pictures& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode ReadSpecialFolder(std::int16_t number, std::string& path) override {
        if (const host::ErrorCode refused = refusals.Ask("Pictures.ReadSpecialFolder")) return refused;
        return inner.ReadSpecialFolder(number, path);
    }
    host::ErrorCode WriteJpeg(const std::string& path, int width, int height, double scale,
                              const std::function<void(host::NativeContext&)>& draw) override {
        if (const host::ErrorCode refused = refusals.Ask("Pictures.WriteJpeg")) return refused;
        return inner.WriteJpeg(path, width, height, scale, draw);
    }

private:
    host::Pictures& inner;
    const Refusals& refusals;
};

class RefusingAddOnCommands : public host::AddOnCommands {
public:
    RefusingAddOnCommands(host::AddOnCommands& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode CreateParameterList(host::ParameterListId& list) override {
        if (const host::ErrorCode refused = refusals.Ask("AddOnCommands.CreateParameterList")) return refused;
        return inner.CreateParameterList(list);
    }
    host::ErrorCode AddParameter(host::ParameterListId list, const host::CommandParameter& parameter) override {
        if (const host::ErrorCode refused = refusals.Ask("AddOnCommands.AddParameter")) return refused;
        return inner.AddParameter(list, parameter);
    }
    host::ErrorCode ReadParameter(host::ParameterListId list, const std::string& name,
                                  host::CommandParameter& parameter) override {
        if (const host::ErrorCode refused = refusals.Ask("AddOnCommands.ReadParameter")) return refused;
        return inner.ReadParameter(list, name, parameter);
    }
    host::ErrorCode ChangeParameter(host::ParameterListId list, const host::CommandParameter& parameter) override {
        if (const host::ErrorCode refused = refusals.Ask("AddOnCommands.ChangeParameter")) return refused;
        return inner.ChangeParameter(list, parameter);
    }
    host::ErrorCode FreeParameterList(host::ParameterListId list) override {
        if (const host::ErrorCode refused = refusals.Ask("AddOnCommands.FreeParameterList")) return refused;
        return inner.FreeParameterList(list);
    }
    host::ErrorCode Call(const host::ModuleId& target, std::uint32_t code, std::int32_t version,
                         host::ParameterListId list, bool silent) override {
        if (const host::ErrorCode refused = refusals.Ask("AddOnCommands.Call")) return refused;
        return inner.Call(target, code, version, list, silent);
    }

private:
    host::AddOnCommands& inner;
    const Refusals& refusals;
};

class RefusingUserInput : public host::UserInput {
public:
    RefusingUserInput(host::UserInput& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    std::optional<host::PickerColour> PickColour(const host::PickerColour& present) override {
        if (refusals.Ask("UserInput.PickColour")) return {};
        return inner.PickColour(present);
    }
    std::optional<host::Point> PickPoint(const std::string& prompt) override {
        if (refusals.Ask("UserInput.PickPoint")) return {};
        return inner.PickPoint(prompt);
    }
    std::optional<std::string> PickSaveFile(const host::SaveFileQuestion& question) override {
        if (refusals.Ask("UserInput.PickSaveFile")) return {};
        return inner.PickSaveFile(question);
    }

private:
    host::UserInput& inner;
    const Refusals& refusals;
};

class RefusingXmlReading : public host::XmlReading {
public:
    RefusingXmlReading(host::XmlReading& inner, const Refusals& refusals) : inner(inner), refusals(refusals) {}
    host::ErrorCode ReadDocument(const std::string& document, const std::string& rootName,
                                 std::unique_ptr<host::DOMReader>& reader) override {
        if (const host::ErrorCode refused = refusals.Ask("XmlReading.ReadDocument")) return refused;
        return inner.ReadDocument(document, rootName, reader);
    }

private:
    host::XmlReading& inner;
    const Refusals& refusals;
};

} // namespace workbench
