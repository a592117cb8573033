#include "workbench/store/OriginRows.h"

#include "workbench/store/ListBytes.h"
#include "workbench/store/RowStatement.h"

#include <algorithm>
#include <cmath>

namespace workbench {

namespace {

constexpr std::size_t CoordinatesOfTriangle = 9;

std::uint32_t FindElement(const SQLite::Column& column, const Model& model) {
    const std::uint32_t element = model.FindElement(ReadGuid(column));
    Require(element != ElementIndex::NotFound, "a row belongs to no element");
    return element;
}

host::AttributeIndex FindMaterial(const SQLite::Column& column, const Model& model) {
    const host::AttributeIndex material{column.getInt()};
    Require(column.isInteger() && model.FindBuildingMaterial(material) != nullptr, "an origin belongs to nothing");
    return material;
}

} // namespace

void ReadStoreys(SQLite::Database& database, Model& model) {
    for (SQLite::Statement row(database, "SELECT idx, name, elevation_m FROM storeys ORDER BY idx");
         row.executeStep();) {
        Require(row.getColumn(0).getInt64() == static_cast<std::int64_t>(model.storeys.size() + 1),
                "storey indices have a gap");
        Require(std::isfinite(row.getColumn(2).getDouble()), "an elevation is no number");
        model.storeys.push_back({row.getColumn(1).getString(), row.getColumn(2).getDouble()});
    }
}

void ReadProvenance(SQLite::Database& database, Model& model) {
    OriginPool pool;
    Origins origins;
    std::uint32_t element = ElementIndex::NotFound;
    const auto handOver = [&] {
        if (element != ElementIndex::NotFound) model.SetOrigins(element, pool.Share(origins));
        origins.clear();
    };
    // The rows of an owner stand together.
    for (SQLite::Statement row(database, "SELECT owner, field, text FROM provenance ORDER BY owner");
         row.executeStep();) {
        const std::string field = row.getColumn(1).getString(), text = row.getColumn(2).getString();
        if (!row.getColumn(0).isBlob()) {
            model.materialOrigins[FindMaterial(row.getColumn(0), model)][field] = text;
            continue;
        }
        const std::uint32_t owner = FindElement(row.getColumn(0), model);
        if (owner != element) handOver();
        element = owner;
        origins[field] = text;
    }
    handOver();
}

void ReadTriangles(SQLite::Database& database, Model& model) {
    for (SQLite::Statement row(database, "SELECT element, blob FROM triangles"); row.executeStep();) {
        auto coordinates = FromBytes<Triangles>(row.getColumn(1), CoordinatesOfTriangle);
        Require(std::all_of(coordinates.begin(), coordinates.end(), [](float one) { return std::isfinite(one); }),
                "a coordinate is no number");
        model.triangles[FindElement(row.getColumn(0), model)] = std::move(coordinates);
    }
}

void WriteStoreys(SQLite::Database& database, const Model& model) {
    RowStatement storey(database, "INSERT INTO storeys VALUES (?, ?, ?)");
    std::int32_t index = 0;
    for (const Storey& row : model.storeys)
        storey.Run(++index, row.name, row.elevationM);
}

void WriteProvenance(SQLite::Database& database, const Model& model) {
    RowStatement origin(database, "INSERT INTO provenance VALUES (?, ?, ?)");
    for (const auto& [material, origins] : model.materialOrigins)
        for (const auto& [field, text] : origins)
            origin.Run(material.value, field, text);
    for (const Element& element : model.GetElements())
        if (element.origins)
            for (const auto& [field, text] : *element.origins)
                origin.Run(element.guid, field, text);
}

void WriteTriangles(SQLite::Database& database, const Model& model) {
    RowStatement body(database, "INSERT INTO triangles VALUES (?, ?)");
    for (const auto& [element, coordinates] : model.triangles)
        body.Run(model.GetElements()[element].guid, coordinates);
}

} // namespace workbench
