// The building model in memory: attributes, elements with components, properties, classifications and Teamwork state.
// Knows nothing of files and of undo; Project adds both.
#pragma once

#include "workbench/model/ElementIndex.h"
#include "workbench/model/Rows.h"

#include <map>
#include <span>
#include <unordered_map>

namespace workbench {

class Model {
public:
    // Attributes and elements are laid down when a project is made or read, not by commands.

    /// Appends; the index is the position counted from 1 and is written into the row.
    host::AttributeIndex AddLayer(std::string name);
    void AddPen(const Shade& shade);
    void AddFill(std::string name, const std::array<std::uint8_t, 8>& pattern);
    void AddSurface(std::string name, const Shade& shade);
    host::AttributeIndex AddBuildingMaterial(host::BuildingMaterial material);
    /// Takes firstComponent and componentCount from the list. False, and nothing added, when the identifier is taken.
    /// thicknessesM  of the components that are layers, 0 for others; no list: none is a layer
    bool AddElement(Element element, std::span<const host::MaterialComponent> components,
                    std::span<const double> thicknessesM = {});
    void SetOrigins(std::uint32_t elementPosition, std::shared_ptr<const Origins> origins);
    void ReserveElements(std::size_t elementCount, std::size_t componentCount);

    const std::vector<Layer>& GetLayers() const { return layers; }
    const std::vector<Pen>& GetPens() const { return pens; }
    const std::vector<Fill>& GetFills() const { return fills; }
    const std::vector<Surface>& GetSurfaces() const { return surfaces; }
    const std::vector<host::BuildingMaterial>& GetBuildingMaterials() const { return buildingMaterials; }
    /// Null where there is no such attribute.
    const host::BuildingMaterial* FindBuildingMaterial(host::AttributeIndex index) const;
    const Layer* FindLayer(host::AttributeIndex index) const;

    const std::vector<Element>& GetElements() const { return elements; }
    std::span<const host::MaterialComponent> GetComponents(const Element& element) const;
    /// One a component: its thickness where it is a layer, else 0.
    std::span<const double> GetThicknesses(const Element& element) const;
    /// ElementIndex::NotFound where there is none. Asking for elements in the model's order costs no search.
    std::uint32_t FindElement(const host::Guid& guid) const;

    const std::vector<host::PropertyGroup>& GetGroups() const { return groups; }
    const std::vector<host::PropertyDefinition>& GetDefinitions() const { return definitions; }
    const host::PropertyDefinition* FindDefinition(const host::Guid& guid) const;
    const std::vector<host::ClassificationSystem>& GetSystems() const { return systems; }
    const std::vector<ClassificationItem>& GetItems() const { return items; }
    const std::vector<MaterialClassification>& GetMaterialClassifications() const { return materialClassifications; }

    /// Own values by definition; null where the thing has none.
    using Values = std::map<host::Guid, host::Variant>;
    const Values* FindMaterialValues(host::AttributeIndex material) const;
    const Values* FindElementValues(std::uint32_t elementPosition) const;
    const std::unordered_map<std::uint32_t, Values>& GetElementValues() const { return elementValues; }
    const std::map<host::AttributeIndex, Values>& GetMaterialValues() const { return materialValues; }

    /// Puts a change into effect: its row is added, replaced or removed.
    void Apply(const Change& change);
    /// Grows with every change of definitions and classifications, so that callers know when to look again.
    std::uint64_t GetSchemaRevision() const { return schemaRevision; }

    const std::vector<PlacedObject>& GetPlacedObjects() const { return placedObjects; }

    // Laid down when a project is made or read.
    std::vector<Storey> storeys;
    std::map<host::AttributeIndex, Origins> materialOrigins;
    std::map<std::uint32_t, Triangles> triangles; ///< by the element's position

    // Laid down when a project is made or read, and by whoever sets up a host's libraries.
    std::vector<DatabaseRow> databases;
    std::vector<LibraryPart> libraryParts;
    std::vector<FavouriteRow> favourites;

    // Teamwork: a project is shared when it has members.
    std::vector<Member> members;
    std::vector<Reservation> reservations; ///< at most one a set
    std::vector<ReservationRequest> requests;
    bool IsShared() const { return !members.empty(); }

private:
    void Put(const Row& row);
    void Remove(const Row& row);

    std::vector<Layer> layers;
    std::vector<Pen> pens;
    std::vector<Fill> fills;
    std::vector<Surface> surfaces;
    std::vector<host::BuildingMaterial> buildingMaterials;
    std::vector<Element> elements;
    std::vector<host::MaterialComponent> components;
    std::vector<double> thicknessesM; ///< one a component
    ElementIndex elementIndex;
    mutable std::uint32_t lastFound = 0;
    std::vector<host::PropertyGroup> groups;
    std::vector<host::PropertyDefinition> definitions;
    std::vector<host::ClassificationSystem> systems;
    std::vector<ClassificationItem> items;
    std::vector<MaterialClassification> materialClassifications;
    std::map<host::AttributeIndex, Values> materialValues;
    std::unordered_map<std::uint32_t, Values> elementValues;
    std::vector<PlacedObject> placedObjects;
    std::uint64_t schemaRevision = 0;
};

} // namespace workbench
