PRAGMA application_id = 1263294040;
PRAGMA user_version = 1;
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
INSERT INTO layers VALUES (1, 'Außen');
INSERT INTO building_materials VALUES (1, 'Beton', 'B1', 2400.0, 1, 1, 0, 1);
INSERT INTO elements VALUES (1, x'000102030405060708090a0b0c0d0e0f', 1, 1, zeroblob(16), 'Wand', 'IfcWall', 0.0);
INSERT INTO elements VALUES (2, x'100102030405060708090a0b0c0d0e0f', 5, 1, zeroblob(16), 'Haustür', 'IfcDoor', 2.1);
INSERT INTO components VALUES (1, 1, 1, 2.5, 10.0);
INSERT INTO property_groups VALUES (1, x'aa0102030405060708090a0b0c0d0e0f', 'LCA Project');
INSERT INTO property_definitions VALUES (1, x'bb0102030405060708090a0b0c0d0e0f', x'aa0102030405060708090a0b0c0d0e0f',
    'Considered Service Life', 'LCAID="SERVICELIFE"', 1, 1, 1, 1, 50);
