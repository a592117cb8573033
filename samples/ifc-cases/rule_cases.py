"""Cases of the import's rules: openings, choice of the body, files that are broken or large, texts, schemas, stated
quantities, materials, floor areas, and what is part of what."""
from body_cases import CUBE_FACES, EXACT, cube_brep, mapped, operator3, surface_model
from ifc_file import IfcFile, quoted

CASES, LARGE = [], []
BOX = "4*0.25*2"  # the wall most rules are tried on: 2 m3, 8 m2 of side


def case(make, name=None, register=CASES, **options):
    """Names the case by its function."""
    register.append((name or make.__name__.replace("_", "-"), make, options))
    return make


def large(make):
    return case(make, register=LARGE)


def made(cases):
    for name, make, options in cases:
        f = IfcFile(name, **options)
        make(f)
        yield f


def wall(f, gid="w", **more):
    return f.wall(gid, f.box(4, 0.25, 2), **more)


# Openings

def with_openings(name, volume, *boxes):
    """BOXES: width, depth, height and the corner in the wall's coordinates; the wall is 4 x 0.25 x 2."""
    def make(f):
        host = wall(f)
        for width, depth, height, x, y, z in boxes:
            f.opening(host, f.box(width, depth, height), f.at(x, y, z))
        f.expect("w", volume=volume, tolerance=EXACT)
        f.row("", "elements", "1")
    case(make, name)


with_openings("opening-through", f"{BOX} - 1*0.25*1", (1, 0.25, 1, 1, 0, 0.5))
with_openings("opening-beyond-both-faces", f"{BOX} - 1*0.25*1", (1, 2, 1, 1, -1, 0.5))
with_openings("opening-recess", f"{BOX} - 1*0.1*1", (1, 0.1, 1, 1, 0, 0.5))
with_openings("opening-over-the-edge", f"{BOX} - 0.5*0.25*1", (1, 0.25, 1, 3.5, 0, 0.5))
with_openings("openings-overlapping", f"{BOX} - (1*1 + 1*1 - 0.5*0.5)*0.25", (1, 0.25, 1, 1, 0, 0.25),
              (1, 0.25, 1, 1.5, 0, 0.75))
with_openings("openings-touching", f"{BOX} - 2*1*0.25", (1, 0.25, 1, 1, 0, 0), (1, 0.25, 1, 2, 0, 0))
with_openings("opening-twice", f"{BOX} - 1*0.25*1", (1, 0.25, 1, 1, 0, 0.5), (1, 0.25, 1, 1, 0, 0.5))
with_openings("opening-elsewhere", BOX, (1, 0.25, 1, 10, 0, 0))


@case
def opening_flat(f):
    f.opening(wall(f), f.extrude(f.outline(f.closed((1, 0.1), (2, 0.1), (3, 0.1))), 1))
    f.expect("w", volume=BOX, tolerance=EXACT)


@case
def opening_filled(f):
    made_opening = f.opening(wall(f), f.box(1, 0.25, 1), f.at(1, 0, 0.5))
    door = f.element("DOOR", "d", f.box(1, 0.05, 1), f.at(1, 0, 0.5), (2.1, 0.9, None, None, None))
    f("RELFILLSELEMENT", "'f'", None, None, None, made_opening, door)
    f.expect("w", volume=f"{BOX} - 1*0.25*1", tolerance=EXACT)
    f.expect("d", width="0.9", height="2.1", area="0.9*2.1", tolerance=EXACT)
    f.row("", "elements", "2")


@large
def opening_1000_times(f):
    host = f.wall("w", f.box(201, 0.25, 11))
    for i in range(1000):
        f.opening(host, f.box(0.5, 0.25, 0.5), f.at(0.5 + 2 * (i % 100), 0, 0.5 + i // 100))
    f.expect("w", volume="201*0.25*11 - 1000*0.5*0.25*0.5", tolerance=1e-5)


@large
def faces_200000(f):
    """A slab 4 x 2.5 x 0.3 whose upper and lower faces are grids of 400 x 250 quadrilaterals."""
    columns, rows = 400, 250
    points = [(x * 4 / columns, y * 2.5 / rows, z) for z in (0, 0.3) for y in range(rows + 1) for x in range(columns + 1)]
    upper, wide = (columns + 1) * (rows + 1), columns + 1
    grid = [(a, a + 1, a + 1 + wide, a + wide) for y in range(rows) for a in range(y * wide, y * wide + columns)]
    rim = [*range(columns), *(y * wide + columns for y in range(rows)), *(rows * wide + x for x in range(columns, 0, -1)),
           *(y * wide for y in range(rows, 0, -1))]
    faces = [q[::-1] for q in grid] + [tuple(i + upper for i in q) for q in grid]
    faces += [(a, b, b + upper, a + upper) for a, b in zip(rim, rim[1:] + rim[:1])]
    polygons = [f("INDEXEDPOLYGONALFACE", "(" + ",".join(str(i + 1) for i in q) + ")") for q in faces]
    f.element("SLAB", "s", f("POLYGONALFACESET", f("CARTESIANPOINTLIST3D", points), ".T.", polygons, None))
    f.expect("s", volume="4*2.5*0.3", area="10 + 0.3*(4 + 2.5)", tolerance=1e-6)


# Choice of the body, and bodies that are none

def choice(name, volume, *representations):
    """REPRESENTATIONS: name, type and height of a 1 x 1 box."""
    def make(f):
        f.wall("w", [f.shape(f.box(1, 1, height), title, kind) for title, kind, height in representations])
        f.expect("w", volume=volume, tolerance=EXACT)
    case(make, name)


choice("body-by-name", "1*1*3", ("'Box'", "'BoundingBox'", 5), ("'Body'", "'SweptSolid'", 3), ("'Axis'", "'Curve2D'", 7))
choice("body-without-name", "1*1*3", ("'IAI'", "'SweptSolid'", 5), (None, "'SweptSolid'", 3))
choice("body-by-type", "1*1*3", ("'Box'", "'BoundingBox'", 5), ("'IAI'", "'SweptSolid'", 3),
       ("'Clearance'", "'SweptSolid'", 7))
choice("body-facetation", "1*1*3", ("'Facetation'", "'Brep'", 3), ("'IAI'", "'SweptSolid'", 5))


def no_body(name, items, lists, warning=None):
    def make(f):
        f.wall("w", items(f))
        f.expect("w", volume="0")
        f.row("w", "volume source", "none")
        f.row("w", "lists", lists + ", without material")
        if warning:
            f.row("", "warning", warning)
    case(make, name)


def repeats_itself(f):
    item, source, shape = f.forward(1), f.forward(2), f.forward(3)
    f("MAPPEDITEM", source, f.forward(5))
    f("REPRESENTATIONMAP", f.origin, shape)
    f("SHAPEREPRESENTATION", f.context, "'Body'", "'MappedRepresentation'", [item])
    f.point(0, 0, 0)
    f("CARTESIANTRANSFORMATIONOPERATOR3D", None, None, f.forward(0), None, None)
    return [item]


def clips_itself(f):
    return f("BOOLEANCLIPPINGRESULT", ".DIFFERENCE.", f.forward(1), f.forward(1))


def curved_brep(f):
    points = [f.point(*p) for p in ((0, 0, 0), (1, 0, 0), (0, 1, 0))]
    cylinder = f("CYLINDRICALSURFACE", f.origin, 1)
    faces = [f("ADVANCEDFACE", [f("FACEOUTERBOUND", f("POLYLOOP", points), ".T.")], cylinder, ".T.")]
    return f("ADVANCEDBREP", f("CLOSEDSHELL", faces))


no_body("no-body-flat-profile", lambda f: f.box(4, 0, 2), "without quantity")
no_body("no-body-line-profile", lambda f: f.extrude(f.outline(f.closed((0, 0), (2, 0))), 2), "without quantity")
no_body("no-body-copy-of-itself", repeats_itself, "without quantity")
no_body("no-body-clips-itself", clips_itself, "without quantity", "nested too deep")
no_body("no-body-curved-faces", curved_brep, "without quantity", "IfcAdvancedFace over IfcCylindricalSurface is not computed")
no_body("no-volume-open-cube", lambda f: surface_model(f, CUBE_FACES[:5]), "without volume")


@case
def open_shell_with_layers(f):
    host = f.wall("w", surface_model(f, CUBE_FACES[:3]))
    f.made_of(f.layers((f.material("Glass"), 0.02)), host)
    f.expect("w", volume="3*2*2*0.02", area="3*2*2", tolerance=EXACT)
    f.row("w", "volume source", "shell")
    f.row("w", "area source", "layers")


@case
def placement_of_itself(f):
    f.wall("w", f.box(4, 0.25, 2), f("LOCALPLACEMENT", f.forward(1), f.origin))
    f.expect("w", volume=BOX, tolerance=EXACT)


@case
def bodies_of_ten_copies(f):
    f.wall("w", [mapped(f, operator3(f, 1)) for _ in range(10)])
    f.expect("w", volume="10*1*2*3", tolerance=EXACT)


# Texts and schemas

def named(name, written, text, warning=None):
    def make(f):
        wall(f, name=written)
        f.row("w", "name", text)
        if warning:
            f.row("", "warning", warning)
    case(make, name)


def shift_jis(text):
    return "".join(f"\\X\\{byte:02X}" for byte in text.encode("cp932"))


named("text-latin-1-escapes", "W\\X\\E4nde \\S\\|", "Wände ü")
named("text-s-escape-apostrophe", "d\\S\\'e", "d§e")
named("text-s-escape-apostrophe-last", "d\\S\\'", "d§")
named("text-windows-1252", "a \\X\\93b\\X\\94 \\X\\96 c", "a “b” – c", "1252")
named("text-shift-jis", shift_jis("１階コンクリート柱"), "１階コンクリート柱", "CP932")
named("text-utf-8-raw", "Wände 階", "Wände 階")
named("raw-latin-1", "Wände é", "Wände é")
named("text-utf-16", "\\X2\\968E00E4\\X0\\", "階ä")
named("text-utf-16-mark-and-half-unit", "\\X2\\FEFF5BF800\\X0\\", "寸")
named("text-utf-32", "\\X4\\0001F3E0\\X0\\", "🏠")
named("text-page-directive", "\\PB\\\\S\\1", "ą")
named("text-doubled-signs", "it''s a \\\\", "it's a \\")


def of_schema(written, read, warning=None):
    def make(f):
        wall(f)
        f.expect("w", volume=BOX, tolerance=EXACT)
        f.row("", "schema", read)
        if warning:
            f.row("", "warning", warning)
    case(make, "schema-" + written.lower().replace("_", "-"), schema=written)


for written, read in (("IFC2X3", "IFC2X3"), ("IFC2X3_TC1", "IFC2X3"), ("IFC4", "IFC4"), ("IFC4_ADD2", "IFC4"),
                      ("IFC4X3_ADD2", "IFC4X3"), ("IFC4X3", "IFC4X3")):
    of_schema(written, read)
for written, read in (("IFC2X_FINAL", "IFC2X3"), ("IFC2X2_FINAL", "IFC2X3"), ("IFC4RC4", "IFC4"), ("IFC4X1", "IFC4X3"),
                      ("IFC4X3_RC2", "IFC4X3")):
    of_schema(written, read, written)


def infrastructure(f):
    f.element("PAVEMENT", "p", f.box(10, 4, 0.3))
    kerb = f.element("KERB", "k", f.box(10, 0.2, 0.3))
    cut = f.element("EARTHWORKSCUT", "cut", f.box(1, 0.2, 0.1))
    f("RELVOIDSELEMENT", "'v'", None, None, None, kerb, cut)
    f.expect("p", volume="10*4*0.3", tolerance=EXACT)
    f.expect("k", volume="10*0.2*0.3 - 1*0.2*0.1", tolerance=EXACT)
    f.row("k", "type", "IfcKerb")
    f.row("", "elements", "2")


case(infrastructure, schema="IFC4X3_ADD2")


# Stated quantities

def stated(name, volume, source, *sets, lists="without material", area=None, **options):
    """SETS: name of a quantity set, or of a property set if its values are texts, and the values of the wall."""
    def make(f):
        host = wall(f)
        for title, values in sets:
            is_property = any(isinstance(v, str) for v in values.values())
            (f.properties if is_property else f.stated)(host, title, **values)
        f.expect("w", volume=volume, tolerance=1e-9)
        f.row("w", "volume source", source)
        f.row("w", "lists", lists)
        if area:
            f.expect("w", area=area, tolerance=1e-9)
    case(make, "stated-" + name, **options)


BASE, QTO = "BaseQuantities", "Qto_WallBaseQuantities"
stated("net", "1.9", "net", (BASE, {"NetVolume": 1.9, "GrossVolume": 2.1, "NetSideArea": 7.5}), area="7.5")
stated("gross", "2.1", "gross", (BASE, {"GrossVolume": 2.1, "GrossSideArea": 8.5}), area="8.5")
stated("standard-set-first", "1.8", "net", (BASE, {"NetVolume": 1.9}), (QTO, {"NetVolume": 1.8}))
stated("nameless-set", "1.7", "net", (None, {"volume": 1.7, "left_face_area": 7, "right_face_area": 8}), area="(7 + 8)/2")
stated("dimensions", "1.6", "net", ("PSet_Revit_Dimensions", {"Volume": "IFCVOLUMEMEASURE(1.6)", "Area": "IFCAREAMEASURE(7.)"}),
       area="7")
stated("dimensions-in-japanese", "1.6", "net", ("\\X2\\5BF86CD5\\X0\\", {"\\X2\\4F537A4D\\X0\\": "IFCVOLUMEMEASURE(1.6)"}))
stated("dimensions-of-no-measure", BOX, "geometry", ("Dimensions", {"Volume": "IFCREAL(1.6)"}))
stated("rounded-after-geometry", BOX, "geometry", ("Tekla Quantity", {"Volume": "IFCVOLUMEMEASURE(1.9)"}))
stated("part-of-a-name", BOX, "geometry", ("Nombre", {"Volume brique": "IFCVOLUMEMEASURE(1.9)"}))
stated("part-of-a-name-in-base", BOX, "geometry", (BASE, {"brick_volume": 1.9}))
stated("in-cubic-feet", BOX, "geometry", (BASE, {"NetVolume": 70.63}), lists="without material, corrected")
stated("in-cubic-millimetres", BOX, "geometry", (BASE, {"NetVolume": 2e6, "NetSideArea": 1e6}), area="8 + 1 + 0.5",
       lists="without material, corrected")


@case
def stated_without_body(f):
    f.properties(f.wall("w"), "Tekla Quantity", Volume="IFCVOLUMEMEASURE(0.8)")
    f.expect("w", volume="0.8", tolerance=1e-9)


@case
def roof_and_covering(f):
    roof = f.element("ROOF", "r", f.box(5, 4, 0.2))
    f.properties(roof, "Pset_RoofCommon", TotalArea="IFCAREAMEASURE(21.)", ProjectedArea="IFCAREAMEASURE(20.)")
    covering = f.element("COVERING", "c", f.box(5, 4, 0.02))
    f.properties(covering, "Pset_CoveringCommon", TotalThickness="IFCPOSITIVELENGTHMEASURE(0.02)")
    f.expect("r", volume="5*4*0.2", area="21", tolerance=EXACT)
    f.expect("c", volume="5*4*0.02", area="5*4*0.02/0.02", tolerance=EXACT)


@case
def density_by_weight(f):
    beam = f.element("BEAM", "b")
    f.stated(beam, BASE, NetVolume=0.79897, NetWeight=1957.46)  # kg: the project names no unit of mass
    f.made_of(f.material("Concrete"), beam)
    f.expect("b", volume="0.79897", tolerance=1e-9)
    f.expect("", tolerance=1e-6, density_of_Concrete="1957.46/0.79897")


# Materials: a wall of 2 m3 and 8 m2, stated

def shares(name, *figures, lists="none"):
    """Decorates what makes the materials; FIGURES: material and formula of its volume."""
    def decorate(make):
        def whole_case(f):
            host = f.wall("w")
            f.stated(host, BASE, NetVolume=2, NetSideArea=8)
            make(f, host, [f.material("Brick"), f.material("Wood")])
            for material, formula in figures:
                f.expect("w", tolerance=1e-9, **{"volume of " + material: formula})
            f.row("w", "lists", lists)
        return case(whole_case, "material-" + name)
    return decorate


@shares("layers", ("Brick", "2*0.24/0.32"), ("Wood", "2*0.08/0.32"))
def _(f, host, m):
    f.made_of(f.layers((m[0], 0.24), (m[1], 0.08), (m[1], 0)), host)


@shares("air-layer", ("Brick", "2*0.1/0.2"), ("Air", "2*0.04/0.2"), ("Wood", "2*0.06/0.2"))
def _(f, host, m):
    air = f("MATERIALLAYER", None, 0.04, ".T.", "'Air'", None, None, None)
    layers = [f("MATERIALLAYER", one, d, None, None, None, None, None) for one, d in ((m[0], 0.1), (m[1], 0.06))]
    f.made_of(f("MATERIALLAYERSET", [layers[0], air, layers[1]], None, None), host)


@shares("complex-quantities", ("Brick", "1.5"), ("Wood", "0.5"))
def _(f, host, m):
    parts = [f("PHYSICALCOMPLEXQUANTITY", quoted(name), None, [f("QUANTITYVOLUME", "'NetVolume'", None, None, v, None)],
               "'Layer'", None, None) for name, v in (("Brick", 1.5), ("Wood", 0.5))]
    f.define(host, f("ELEMENTQUANTITY", "'q'", None, "'Qto_Parts'", None, None, parts))
    f.made_of(f("MATERIALLIST", m), host)


@shares("layers-of-the-type", ("Brick", "2*0.3/0.4"), ("Wood", "2*0.1/0.4"))
def _(f, host, m):
    f.made_of(f.layers((m[1], 0.1), (m[0], 0.3)), f.type_of("WALLTYPE", "T", host))
    f.made_of(f("MATERIALLIST", m), host)


@shares("layers-of-a-sibling", ("Brick", "2*0.3/0.4"), ("Wood", "2*0.1/0.4"))
def _(f, host, m):
    sibling = f.wall("sibling")
    f.type_of("WALLTYPE", "T", host, sibling)
    f.made_of(f.layers((m[1], 0.1), (m[0], 0.3)), sibling)
    f.made_of(f("MATERIALLIST", m), host)


@shares("layers-named-as-the-type", ("Brick", "2*0.3/0.4"), ("Wood", "2*0.1/0.4"))
def _(f, host, m):
    f.type_of("WALLTYPE", "T", host)
    f.layers((m[1], 0.1), (m[0], 0.3), name="T")
    f.made_of(f("MATERIALLIST", m), host)


@shares("layers-of-others", ("Brick", "2/2"), ("Wood", "2/2"), lists="shares unknown")
def _(f, host, m):
    f.made_of(f.layers((f.material("Steel"), 0.1), (m[0], 0.3)), f.type_of("WALLTYPE", "T", host))
    f.made_of(f("MATERIALLIST", m), host)


@shares("constituents", ("Brick", "2*0.1/0.4"), ("Wood", "2*0.3/0.4"))
def _(f, host, m):
    parts = [f("MATERIALCONSTITUENT", None, None, one, share, None) for one, share in zip(m, (0.1, 0.3))]
    f.made_of(f("MATERIALCONSTITUENTSET", None, None, parts), host)


@shares("name-with-widths", ("Brick", "2/2"), ("Wood", "2/2"), lists="shares unknown")
def _(f, host, m):
    f.type_of("WALLTYPE", "Wall-300Brk-100Wd", host)
    f.made_of(f("MATERIALLIST", m), host)


# Floor areas

def floor_area(name, area, source, *objects):
    """OBJECTS: kind, set and values; a space's kind may be EXTERNAL, and PART is in the space before it."""
    def make(f):
        before = None
        for number, (kind, title, values) in enumerate(objects):
            places = {"BUILDING": (None, ".ELEMENT.", None, None, None), "BUILDINGSTOREY": (None, ".ELEMENT.", 0)}
            space = (None, ".ELEMENT.", ".EXTERNAL." if kind == "EXTERNAL" else ".INTERNAL.", None)
            one = f(kind if kind in places else "SPACE", quoted(str(number)), None, None, None, None, f.placement, None,
                    *places.get(kind, space))
            (f.properties if any(isinstance(v, str) for v in values.values()) else f.stated)(one, title, **values)
            if kind == "PART":
                f.parts(before, one)
            else:
                before = one
        f.row("", "floor area source", source)
        f.expect("", floor_area=area, tolerance=1e-9)
    case(make, "floor-area-" + name)


PLANNED = ("BUILDING", "Pset_BuildingCommon", {"GrossPlannedArea": "IFCAREAMEASURE(120.)"})
STOREYS = [("BUILDINGSTOREY", BASE, {"GrossFloorArea": a}) for a in (70, 50)]
SPACES = [("SPACE", BASE, {"GrossFloorArea": a, "NetFloorArea": a - 1}) for a in (30, 20)]
NET_STOREY, NET_SPACE = ("BUILDINGSTOREY", BASE, {"NetFloorArea": 45}), ("SPACE", BASE, {"NetFloorArea": 18})
GSA, OUTSIDE = ("SPACE", "GSA Space Areas", {"GSA_BIM_Area": 12}), ("EXTERNAL", BASE, {"GrossFloorArea": 9})
AREA = ("SPACE", "PSet_Revit_Dimensions", {"Area": "IFCAREAMEASURE(11.)"})
floor_area("building", "241.5", "building", ("BUILDING", BASE, {"GrossFloorArea": 241.5}), *STOREYS, *SPACES)
floor_area("storeys", "70 + 50", "storeys gross", PLANNED, *STOREYS, *SPACES)
floor_area("spaces", "30 + 20", "spaces gross", *SPACES, NET_STOREY, OUTSIDE)
floor_area("spaces-mixed", "30 + 20 + 18 + 12 + 11", "spaces mixed", *SPACES, NET_SPACE, GSA, AREA)
floor_area("storeys-net", "45", "storeys net", NET_STOREY, NET_SPACE)
floor_area("spaces-net", "18", "spaces net", NET_SPACE, OUTSIDE)
floor_area("spaces-other", "12 + 11", "spaces other", GSA, AREA)
floor_area("space-in-a-space", "30 + 20", "spaces gross", *SPACES, ("PART", BASE, {"GrossFloorArea": 5}))
floor_area("planned", "0", "none", PLANNED)


# What is part of what

@case
def whole_of_parts(f):
    whole = f.element("ROOF", "whole", f.box(5, 4, 0.5))
    f.parts(whole, f.element("SLAB", "a", f.box(5, 2, 0.2)), f.element("SLAB", "b", f.box(5, 3, 0.2)))
    f.expect("a", volume="5*2*0.2", tolerance=EXACT)
    f.expect("b", volume="5*3*0.2", tolerance=EXACT)
    f.row("whole", "lists", "sum of parts")
    f.row("", "elements", "2")


@case
def layers_as_parts(f):
    whole = wall(f, "whole")
    f.parts(whole, *(f.element("BUILDINGELEMENTPART", gid, f.box(4, d, 2)) for gid, d in (("a", 0.1), ("b", 0.15))))
    f.expect("a", volume="4*0.1*2", tolerance=EXACT)
    f.expect("b", volume="4*0.15*2", tolerance=EXACT)
    f.row("", "elements", "2")


@case
def curtain_wall(f):
    whole = f.element("CURTAINWALL", "whole")
    plate = f.element("PLATE", "glass", f.box(2, 0.02, 3))
    f.parts(whole, plate, f.element("MEMBER", "mullion", f.box(0.05, 0.1, 3)))
    f.expect("glass", volume="2*0.02*3", tolerance=EXACT)
    f.expect("mullion", volume="0.05*0.1*3", tolerance=EXACT)
    f.row("", "elements", "2")


@case
def group_storey_and_furniture(f):
    one, chair = wall(f), f.element("FURNISHINGELEMENT", "chair", cube_brep(f), ending=())
    group = f("GROUP", "'group'", None, None, None, None)
    f("RELASSIGNSTOGROUP", "'a'", None, None, None, [one, chair], None, group)
    f("COVERING", "'c'", None, None, None, None, f.placement, None, None, None)
    f.in_storey("First", one, chair)
    f.expect("w", volume=BOX, tolerance=EXACT)
    f.row("w", "storey", "First")
    f.row("c", "lists", "without quantity, without material")
    f.row("", "elements", "2")
    f.row("", "left out", "1 IfcFurnishingElement")


@case
def window_by_its_type(f):
    window = f.element("WINDOW", "n", ending=(None,) * 5)
    f.stated(window, BASE, Area=1.8)
    f.expect("n", area="1.8", tolerance=1e-9)
    f.element("WINDOW", "m", ending=(1.2, 1.5, None, None, None))
    f.expect("m", area="1.2*1.5", height="1.2", width="1.5", tolerance=1e-9)


def rule_cases():
    return made(CASES)


def large_cases():
    return made(LARGE)
