-- What format version 2 added to a file of version 1, with a row of every kind.
PRAGMA user_version = 2;
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
INSERT INTO requests VALUES ('BuildingMaterials', 1);
INSERT INTO databases VALUES (1, x'cc0102030405060708090a0b0c0d0e0f', 5, 'Layout 1');
INSERT INTO library_parts VALUES (1, '{E87C2E41-A5DA-4D30-9833-5BA5C29D91DE}-{1C081D52-65D7-480D-A6BB-B72F3D8A7B0B}',
    'Kelvarnix Material CO2 Report.gsm');
INSERT INTO favourites VALUES (1, 'Wide', 1,
    '{E87C2E41-A5DA-4D30-9833-5BA5C29D91DE}-{00000000-65D7-480D-A6BB-B72F3D8A7B0B}', 0.0, 2.0, 1.0);
INSERT INTO placed_objects VALUES (1, x'dd0102030405060708090a0b0c0d0e0f', x'cc0102030405060708090a0b0c0d0e0f',
    '{E87C2E41-A5DA-4D30-9833-5BA5C29D91DE}-{1C081D52-65D7-480D-A6BB-B72F3D8A7B0B}', 12.5, -3.0, 0.0, 1.0, 1.0);
INSERT INTO object_parameters VALUES
    ('part {E87C2E41-A5DA-4D30-9833-5BA5C29D91DE}-{1C081D52-65D7-480D-A6BB-B72F3D8A7B0B}', 1, 'date', 1, 0, 0, 0, 0.0,
        x''),
    ('part {E87C2E41-A5DA-4D30-9833-5BA5C29D91DE}-{1C081D52-65D7-480D-A6BB-B72F3D8A7B0B}', 2, 'addon_update', 0, 0, 0,
        0, 1.0, x''),
    -- "Aé", "B" and an empty text; 1 and -0.5
    ('object {DD010203-0405-0607-0809-0A0B0C0D0E0F}', 1, 'arr_texts', 1, 1, 1, 3, 0.0, x'4100e9000000420000000000'),
    ('object {DD010203-0405-0607-0809-0A0B0C0D0E0F}', 2, 'barchart_data', 0, 1, 2, 1, 0.0,
        x'000000000000f03f000000000000e0bf');
