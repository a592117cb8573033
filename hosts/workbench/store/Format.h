// Layout of a project file (.kvp): one SQLite database. docs/project-file.md describes it with an example.
#pragma once

#include <cstdint>

namespace workbench::ProjectFormat {

/// "KLVX" in the database header, so that another SQLite file is not taken for a project.
inline constexpr std::int32_t ApplicationId = 0x4B4C5658;
/// Raised with every change of the tables; a file of a newer version is refused.
inline constexpr std::int32_t Version = 3;

/// Identifiers are blobs of 16 bytes. Values of properties carry their type (host::ValueType) beside them. `position`
/// keeps the order in which rows were made.
inline constexpr char CreateTables[] = R"sql(
CREATE TABLE layers (idx INTEGER PRIMARY KEY, name TEXT NOT NULL) STRICT;
CREATE TABLE pens (idx INTEGER PRIMARY KEY, red REAL NOT NULL, green REAL NOT NULL, blue REAL NOT NULL) STRICT;
CREATE TABLE fills (idx INTEGER PRIMARY KEY, name TEXT NOT NULL, pattern BLOB NOT NULL) STRICT;
CREATE TABLE surfaces (idx INTEGER PRIMARY KEY, name TEXT NOT NULL,
    red REAL NOT NULL, green REAL NOT NULL, blue REAL NOT NULL) STRICT;
CREATE TABLE building_materials (idx INTEGER PRIMARY KEY, name TEXT NOT NULL, id TEXT NOT NULL,
    density_kg_m3 REAL NOT NULL, cut_fill INTEGER NOT NULL, cut_fill_pen INTEGER NOT NULL,
    cut_fill_background_pen INTEGER NOT NULL, cut_surface INTEGER NOT NULL) STRICT;
CREATE TABLE elements (position INTEGER PRIMARY KEY, guid BLOB NOT NULL, type INTEGER NOT NULL, layer INTEGER NOT NULL,
    classification BLOB NOT NULL, name TEXT NOT NULL, kind TEXT NOT NULL, opening_area_m2 REAL NOT NULL) STRICT;
CREATE TABLE components (element INTEGER NOT NULL, position INTEGER NOT NULL, building_material INTEGER NOT NULL,
    volume_m3 REAL NOT NULL, area_m2 REAL NOT NULL, PRIMARY KEY (element, position)) STRICT, WITHOUT ROWID;
CREATE TABLE property_groups (position INTEGER PRIMARY KEY, guid BLOB NOT NULL UNIQUE, name TEXT NOT NULL) STRICT;
CREATE TABLE property_definitions (position INTEGER PRIMARY KEY, guid BLOB NOT NULL UNIQUE, grp BLOB NOT NULL,
    name TEXT NOT NULL, description TEXT NOT NULL, value_type INTEGER NOT NULL, collection INTEGER NOT NULL,
    editable INTEGER NOT NULL, default_type INTEGER NOT NULL, default_value ANY) STRICT;
CREATE TABLE property_availability (definition BLOB NOT NULL, position INTEGER NOT NULL, item BLOB NOT NULL,
    PRIMARY KEY (definition, position)) STRICT, WITHOUT ROWID;
CREATE TABLE property_options (definition BLOB NOT NULL, position INTEGER NOT NULL, key BLOB NOT NULL,
    text TEXT NOT NULL, PRIMARY KEY (definition, position)) STRICT, WITHOUT ROWID;
CREATE TABLE classification_systems (position INTEGER PRIMARY KEY, guid BLOB NOT NULL UNIQUE, name TEXT NOT NULL,
    version TEXT NOT NULL, year INTEGER NOT NULL, month INTEGER NOT NULL, day INTEGER NOT NULL) STRICT;
CREATE TABLE classification_items (position INTEGER PRIMARY KEY, guid BLOB NOT NULL UNIQUE, system BLOB NOT NULL,
    parent BLOB NOT NULL, id TEXT NOT NULL, name TEXT NOT NULL) STRICT;
CREATE TABLE material_classifications (building_material INTEGER NOT NULL, item BLOB NOT NULL,
    PRIMARY KEY (building_material, item)) STRICT, WITHOUT ROWID;
CREATE TABLE material_values (building_material INTEGER NOT NULL, definition BLOB NOT NULL, type INTEGER NOT NULL,
    value ANY, PRIMARY KEY (building_material, definition)) STRICT, WITHOUT ROWID;
CREATE TABLE element_values (element BLOB NOT NULL, definition BLOB NOT NULL, type INTEGER NOT NULL,
    value ANY, PRIMARY KEY (element, definition)) STRICT, WITHOUT ROWID;
CREATE TABLE members (user_id INTEGER PRIMARY KEY, login TEXT NOT NULL UNIQUE, full_name TEXT NOT NULL) STRICT;
CREATE TABLE reservations (lockable_set TEXT PRIMARY KEY, user_id INTEGER NOT NULL) STRICT, WITHOUT ROWID;
)sql";

/// What version 2 added. A parameter's owner is "part " or "favourite " and its name, or "object " and its identifier;
/// its data are UTF-16 code units or doubles, both little-endian.
inline constexpr char CreateTablesOfVersion2[] = R"sql(
CREATE TABLE requests (lockable_set TEXT NOT NULL, user_id INTEGER NOT NULL,
    PRIMARY KEY (lockable_set, user_id)) STRICT, WITHOUT ROWID;
CREATE TABLE databases (position INTEGER PRIMARY KEY, guid BLOB NOT NULL UNIQUE, type INTEGER NOT NULL,
    name TEXT NOT NULL) STRICT;
CREATE TABLE library_parts (position INTEGER PRIMARY KEY, identifier TEXT NOT NULL UNIQUE,
    file_name TEXT NOT NULL) STRICT;
CREATE TABLE favourites (position INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, is_object INTEGER NOT NULL,
    library_part TEXT NOT NULL, angle REAL NOT NULL, x_ratio REAL NOT NULL, y_ratio REAL NOT NULL) STRICT;
CREATE TABLE placed_objects (position INTEGER PRIMARY KEY, guid BLOB NOT NULL UNIQUE, database BLOB NOT NULL,
    library_part TEXT NOT NULL, x REAL NOT NULL, y REAL NOT NULL, angle REAL NOT NULL, x_ratio REAL NOT NULL,
    y_ratio REAL NOT NULL) STRICT;
CREATE TABLE object_parameters (owner TEXT NOT NULL, position INTEGER NOT NULL, name TEXT NOT NULL,
    is_text INTEGER NOT NULL, is_array INTEGER NOT NULL, row_count INTEGER NOT NULL, column_count INTEGER NOT NULL,
    real REAL NOT NULL, data BLOB NOT NULL, PRIMARY KEY (owner, position)) STRICT, WITHOUT ROWID;
)sql";

/// What version 3 added. An owner is an element's identifier or a building material's index. A blob holds the
/// coordinates of triangles as 32-bit numbers, little-endian.
inline constexpr char CreateTablesOfVersion3[] = R"sql(
CREATE TABLE storeys (idx INTEGER PRIMARY KEY, name TEXT NOT NULL, elevation_m REAL NOT NULL) STRICT;
ALTER TABLE elements ADD COLUMN storey INTEGER;
ALTER TABLE elements ADD COLUMN stated_volume_m3 REAL;
ALTER TABLE elements ADD COLUMN computed_volume_m3 REAL;
ALTER TABLE elements ADD COLUMN type_name TEXT NOT NULL DEFAULT '';
ALTER TABLE components ADD COLUMN thickness_m REAL NOT NULL DEFAULT 0.0;
CREATE TABLE provenance (owner ANY NOT NULL, field TEXT NOT NULL, text TEXT NOT NULL,
    PRIMARY KEY (owner, field)) STRICT, WITHOUT ROWID;
CREATE TABLE triangles (element BLOB NOT NULL UNIQUE, blob BLOB NOT NULL) STRICT;
)sql";

inline constexpr const char* TableNames[] = {"layers",
                                             "pens",
                                             "fills",
                                             "surfaces",
                                             "building_materials",
                                             "elements",
                                             "components",
                                             "property_groups",
                                             "property_definitions",
                                             "property_availability",
                                             "property_options",
                                             "classification_systems",
                                             "classification_items",
                                             "material_classifications",
                                             "material_values",
                                             "element_values",
                                             "members",
                                             "reservations",
                                             "requests",
                                             "databases",
                                             "library_parts",
                                             "favourites",
                                             "placed_objects",
                                             "object_parameters",
                                             "storeys",
                                             "provenance",
                                             "triangles"};

} // namespace workbench::ProjectFormat
