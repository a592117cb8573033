#include "workbench/store/ObjectRows.h"

#include "workbench/store/ListBytes.h"
#include "workbench/store/RowStatement.h"

namespace workbench {

namespace {

using host::ObjectParameter;
using host::ParameterKind;

std::string OwnerOf(const LibraryPart& part) {
    return "part " + part.identifier;
}
std::string OwnerOf(const FavouriteRow& favourite) {
    return "favourite " + favourite.name;
}
std::string OwnerOf(const PlacedObject& object) {
    return "object " + host::WriteGuid(object.guid);
}

std::string GetData(const ObjectParameter& parameter) {
    if (parameter.isArray)
        return parameter.kind == ParameterKind::Text ? ToBytes(parameter.textArray) : ToBytes(parameter.realArray);
    return parameter.kind == ParameterKind::Text ? ToBytes(parameter.text) : std::string();
}

void SetData(ObjectParameter& parameter, const SQLite::Column& data) {
    if (parameter.isArray && parameter.kind == ParameterKind::Text)
        parameter.textArray = FromBytes<std::u16string>(data);
    else if (parameter.isArray)
        parameter.realArray = FromBytes<std::vector<double>>(data);
    else
        parameter.text = FromBytes<std::u16string>(data);
}

void RemoveParameters(SQLite::Database& database, const std::string& owner) {
    RowStatement(database, "DELETE FROM object_parameters WHERE owner = ?").Run(owner);
}

void WriteParameters(SQLite::Database& database, const std::string& owner,
                     const std::vector<ObjectParameter>& parameters) {
    SQLite::Statement statement(database, "INSERT INTO object_parameters VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    int position = 0;
    for (const ObjectParameter& parameter : parameters) {
        const std::string data = GetData(parameter);
        statement.reset();
        statement.bind(1, owner);
        statement.bind(2, ++position);
        statement.bind(3, parameter.name);
        statement.bind(4, parameter.kind == ParameterKind::Text ? 1 : 0);
        statement.bind(5, parameter.isArray ? 1 : 0);
        statement.bind(6, parameter.rows);
        statement.bind(7, parameter.columns);
        statement.bind(8, parameter.real);
        statement.bind(9, data.data(), static_cast<int>(data.size()));
        statement.exec();
    }
}

std::vector<ObjectParameter> ReadParameters(SQLite::Database& database, const std::string& owner) {
    SQLite::Statement row(database, "SELECT name, is_text, is_array, row_count, column_count, real, data "
                                    "FROM object_parameters WHERE owner = ? ORDER BY position");
    row.bind(1, owner);
    std::vector<ObjectParameter> parameters;
    while (row.executeStep()) {
        ObjectParameter parameter;
        parameter.name = row.getColumn(0).getString();
        parameter.kind = row.getColumn(1).getInt() != 0 ? ParameterKind::Text : ParameterKind::Real;
        parameter.isArray = row.getColumn(2).getInt() != 0;
        parameter.rows = row.getColumn(3).getInt();
        parameter.columns = row.getColumn(4).getInt();
        parameter.real = row.getColumn(5).getDouble();
        SetData(parameter, row.getColumn(6));
        parameters.push_back(std::move(parameter));
    }
    return parameters;
}

void ReadFavourites(SQLite::Database& database, Model& model) {
    SQLite::Statement row(database, "SELECT name, is_object, library_part, angle, x_ratio, y_ratio FROM favourites "
                                    "ORDER BY position");
    while (row.executeStep()) {
        FavouriteRow favourite;
        favourite.name = row.getColumn(0).getString();
        favourite.isObject = row.getColumn(1).getInt() != 0;
        favourite.libraryPart = row.getColumn(2).getString();
        favourite.angle = row.getColumn(3).getDouble();
        favourite.xRatio = row.getColumn(4).getDouble();
        favourite.yRatio = row.getColumn(5).getDouble();
        favourite.parameters = ReadParameters(database, OwnerOf(favourite));
        model.favourites.push_back(std::move(favourite));
    }
}

void ReadPlacedObjects(SQLite::Database& database, Model& model) {
    SQLite::Statement row(database, "SELECT guid, database, library_part, x, y, angle, x_ratio, y_ratio "
                                    "FROM placed_objects ORDER BY position");
    while (row.executeStep()) {
        PlacedObject object;
        object.guid = ReadGuid(row.getColumn(0));
        object.database = ReadGuid(row.getColumn(1));
        object.libraryPart = row.getColumn(2).getString();
        object.position = {row.getColumn(3).getDouble(), row.getColumn(4).getDouble()};
        object.angle = row.getColumn(5).getDouble();
        object.xRatio = row.getColumn(6).getDouble();
        object.yRatio = row.getColumn(7).getDouble();
        object.parameters = ReadParameters(database, OwnerOf(object));
        model.Apply({{}, std::move(object)});
    }
}

} // namespace

void ReadObjectRows(SQLite::Database& database, Model& model) {
    for (SQLite::Statement row(database, "SELECT type, guid, name FROM databases ORDER BY position");
         row.executeStep();)
        model.databases.push_back({static_cast<host::DatabaseType>(row.getColumn(0).getInt()),
                                   ReadGuid(row.getColumn(1)), row.getColumn(2).getString()});
    for (SQLite::Statement row(database, "SELECT identifier, file_name FROM library_parts ORDER BY position");
         row.executeStep();) {
        LibraryPart part{row.getColumn(0).getString(), row.getColumn(1).getString(), {}};
        part.parameters = ReadParameters(database, OwnerOf(part));
        model.libraryParts.push_back(std::move(part));
    }
    ReadFavourites(database, model);
    ReadPlacedObjects(database, model);
}

void WriteLibraryRows(SQLite::Database& database, const Model& model) {
    RowStatement place(database, "INSERT INTO databases (guid, type, name) VALUES (?, ?, ?)");
    for (const DatabaseRow& row : model.databases)
        place.Run(row.guid, static_cast<std::int32_t>(row.type), row.name);
    RowStatement part(database, "INSERT INTO library_parts (identifier, file_name) VALUES (?, ?)");
    for (const LibraryPart& row : model.libraryParts) {
        part.Run(row.identifier, row.fileName);
        WriteParameters(database, OwnerOf(row), row.parameters);
    }
    RowStatement favourite(database, "INSERT INTO favourites (name, is_object, library_part, angle, x_ratio, y_ratio) "
                                     "VALUES (?, ?, ?, ?, ?, ?)");
    for (const FavouriteRow& row : model.favourites) {
        favourite.Run(row.name, row.isObject ? 1 : 0, row.libraryPart, row.angle, row.xRatio, row.yRatio);
        WriteParameters(database, OwnerOf(row), row.parameters);
    }
}

void PutPlacedObject(SQLite::Database& database, const PlacedObject& object) {
    RowStatement(database,
                 "INSERT INTO placed_objects (guid, database, library_part, x, y, angle, x_ratio, y_ratio) "
                 "VALUES (?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (guid) DO UPDATE SET database = excluded.database, "
                 "library_part = excluded.library_part, x = excluded.x, y = excluded.y, angle = excluded.angle, "
                 "x_ratio = excluded.x_ratio, y_ratio = excluded.y_ratio")
        .Run(object.guid, object.database, object.libraryPart, object.position.x, object.position.y, object.angle,
             object.xRatio, object.yRatio);
    RemoveParameters(database, OwnerOf(object));
    WriteParameters(database, OwnerOf(object), object.parameters);
}

void RemovePlacedObject(SQLite::Database& database, const PlacedObject& object) {
    RemoveParameters(database, OwnerOf(object));
    RowStatement(database, "DELETE FROM placed_objects WHERE guid = ?").Run(object.guid);
}

} // namespace workbench
