#include "workbench/store/ModelWriter.h"

#include "workbench/store/Format.h"
#include "workbench/store/ObjectRows.h"
#include "workbench/store/OriginRows.h"
#include "workbench/store/RowStatement.h"

namespace workbench {

namespace {

void WriteAttributes(SQLite::Database& database, const Model& model) {
    RowStatement layer(database, "INSERT INTO layers VALUES (?, ?)");
    for (const Layer& row : model.GetLayers())
        layer.Run(row.index.value, row.name);
    RowStatement pen(database, "INSERT INTO pens VALUES (?, ?, ?, ?)");
    for (const Pen& row : model.GetPens())
        pen.Run(row.index.value, row.shade[0], row.shade[1], row.shade[2]);
    SQLite::Statement fill(database, "INSERT INTO fills VALUES (?, ?, ?)");
    for (const Fill& row : model.GetFills()) {
        fill.reset();
        fill.bind(1, row.index.value);
        fill.bind(2, row.name);
        fill.bind(3, row.pattern.data(), static_cast<int>(row.pattern.size()));
        fill.exec();
    }
    RowStatement surface(database, "INSERT INTO surfaces VALUES (?, ?, ?, ?, ?)");
    for (const Surface& row : model.GetSurfaces())
        surface.Run(row.index.value, row.name, row.shade[0], row.shade[1], row.shade[2]);
}

std::optional<std::int32_t> GetStoreyIndex(const Element& element) {
    return element.storey ? std::optional(static_cast<std::int32_t>(*element.storey + 1)) : std::nullopt;
}

void WriteElements(SQLite::Database& database, const Model& model) {
    RowStatement elementRow(database, "INSERT INTO elements VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    RowStatement componentRow(database, "INSERT INTO components VALUES (?, ?, ?, ?, ?, ?)");
    std::int64_t position = 0;
    for (const Element& element : model.GetElements()) {
        ++position;
        elementRow.Run(position, element.guid, static_cast<std::int32_t>(element.type), element.layer.value,
                       element.classification, element.name, element.kind, element.openingAreaM2,
                       GetStoreyIndex(element), element.statedVolumeM3, element.computedVolumeM3, element.typeName);
        const std::span<const double> thicknessesM = model.GetThicknesses(element);
        std::int32_t part = 0;
        for (const host::MaterialComponent& component : model.GetComponents(element)) {
            const double thicknessM = thicknessesM[static_cast<std::size_t>(part)];
            componentRow.Run(position, ++part, component.buildingMaterial.value, component.volumeM3, component.areaM2,
                             thicknessM);
        }
    }
}

void DeleteByGuid(SQLite::Database& database, const char* query, const host::Guid& guid) {
    RowStatement(database, query).Run(guid);
}

/// Puts one row into the file, over the row of the same key, or takes it out.
struct RowWriter {
    SQLite::Database& database;

    // A conflict updates in place, so that the row keeps its position.
    void Put(const host::PropertyGroup& row) const {
        RowStatement(database, "INSERT INTO property_groups (guid, name) VALUES (?, ?) "
                               "ON CONFLICT (guid) DO UPDATE SET name = excluded.name")
            .Run(row.guid, row.name);
    }
    void Remove(const host::PropertyGroup& row) const {
        DeleteByGuid(database, "DELETE FROM property_groups WHERE guid = ?", row.guid);
    }

    void Put(const host::PropertyDefinition& row) const {
        RowStatement(
            database,
            "INSERT INTO property_definitions (guid, grp, name, description, value_type, collection, editable, "
            "default_type, default_value) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (guid) DO UPDATE SET "
            "grp = excluded.grp, name = excluded.name, description = excluded.description, "
            "value_type = excluded.value_type, collection = excluded.collection, "
            "editable = excluded.editable, default_type = excluded.default_type, "
            "default_value = excluded.default_value")
            .Run(row.guid, row.group, row.name, row.description, static_cast<std::int32_t>(row.valueType),
                 static_cast<std::int32_t>(row.collection), row.editable ? 1 : 0, row.defaultValue);
        RemoveParts(row.guid);
        PutParts(row);
    }
    void Remove(const host::PropertyDefinition& row) const {
        RemoveParts(row.guid);
        DeleteByGuid(database, "DELETE FROM property_definitions WHERE guid = ?", row.guid);
    }
    void PutParts(const host::PropertyDefinition& row) const {
        RowStatement item(database, "INSERT INTO property_availability VALUES (?, ?, ?)");
        std::int32_t position = 0;
        for (const host::Guid& guid : row.availability)
            item.Run(row.guid, ++position, guid);
        RowStatement option(database, "INSERT INTO property_options VALUES (?, ?, ?, ?)");
        position = 0;
        for (const host::PropertyOption& one : row.options)
            option.Run(row.guid, ++position, one.key, one.text);
    }
    void RemoveParts(const host::Guid& definition) const {
        DeleteByGuid(database, "DELETE FROM property_availability WHERE definition = ?", definition);
        DeleteByGuid(database, "DELETE FROM property_options WHERE definition = ?", definition);
    }

    void Put(const host::ClassificationSystem& row) const {
        RowStatement(database,
                     "INSERT INTO classification_systems (guid, name, version, year, month, day) "
                     "VALUES (?, ?, ?, ?, ?, ?) ON CONFLICT (guid) DO UPDATE SET name = excluded.name, "
                     "version = excluded.version, year = excluded.year, month = excluded.month, day = excluded.day")
            .Run(row.guid, row.name, row.version, row.date.year, row.date.month, row.date.day);
    }
    void Remove(const host::ClassificationSystem& row) const {
        DeleteByGuid(database, "DELETE FROM classification_systems WHERE guid = ?", row.guid);
    }

    void Put(const ClassificationItem& row) const {
        RowStatement(database,
                     "INSERT INTO classification_items (guid, system, parent, id, name) VALUES (?, ?, ?, ?, ?) "
                     "ON CONFLICT (guid) DO UPDATE SET system = excluded.system, parent = excluded.parent, "
                     "id = excluded.id, name = excluded.name")
            .Run(row.item.guid, row.system, row.parent, row.item.id, row.item.name);
    }
    void Remove(const ClassificationItem& row) const {
        DeleteByGuid(database, "DELETE FROM classification_items WHERE guid = ?", row.item.guid);
    }

    void Put(const MaterialClassification& row) const {
        RowStatement(database, "INSERT INTO material_classifications VALUES (?, ?)").Run(row.material.value, row.item);
    }
    void Remove(const MaterialClassification& row) const {
        RowStatement(database, "DELETE FROM material_classifications WHERE building_material = ? AND item = ?")
            .Run(row.material.value, row.item);
    }

    void Put(const MaterialValue& row) const {
        RowStatement(database, "INSERT OR REPLACE INTO material_values VALUES (?, ?, ?, ?)")
            .Run(row.material.value, row.definition, row.value);
    }
    void Remove(const MaterialValue& row) const {
        RowStatement(database, "DELETE FROM material_values WHERE building_material = ? AND definition = ?")
            .Run(row.material.value, row.definition);
    }

    void Put(const ElementValue& row) const {
        RowStatement(database, "INSERT OR REPLACE INTO element_values VALUES (?, ?, ?, ?)")
            .Run(row.element, row.definition, row.value);
    }
    void Remove(const ElementValue& row) const {
        RowStatement(database, "DELETE FROM element_values WHERE element = ? AND definition = ?")
            .Run(row.element, row.definition);
    }

    void Put(const host::BuildingMaterial& row) const {
        RowStatement(database, "INSERT OR REPLACE INTO building_materials VALUES (?, ?, ?, ?, ?, ?, ?, ?)")
            .Run(row.index.value, row.name, row.id, row.densityKgM3, row.cutFill.value, std::int32_t{row.cutFillPen},
                 std::int32_t{row.cutFillBackgroundPen}, row.cutSurface.value);
    }
    void Remove(const host::BuildingMaterial&) const { /* attributes are never removed */
    }

    void Put(const PlacedObject& row) const { PutPlacedObject(database, row); }
    void Remove(const PlacedObject& row) const { RemovePlacedObject(database, row); }
};

void WriteChangeableRows(SQLite::Database& database, const Model& model) {
    const RowWriter writer{database};
    for (const host::BuildingMaterial& row : model.GetBuildingMaterials())
        writer.Put(row);
    for (const host::PropertyGroup& row : model.GetGroups())
        writer.Put(row);
    for (const host::PropertyDefinition& row : model.GetDefinitions())
        writer.Put(row);
    for (const host::ClassificationSystem& row : model.GetSystems())
        writer.Put(row);
    for (const ClassificationItem& row : model.GetItems())
        writer.Put(row);
    for (const MaterialClassification& row : model.GetMaterialClassifications())
        writer.Put(row);
    for (const auto& [material, values] : model.GetMaterialValues())
        for (const auto& [definition, value] : values)
            writer.Put(MaterialValue{material, definition, value});
    for (const auto& [position, values] : model.GetElementValues())
        for (const auto& [definition, value] : values)
            writer.Put(ElementValue{model.GetElements()[position].guid, definition, value});
    for (const PlacedObject& row : model.GetPlacedObjects())
        writer.Put(row);
}

} // namespace

void WriteModel(SQLite::Database& database, const Model& model) {
    for (const char* table : ProjectFormat::TableNames)
        database.exec(std::string("DELETE FROM ") + table);
    WriteAttributes(database, model);
    WriteStoreys(database, model);
    WriteElements(database, model);
    WriteProvenance(database, model);
    WriteTriangles(database, model);
    WriteChangeableRows(database, model);
    WriteLibraryRows(database, model);
    WriteTeamwork(database, model);
}

void WriteTeamwork(SQLite::Database& database, const Model& model) {
    for (const char* table : {"members", "reservations", "requests"})
        database.exec(std::string("DELETE FROM ") + table);
    RowStatement member(database, "INSERT INTO members VALUES (?, ?, ?)");
    for (const Member& row : model.members)
        member.Run(std::int32_t{row.userId}, row.login, row.fullName);
    RowStatement reservation(database, "INSERT INTO reservations VALUES (?, ?)");
    for (const Reservation& row : model.reservations)
        reservation.Run(row.lockableSet, std::int32_t{row.userId});
    RowStatement request(database, "INSERT INTO requests VALUES (?, ?)");
    for (const ReservationRequest& row : model.requests)
        request.Run(row.lockableSet, std::int32_t{row.userId});
}

void UpgradeFormat(SQLite::Database& database, const Model& model) {
    const int version = database.execAndGet("PRAGMA user_version").getInt();
    if (version < 2) database.exec(ProjectFormat::CreateTablesOfVersion2);
    if (version < 3) database.exec(ProjectFormat::CreateTablesOfVersion3);
    if (version != ProjectFormat::Version)
        database.exec("PRAGMA user_version = " + std::to_string(ProjectFormat::Version));
    if (version < 2) WriteLibraryRows(database, model);
}

void WriteChange(SQLite::Database& database, const Change& change) {
    const RowWriter writer{database};
    if (change.after)
        std::visit([&](const auto& row) { writer.Put(row); }, *change.after);
    else if (change.before)
        std::visit([&](const auto& row) { writer.Remove(row); }, *change.before);
}

} // namespace workbench
