-- A row of every kind, with every type of value, beside those of version-2.sql.
INSERT INTO layers VALUES (2, 'Innen; "quoted" 🏠');
INSERT INTO pens VALUES (1, 0.125, 0.25, 0.5), (2, 1.0, 0.0, 0.75);
INSERT INTO fills VALUES (1, 'Solid', x'ff010203040506fe'), (2, 'Grid', x'0000000000000000');
INSERT INTO surfaces VALUES (1, 'Brick', 0.68, 0.36, 0.28), (2, 'Holz', 1.0, 0.5, 0.0);
INSERT INTO building_materials VALUES (2, 'Holz', 'B2', 500.5, 2, 3, -1, 4);
INSERT INTO elements VALUES (3, x'200102030405060708090a0b0c0d0e0f', 4, 2, x'e20102030405060708090a0b0c0d0e0f', 'Fenster',
    'IfcWindow', 1.25);
INSERT INTO components VALUES (3, 2, 1, 1e-9, 2.0), (3, 1, 2, 0.5, 7.5);
INSERT INTO property_groups VALUES (2, x'ab0102030405060708090a0b0c0d0e0f', 'Other');
INSERT INTO property_definitions VALUES (2, x'bc0102030405060708090a0b0c0d0e0f', x'ab0102030405060708090a0b0c0d0e0f',
    'Choice', 'line
break "x"', 3, 3, 0, 5, x'f20102030405060708090a0b0c0d0e0f');
INSERT INTO property_availability VALUES
    (x'bc0102030405060708090a0b0c0d0e0f', 2, x'e10102030405060708090a0b0c0d0e0f'),
    (x'bc0102030405060708090a0b0c0d0e0f', 1, x'e20102030405060708090a0b0c0d0e0f');
INSERT INTO property_options VALUES (x'bc0102030405060708090a0b0c0d0e0f', 2, x'f20102030405060708090a0b0c0d0e0f', 'kg'),
    (x'bc0102030405060708090a0b0c0d0e0f', 1, x'f10102030405060708090a0b0c0d0e0f', 'm3');
INSERT INTO classification_systems VALUES (1, x'e00102030405060708090a0b0c0d0e0f', 'System', '1.5', 2026, 1, 31),
    (2, x'e30102030405060708090a0b0c0d0e0f', 'Other', '', 1999, 12, 3);
INSERT INTO classification_items VALUES
    (1, x'e10102030405060708090a0b0c0d0e0f', x'e00102030405060708090a0b0c0d0e0f', zeroblob(16), 'W', 'Wall'),
    (2, x'e20102030405060708090a0b0c0d0e0f', x'e00102030405060708090a0b0c0d0e0f', x'e10102030405060708090a0b0c0d0e0f',
        'I', 'Inner wall');
INSERT INTO material_classifications VALUES (1, x'e20102030405060708090a0b0c0d0e0f');
INSERT INTO material_values VALUES (1, x'010102030405060708090a0b0c0d0e0f', 0, NULL),
    (1, x'020102030405060708090a0b0c0d0e0f', 1, -7), (1, x'030102030405060708090a0b0c0d0e0f', 2, 0.375),
    (1, x'040102030405060708090a0b0c0d0e0f', 3, 'A1-A3=1;C3=2'), (1, x'050102030405060708090a0b0c0d0e0f', 4, 1),
    (2, x'060102030405060708090a0b0c0d0e0f', 5, x'f10102030405060708090a0b0c0d0e0f');
INSERT INTO element_values VALUES
    (x'100102030405060708090a0b0c0d0e0f', x'020102030405060708090a0b0c0d0e0f', 4, 0),
    (x'200102030405060708090a0b0c0d0e0f', x'010102030405060708090a0b0c0d0e0f', 2, 0.25);
INSERT INTO members VALUES (2, 'ben', ''), (1, 'anna', 'Anna Größe');
INSERT INTO reservations VALUES ('BuildingMaterials', 2);
INSERT INTO requests VALUES ('ClassificationsAndProperties', 2);
INSERT INTO databases VALUES (2, x'cd0102030405060708090a0b0c0d0e0f', 2, 'Schnitt "A"');
INSERT INTO favourites VALUES (2, 'Door', 0, '', 0.5, 1.0, 3.0);
INSERT INTO placed_objects VALUES (2, x'de0102030405060708090a0b0c0d0e0f', x'cd0102030405060708090a0b0c0d0e0f',
    'other', 1.5, -2.0, 0.25, 4.0, 8.0);
INSERT INTO object_parameters VALUES
    ('favourite Wide', 1, 'size', 0, 0, 0, 0, 7.5, x''),
    -- "é🏠" as a single text
    ('object {DE010203-0405-0607-0809-0A0B0C0D0E0F}', 2, 'text', 1, 0, 0, 0, 0.0, x'e9003cd8e0df'),
    ('object {DE010203-0405-0607-0809-0A0B0C0D0E0F}', 1, 'addon_update', 0, 0, 0, 0, 1.0, x'');
