#include "workbench/store/ModelReader.h"

#include "workbench/model/ReportLibrary.h"
#include "workbench/store/ObjectRows.h"
#include "workbench/store/OriginRows.h"

#include <algorithm>
#include <cmath>

namespace workbench {

namespace {

Shade ReadShade(SQLite::Statement& row, int column) {
    return {row.getColumn(column).getDouble(), row.getColumn(column + 1).getDouble(),
            row.getColumn(column + 2).getDouble()};
}

void ReadAttributes(SQLite::Database& database, Model& model) {
    // Indices are positions: a gap would shift what follows.
    const auto requireIndex = [](SQLite::Statement& row, std::size_t known) {
        Require(row.getColumn(0).getInt64() == static_cast<std::int64_t>(known + 1), "attribute indices have a gap");
    };
    for (SQLite::Statement row(database, "SELECT idx, name FROM layers ORDER BY idx"); row.executeStep();) {
        requireIndex(row, model.GetLayers().size());
        model.AddLayer(row.getColumn(1).getString());
    }
    for (SQLite::Statement row(database, "SELECT idx, red, green, blue FROM pens ORDER BY idx"); row.executeStep();) {
        requireIndex(row, model.GetPens().size());
        model.AddPen(ReadShade(row, 1));
    }
    for (SQLite::Statement row(database, "SELECT idx, name, pattern FROM fills ORDER BY idx"); row.executeStep();) {
        requireIndex(row, model.GetFills().size());
        Require(row.getColumn(2).getBytes() == 8, "a fill pattern has not 8 bytes");
        std::array<std::uint8_t, 8> pattern{};
        const auto* bytes = static_cast<const std::uint8_t*>(row.getColumn(2).getBlob());
        std::copy(bytes, bytes + pattern.size(), pattern.begin());
        model.AddFill(row.getColumn(1).getString(), pattern);
    }
    for (SQLite::Statement row(database, "SELECT idx, name, red, green, blue FROM surfaces ORDER BY idx");
         row.executeStep();) {
        requireIndex(row, model.GetSurfaces().size());
        model.AddSurface(row.getColumn(1).getString(), ReadShade(row, 2));
    }
    for (SQLite::Statement row(database, "SELECT idx, name, id, density_kg_m3, cut_fill, cut_fill_pen, "
                                         "cut_fill_background_pen, cut_surface FROM building_materials ORDER BY idx");
         row.executeStep();) {
        requireIndex(row, model.GetBuildingMaterials().size());
        host::BuildingMaterial material;
        material.name = row.getColumn(1).getString();
        material.id = row.getColumn(2).getString();
        material.densityKgM3 = row.getColumn(3).getDouble();
        material.cutFill.value = row.getColumn(4).getInt();
        material.cutFillPen = static_cast<std::int16_t>(row.getColumn(5).getInt());
        material.cutFillBackgroundPen = static_cast<std::int16_t>(row.getColumn(6).getInt());
        material.cutSurface.value = row.getColumn(7).getInt();
        model.AddBuildingMaterial(std::move(material));
    }
}

bool HasTablesOfVersion(SQLite::Database& database, int version) {
    return database.execAndGet("PRAGMA user_version").getInt() >= version;
}

std::optional<double> ReadOptional(const SQLite::Column& column) {
    if (column.isNull()) return std::nullopt;
    Require(std::isfinite(column.getDouble()), "a quantity is no number");
    return column.getDouble();
}

/// Components come in the elements' order, so that both are read in one pass.
class ComponentReader {
public:
    ComponentReader(SQLite::Database& database, const Model& model)
        : rows(database, std::string("SELECT element, building_material, volume_m3, area_m2, ") +
                             (HasTablesOfVersion(database, 3) ? "thickness_m" : "0.0") +
                             " FROM components ORDER BY element, position"),
          model(model) {
        hasRow = rows.executeStep();
    }

    void ReadOf(std::int64_t element) {
        components.clear();
        thicknessesM.clear();
        for (; hasRow && rows.getColumn(0).getInt64() == element; hasRow = rows.executeStep())
            ReadRow();
    }

    std::vector<host::MaterialComponent> components; ///< of the element that was read last
    std::vector<double> thicknessesM;

    bool IsAtEnd() const { return !hasRow; }

private:
    void ReadRow() {
        const host::MaterialComponent component{
            {rows.getColumn(1).getInt()}, rows.getColumn(2).getDouble(), rows.getColumn(3).getDouble()};
        const double thicknessM = rows.getColumn(4).getDouble();
        Require(model.FindBuildingMaterial(component.buildingMaterial) != nullptr, "a component has no material");
        Require(std::isfinite(component.volumeM3) && std::isfinite(component.areaM2), "a quantity is no number");
        Require(std::isfinite(thicknessM) && thicknessM >= 0.0, "a thickness is no number");
        components.push_back(component);
        thicknessesM.push_back(thicknessM);
    }

    SQLite::Statement rows;
    const Model& model;
    bool hasRow = false;
};

std::optional<std::uint32_t> ReadStorey(const SQLite::Column& column, const Model& model) {
    if (column.isNull()) return std::nullopt;
    const std::int64_t index = column.getInt64();
    Require(index >= 1 && index <= static_cast<std::int64_t>(model.storeys.size()), "an element has no storey");
    return static_cast<std::uint32_t>(index - 1);
}

Element ReadElement(SQLite::Statement& row, const Model& model) {
    Element element;
    element.guid = ReadGuid(row.getColumn(1));
    element.type = static_cast<host::ElementType>(row.getColumn(2).getInt());
    element.layer.value = row.getColumn(3).getInt();
    Require(model.FindLayer(element.layer) != nullptr, "an element has no layer");
    element.classification = ReadGuid(row.getColumn(4));
    element.name = row.getColumn(5).getString();
    element.kind = row.getColumn(6).getString();
    element.openingAreaM2 = row.getColumn(7).getDouble();
    element.storey = ReadStorey(row.getColumn(8), model);
    element.statedVolumeM3 = ReadOptional(row.getColumn(9));
    element.computedVolumeM3 = ReadOptional(row.getColumn(10));
    element.typeName = row.getColumn(11).getString();
    return element;
}

void ReadElements(SQLite::Database& database, Model& model) {
    const auto count = [&](const char* query) {
        return static_cast<std::size_t>(database.execAndGet(query).getInt64());
    };
    model.ReserveElements(count("SELECT count(*) FROM elements"), count("SELECT count(*) FROM components"));
    ComponentReader parts(database, model);
    SQLite::Statement row(
        database, std::string("SELECT position, guid, type, layer, classification, name, kind, opening_area_m2, ") +
                      (HasTablesOfVersion(database, 3) ? "storey, stated_volume_m3, computed_volume_m3, type_name"
                                                       : "NULL, NULL, NULL, ''") +
                      " FROM elements ORDER BY position");
    while (row.executeStep()) {
        parts.ReadOf(row.getColumn(0).getInt64());
        Require(model.AddElement(ReadElement(row, model), parts.components, parts.thicknessesM),
                "two elements have the same identifier");
    }
    Require(parts.IsAtEnd(), "components belong to no element");
}

void ReadClassifications(SQLite::Database& database, Model& model) {
    for (SQLite::Statement row(database, "SELECT guid, name, version, year, month, day FROM classification_systems "
                                         "ORDER BY position");
         row.executeStep();)
        model.Apply({{},
                     host::ClassificationSystem{
                         ReadGuid(row.getColumn(0)),
                         row.getColumn(1).getString(),
                         row.getColumn(2).getString(),
                         {row.getColumn(3).getInt(), row.getColumn(4).getInt(), row.getColumn(5).getInt()}}});
    for (SQLite::Statement row(database, "SELECT guid, system, parent, id, name FROM classification_items "
                                         "ORDER BY position");
         row.executeStep();)
        model.Apply({{},
                     ClassificationItem{
                         {ReadGuid(row.getColumn(0)), row.getColumn(3).getString(), row.getColumn(4).getString()},
                         ReadGuid(row.getColumn(1)),
                         ReadGuid(row.getColumn(2))}});
    for (SQLite::Statement row(database, "SELECT building_material, item FROM material_classifications");
         row.executeStep();)
        model.Apply({{}, MaterialClassification{{row.getColumn(0).getInt()}, ReadGuid(row.getColumn(1))}});
}

void ReadDefinitionParts(SQLite::Database& database, host::PropertyDefinition& definition) {
    SQLite::Statement items(database, "SELECT item FROM property_availability WHERE definition = ? ORDER BY position");
    BindGuid(items, 1, definition.guid);
    while (items.executeStep())
        definition.availability.push_back(ReadGuid(items.getColumn(0)));
    SQLite::Statement options(database,
                              "SELECT key, text FROM property_options WHERE definition = ? ORDER BY position");
    BindGuid(options, 1, definition.guid);
    while (options.executeStep())
        definition.options.push_back({ReadGuid(options.getColumn(0)), options.getColumn(1).getString()});
}

void ReadDefinitions(SQLite::Database& database, Model& model) {
    for (SQLite::Statement row(database, "SELECT guid, name FROM property_groups ORDER BY position");
         row.executeStep();)
        model.Apply({{}, host::PropertyGroup{ReadGuid(row.getColumn(0)), row.getColumn(1).getString()}});
    SQLite::Statement row(database, "SELECT guid, grp, name, description, value_type, collection, editable, "
                                    "default_type, default_value FROM property_definitions ORDER BY position");
    while (row.executeStep()) {
        host::PropertyDefinition definition;
        definition.guid = ReadGuid(row.getColumn(0));
        definition.group = ReadGuid(row.getColumn(1));
        definition.name = row.getColumn(2).getString();
        definition.description = row.getColumn(3).getString();
        definition.valueType = static_cast<host::ValueType>(row.getColumn(4).getInt());
        definition.collection = static_cast<host::CollectionType>(row.getColumn(5).getInt());
        definition.editable = row.getColumn(6).getInt() != 0;
        definition.defaultValue = ReadVariant(row.getColumn(7), row.getColumn(8));
        ReadDefinitionParts(database, definition);
        model.Apply({{}, std::move(definition)});
    }
}

void ReadValues(SQLite::Database& database, Model& model) {
    for (SQLite::Statement row(database, "SELECT building_material, definition, type, value FROM material_values");
         row.executeStep();)
        model.Apply({{},
                     MaterialValue{{row.getColumn(0).getInt()},
                                   ReadGuid(row.getColumn(1)),
                                   ReadVariant(row.getColumn(2), row.getColumn(3))}});
    for (SQLite::Statement row(database, "SELECT element, definition, type, value FROM element_values");
         row.executeStep();) {
        const host::Guid element = ReadGuid(row.getColumn(0));
        Require(model.FindElement(element) != ElementIndex::NotFound, "a value belongs to no element");
        model.Apply(
            {{}, ElementValue{element, ReadGuid(row.getColumn(1)), ReadVariant(row.getColumn(2), row.getColumn(3))}});
    }
}

} // namespace

void ReadModel(SQLite::Database& database, Model& model) {
    ReadAttributes(database, model);
    ReadClassifications(database, model);
    ReadDefinitions(database, model);
    const bool hasOrigins = HasTablesOfVersion(database, 3);
    if (hasOrigins) ReadStoreys(database, model);
    ReadElements(database, model);
    ReadValues(database, model);
    if (hasOrigins) ReadProvenance(database, model);
    if (hasOrigins) ReadTriangles(database, model);
    if (HasTablesOfVersion(database, 2)) {
        ReadObjectRows(database, model);
    } else {
        AddReportLibrary(model);
        AddDefaultDatabases(model);
    }
    ReadTeamwork(database, model);
}

void ReadTeamwork(SQLite::Database& database, Model& model) {
    model.members.clear();
    model.reservations.clear();
    model.requests.clear();
    for (SQLite::Statement row(database, "SELECT user_id, login, full_name FROM members ORDER BY user_id");
         row.executeStep();)
        model.members.push_back({static_cast<std::int16_t>(row.getColumn(0).getInt()), row.getColumn(1).getString(),
                                 row.getColumn(2).getString()});
    for (SQLite::Statement row(database, "SELECT lockable_set, user_id FROM reservations"); row.executeStep();)
        model.reservations.push_back(
            {row.getColumn(0).getString(), static_cast<std::int16_t>(row.getColumn(1).getInt())});
    if (!HasTablesOfVersion(database, 2)) return;
    for (SQLite::Statement row(database, "SELECT lockable_set, user_id FROM requests"); row.executeStep();)
        model.requests.push_back({row.getColumn(0).getString(), static_cast<std::int16_t>(row.getColumn(1).getInt())});
}

} // namespace workbench
