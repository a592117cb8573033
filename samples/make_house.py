#!/usr/bin/env python3
"""Writes house.ifc, the sample house of this folder: python3 make_house.py > house.ifc

A bungalow of 10 m x 8 m in SI units. Every quantity is chosen so that the sums in README.md can be done by hand. All
elements but the steel column state their base quantities; the column has its extruded solid only.
"""
import hashlib

LETTERS = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$"
LENGTH, WIDTH, HEIGHT = 10.0, 8.0, 3.0
OUTER, INNER = 0.50, 0.10

lines = []


def add(text):
    lines.append(f"#{len(lines) + 1}={text};")
    return f"#{len(lines)}"


def guid(name):
    """A GlobalId that stays the same however often the file is written: 128 bits as 22 letters, the first 0 to 3."""
    bits = int.from_bytes(hashlib.sha256(name.encode()).digest()[:16], "big")
    return "'" + "".join(LETTERS[(bits >> shift) & 63] for shift in range(126, -1, -6)) + "'"


def number(value):
    text = f"{value:.6f}".rstrip("0")
    return text


def references(items):
    return "(" + ",".join(items) + ")"


def point(*coordinates):
    return add(f"IFCCARTESIANPOINT(({','.join(number(c) for c in coordinates)}))")


def placement(x, y, z, relative_to):
    axes = add(f"IFCAXIS2PLACEMENT3D({point(x, y, z)},$,$)")
    return add(f"IFCLOCALPLACEMENT({relative_to},{axes})")


def box(length, width, height, layer):
    """A body from the placement's corner along the axes, on a presentation layer."""
    middle = add(f"IFCAXIS2PLACEMENT2D({point(length / 2, width / 2)},$)")
    profile = add(f"IFCRECTANGLEPROFILEDEF(.AREA.,$,{middle},{number(length)},{number(width)})")
    solid = add(f"IFCEXTRUDEDAREASOLID({profile},{origin},{up},{number(height)})")
    body = add(f"IFCSHAPEREPRESENTATION({context},'Body','SweptSolid',({solid}))")
    layers.setdefault(layer, []).append(body)
    return add(f"IFCPRODUCTDEFINITIONSHAPE($,$,({body}))")


def quantities(element, name, **values):
    kinds = {"Volume": "VOLUME", "Area": "AREA", "Width": "LENGTH", "Height": "LENGTH"}
    items = []
    for quantity, value in values.items():
        kind = next(kinds[ending] for ending in kinds if quantity.endswith(ending))
        items.append(add(f"IFCQUANTITY{kind}('{quantity}',$,$,{number(value)},$)"))
    key = f"{name} of {element}"
    of = add(f"IFCELEMENTQUANTITY({guid(key)},$,'{name}',$,$,{references(items)})")
    add(f"IFCRELDEFINESBYPROPERTIES({guid('relation ' + key)},$,$,$,({element}),{of})")


def layer_set(name, *parts):
    items = [add(f"IFCMATERIALLAYER({materials[m]},{number(t)},$,$,$,$,$)") for m, t in parts]
    return add(f"IFCMATERIALLAYERSET({references(items)},'{name}',$)")


def made_of(what, *elements):
    key = f"material of {references(elements)}"
    add(f"IFCRELASSOCIATESMATERIAL({guid(key)},$,$,$,{references(elements)},{what})")


def element(entity, name, x, y, z, size, layer, ending):
    shape = box(*size, layer)
    made = add(f"{entity}({guid(name)},$,'{name}',$,$,{placement(x, y, z, storey_place)},{shape},$,{ending})")
    contained.append(made)
    return made


def opening(name, wall, x, y, z, size):
    shape = box(*size, "Openings")
    made = add(f"IFCOPENINGELEMENT({guid(name)},$,'{name}',$,$,{placement(x, y, z, storey_place)},{shape},$,.OPENING.)")
    add(f"IFCRELVOIDSELEMENT({guid('void ' + name)},$,$,$,{wall},{made})")
    return made


def fill(entity, name, wall, x, y, z, width, height, along_x, kind):
    """A door or window of this width and height in an opening through the whole wall."""
    size = (width, OUTER, height) if along_x else (OUTER, width, height)
    hole = opening("Opening of " + name, wall, x, y, z, size)
    pane = (width, 0.1, height) if along_x else (0.1, width, height)
    made = element(entity, name, x, y, z, pane, "Doors and windows", f"{number(height)},{number(width)},{kind},$,$")
    quantities(made, "Qto_" + ("Door" if entity == "IFCDOOR" else "Window") + "BaseQuantities", Width=width,
               Height=height, Area=width * height)
    add(f"IFCRELFILLSELEMENT({guid('fill ' + name)},$,$,$,{hole},{made})")


layers, contained = {}, []

# Units, directions and the project.
length = add("IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.)")
area = add("IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.)")
volume = add("IFCSIUNIT(*,.VOLUMEUNIT.,$,.CUBIC_METRE.)")
mass = add("IFCSIUNIT(*,.MASSUNIT.,.KILO.,.GRAM.)")
angle = add("IFCSIUNIT(*,.PLANEANGLEUNIT.,$,.RADIAN.)")
units = add(f"IFCUNITASSIGNMENT({references([length, area, volume, mass, angle])})")
up = add("IFCDIRECTION((0.,0.,1.))")
origin = add(f"IFCAXIS2PLACEMENT3D({point(0, 0, 0)},$,$)")
context = add(f"IFCGEOMETRICREPRESENTATIONCONTEXT($,'Model',3,1.E-05,{origin},$)")
project = add(f"IFCPROJECT({guid('project')},$,'Sample house',$,$,$,$,({context}),{units})")
place = add(f"IFCLOCALPLACEMENT($,{origin})")
site = add(f"IFCSITE({guid('site')},$,'Site',$,$,{place},$,$,.ELEMENT.,$,$,$,$,$)")
house = add(f"IFCBUILDING({guid('building')},$,'House',$,$,{placement(0, 0, 0, place)},$,$,.ELEMENT.,$,$,$)")
storey_place = placement(0, 0, 0, place)
storey = add(f"IFCBUILDINGSTOREY({guid('storey')},$,'Ground floor',$,$,{storey_place},$,$,.ELEMENT.,0.)")
for whole, part in ((project, site), (site, house), (house, storey)):
    add(f"IFCRELAGGREGATES({guid(f'parts of {whole}')},$,$,$,{whole},({part}))")
quantities(house, "Qto_BuildingBaseQuantities", GrossFloorArea=LENGTH * WIDTH)

# Materials; the screed says its density here, the steel's stands in the material table.
materials = {
    name: add(f"IFCMATERIAL('{name}',$,$)")
    for name in ("Concrete C25/30", "XPS insulation", "Cement screed", "Facing brick", "Mineral wool, facade",
                 "Sand-lime brick", "Lime-cement plaster", "CLT", "Mineral wool, flat roof", "Bitumen membrane",
                 "Plasterboard", "Mineral wool, partition", "Structural steel")
}
density = add("IFCPROPERTYSINGLEVALUE('MassDensity',$,IFCMASSDENSITYMEASURE(1850.),$)")
add(f"IFCMATERIALPROPERTIES('Pset_MaterialCommon',$,({density}),{materials['Cement screed']})")

# Ground slab: 80 m2, 0.35 m.
slab_layers = layer_set("Ground slab", ("Cement screed", 0.05), ("XPS insulation", 0.10), ("Concrete C25/30", 0.20))
slab = element("IFCSLAB", "Ground slab", 0, 0, -0.35, (LENGTH, WIDTH, 0.35), "Slabs", ".BASESLAB.")
quantities(slab, "Qto_SlabBaseQuantities", GrossArea=80.0, NetArea=80.0, GrossVolume=28.0, NetVolume=28.0)
made_of(slab_layers, slab)

# Outer walls: 0.50 m; north and south over the whole length, east and west between them.
wall_layers = layer_set("Outer wall", ("Facing brick", 0.10), ("Mineral wool, facade", 0.20),
                        ("Sand-lime brick", 0.18), ("Lime-cement plaster", 0.02))
walls = {}
for name, x, y, size, holes in (("North wall", 0, WIDTH - OUTER, (LENGTH, OUTER, HEIGHT), 0.0),
                                ("South wall", 0, 0, (LENGTH, OUTER, HEIGHT), 5.0),
                                ("East wall", LENGTH - OUTER, OUTER, (OUTER, WIDTH - 2 * OUTER, HEIGHT), 3.0),
                                ("West wall", 0, OUTER, (OUTER, WIDTH - 2 * OUTER, HEIGHT), 0.0)):
    walls[name] = element("IFCWALL", name, x, y, 0, size, "Outer walls", ".STANDARD.")
    gross = max(size[0], size[1]) * HEIGHT
    quantities(walls[name], "Qto_WallBaseQuantities", GrossSideArea=gross, NetSideArea=gross - holes,
               GrossVolume=gross * OUTER, NetVolume=(gross - holes) * OUTER)
made_of(wall_layers, *walls.values())

# Door of 1 m x 2 m and windows of 2 m x 1.5 m.
fill("IFCDOOR", "Front door", walls["South wall"], 2.0, 0, 0, 1.0, 2.0, True, ".DOOR.")
fill("IFCWINDOW", "Window south", walls["South wall"], 5.0, 0, 0.9, 2.0, 1.5, True, ".WINDOW.")
fill("IFCWINDOW", "Window east", walls["East wall"], LENGTH - OUTER, 3.0, 0.9, 2.0, 1.5, False, ".WINDOW.")

# Partition: 6 m long, plasterboard on both sides.
partition_layers = layer_set("Partition", ("Plasterboard", 0.0125), ("Mineral wool, partition", 0.075),
                             ("Plasterboard", 0.0125))
partition = element("IFCWALL", "Partition", 5.0, 0.5, 0, (INNER, 6.0, HEIGHT), "Partitions", ".PARTITIONING.")
quantities(partition, "Qto_WallBaseQuantities", GrossSideArea=18.0, NetSideArea=18.0, GrossVolume=1.8, NetVolume=1.8)
made_of(partition_layers, partition)

# Flat roof: 80 m2, 0.404 m.
roof_layers = layer_set("Flat roof", ("Bitumen membrane", 0.004), ("Mineral wool, flat roof", 0.24), ("CLT", 0.16))
roof = element("IFCROOF", "Flat roof", 0, 0, HEIGHT, (LENGTH, WIDTH, 0.404), "Roof", ".FLAT_ROOF.")
quantities(roof, "Qto_RoofBaseQuantities", GrossArea=80.0, NetArea=80.0, GrossVolume=32.32, NetVolume=32.32)
made_of(roof_layers, roof)

# Column: a bar of 0.1 m x 0.1 m x 3 m without stated quantities.
column = element("IFCCOLUMN", "Steel column", 7.5, 4.0, 0, (0.1, 0.1, HEIGHT), "Columns", ".COLUMN.")
made_of(materials["Structural steel"], column)

add(f"IFCRELCONTAINEDINSPATIALSTRUCTURE({guid('contents')},$,$,$,{references(contained)},{storey})")
for name, bodies in layers.items():
    add(f"IFCPRESENTATIONLAYERASSIGNMENT('{name}',$,{references(bodies)},$)")

print("""ISO-10303-21;
HEADER;
FILE_DESCRIPTION(('Sample house'),'2;1');
FILE_NAME('house.ifc','2026-01-01T00:00:00',(''),(''),'make_house.py','Kelvarnix','');
FILE_SCHEMA(('IFC4'));
ENDSEC;
DATA;""")
print("\n".join(lines))
print("ENDSEC;\nEND-ISO-10303-21;")
