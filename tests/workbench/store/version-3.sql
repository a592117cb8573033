-- What format version 3 added to a file of version 2, with a row of every kind.
PRAGMA user_version = 3;
CREATE TABLE storeys (idx INTEGER PRIMARY KEY, name TEXT NOT NULL, elevation_m REAL NOT NULL) STRICT;
ALTER TABLE elements ADD COLUMN storey INTEGER;
ALTER TABLE elements ADD COLUMN stated_volume_m3 REAL;
ALTER TABLE elements ADD COLUMN computed_volume_m3 REAL;
ALTER TABLE elements ADD COLUMN type_name TEXT NOT NULL DEFAULT '';
ALTER TABLE components ADD COLUMN thickness_m REAL NOT NULL DEFAULT 0.0;
CREATE TABLE provenance (owner ANY NOT NULL, field TEXT NOT NULL, text TEXT NOT NULL,
    PRIMARY KEY (owner, field)) STRICT, WITHOUT ROWID;
CREATE TABLE triangles (element BLOB NOT NULL UNIQUE, blob BLOB NOT NULL) STRICT;
INSERT INTO storeys VALUES (2, 'Dach "oben"', 2.75), (1, 'Erdgeschoß', -0.25);
UPDATE elements SET storey = 2, stated_volume_m3 = 2.5 WHERE position = 1;
UPDATE elements SET storey = 1, stated_volume_m3 = 3.0, computed_volume_m3 = 1.5 WHERE position = 3;
UPDATE elements SET type_name = 'Tür "T30"' WHERE position = 2;
UPDATE components SET thickness_m = 0.25 WHERE element = 1;
INSERT INTO provenance VALUES (1, 'density', 'stated: MassDensity'), (2, 'later', 'a field of a later program'),
    (x'200102030405060708090a0b0c0d0e0f', 'volume', 'computed: closed body'),
    (x'200102030405060708090a0b0c0d0e0f', 'shares', 'equal shares; the model gives none'),
    (x'000102030405060708090a0b0c0d0e0f', 'volume', 'stated: NetVolume');
-- (0 0 0) (1 0 0) (0 -2.5 0.125), each coordinate 4 bytes, and a body without triangles.
INSERT INTO triangles VALUES (x'000102030405060708090a0b0c0d0e0f',
    x'0000000000000000000000000000803f000000000000000000000000000020c00000003e'),
    (x'100102030405060708090a0b0c0d0e0f', x'');
