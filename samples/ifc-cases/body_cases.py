"""Cases of bodies: each makes the body of one wall, whose volume (and area, half of the surface) is worked out by hand."""
from ifc_file import IfcFile, whole

CUBE_FACES = [[(0, 2, 3, 1)], [(4, 5, 7, 6)], [(0, 1, 5, 4)], [(2, 6, 7, 3)], [(0, 4, 6, 2)], [(1, 3, 7, 5)]]
CURVED, EXACT = 5e-3, 1e-6


def corners(width, depth, height, x=0, y=0, z=0):
    return [(x + (i & 1) * width, y + (i >> 1 & 1) * depth, z + (i >> 2) * height) for i in range(8)]


def shifted(faces, by):
    return [[tuple(i + by for i in loop) for loop in loops] for loops in faces]


def turned(faces):
    """Every other face the wrong way round."""
    return [[loop[::-1] for loop in loops] if n % 2 else loops for n, loops in enumerate(faces)]


def cube_brep(f, size=2, faces=CUBE_FACES, flag=".T.", **at):
    return f.brep(corners(size, size, size, **at), faces, flag)


# Faces

def inner_partition(f):
    points = [(x, y, z) for x in (0, 2, 4) for z in (0, 2) for y in (0, 1)]  # four points a section
    sections = [[(0, 2, 3, 1)], [(4, 5, 7, 6)], [(8, 9, 11, 10)]]
    sides = [[(a + p, a + 4 + p, a + 4 + q, a + q)] for a in (0, 4) for p, q in ((0, 1), (1, 3), (3, 2), (2, 0))]
    return f.brep(points, sections + sides)


def t_junction(f):
    points = corners(4, 1, 2) + [(2, 0, 2.00002), (2, 1, 2.00002)]  # of the upper face alone, 0.02 mm too high
    upper = [[(4, 8, 9, 6)], [(8, 5, 7, 9)]]
    return f.brep(points, [CUBE_FACES[0]] + upper + CUBE_FACES[2:])


def with_voids(f):
    outer = f.face_set("CLOSEDSHELL", corners(4, 4, 4), CUBE_FACES)
    inner = f.face_set("CLOSEDSHELL", corners(2, 2, 2, 1, 1, 1), CUBE_FACES)
    return f("FACETEDBREPWITHVOIDS", outer, [inner])


def polygonal_with_voids(f):
    points = corners(4, 3, 0.2) + corners(1, 1, 0.2, 1, 1)
    made = f("CARTESIANPOINTLIST3D", points)
    one = lambda loop: whole(*(i + 1 for i in loop))
    rings = [f("INDEXEDPOLYGONALFACEWITHVOIDS", one(CUBE_FACES[n][0]), f"({one(shifted(CUBE_FACES, 8)[n][0])})")
             for n in (0, 1)]
    sides = [f("INDEXEDPOLYGONALFACE", one(loops[0])) for loops in CUBE_FACES[2:] + shifted(CUBE_FACES, 8)[2:]]
    return f("POLYGONALFACESET", made, ".T.", rings + sides, None)


def triangulated(f, through=None):
    points = f("CARTESIANPOINTLIST3D", corners(2, 2, 2))
    triangles = [t for (a, b, c, d), in CUBE_FACES for t in ((a, b, c), (a, c, d))]
    number = (lambda i: through.index(i + 1) + 1) if through else (lambda i: i + 1)
    return f("TRIANGULATEDFACESET", points, None, ".T.", "(" + ",".join(whole(*map(number, t)) for t in triangles) + ")",
             through and whole(*through))


def surface_model(f, faces=CUBE_FACES, points=None):
    return f("SHELLBASEDSURFACEMODEL", [f.face_set("OPENSHELL", points or corners(2, 2, 2), faces)])


def face_based(f):
    return f("FACEBASEDSURFACEMODEL", [f.face_set("CONNECTEDFACESET", corners(2, 2, 2), turned(CUBE_FACES))])


def sloped_gable(f):
    points = [(0, 0, 0), (4, 0, 0), (4, 0, 2), (2, 0, 3), (0, 0, 2)]
    points += [(x, 0.5, z) for x, _, z in points]
    sides = [[(i, (i + 1) % 5, (i + 1) % 5 + 5, i + 5)] for i in range(5)]
    return f.brep(points, [[(0, 1, 2, 3, 4)], [(5, 6, 7, 8, 9)]] + sides)


# name, body, volume, half of the surface or nothing, tolerance
FACES = [
    ("brep", cube_brep, "2*2*2", "6*2*2/2", EXACT),
    ("brep-inner-partition", inner_partition, "4*1*2", "4*1 + 4*2 + 1*2", EXACT),
    ("brep-unknown-bounds", lambda f: cube_brep(f, flag=".U."), "2*2*2", "12", EXACT),
    ("brep-false-bounds", lambda f: cube_brep(f, flag=".F."), "2*2*2", "12", EXACT),
    ("brep-unoriented", lambda f: cube_brep(f, faces=turned(CUBE_FACES)), "2*2*2", "12", EXACT),
    ("brep-t-junction", t_junction, "4*1*2", "4*1 + 4*2 + 1*2", 1e-4),
    ("brep-doubled-face", lambda f: cube_brep(f, faces=CUBE_FACES + CUBE_FACES[:1]), "2*2*2", "12", EXACT),
    ("brep-site-coordinates", lambda f: cube_brep(f, x=10000, y=-20000, z=300), "2*2*2", "12", EXACT),
    ("brep-gable", sloped_gable, "0.5*(4*2 + 4*1/2)", "(2*10 + 0.5*(4 + 2*2 + 2*sqrt(5)))/2", EXACT),
    ("brep-capped", lambda f: f.brep(corners(10, 1, 1), CUBE_FACES[:5]), "10*1*1", None, EXACT),
    ("brep-with-voids", with_voids, "4*4*4 - 2*2*2", "(6*16 + 6*4)/2", EXACT),
    ("brep-body-within-a-void", lambda f: [with_voids(f), f.box(1, 1, 1, 1.5, 1.5, 1.5)], "4**3 - 2**3 + 1**3", None, EXACT),
    ("brep-touching-at-an-edge", lambda f: f.brep(corners(1, 1, 1) + corners(1, 1, 1, 1, 1), CUBE_FACES +
                                                  shifted(CUBE_FACES, 8)), "2*1*1*1", "2*3", EXACT),
    ("polygonal-faces-with-voids", polygonal_with_voids, "(4*3 - 1*1)*0.2", "(2*(4*3 - 1) + 0.2*(14 + 4))/2", EXACT),
    ("triangles", triangulated, "2*2*2", "12", EXACT),
    ("triangles-by-another-list", lambda f: triangulated(f, (8, 7, 6, 5, 4, 3, 2, 1)), "2*2*2", "12", EXACT),
    ("shell-based-surface-model", surface_model, "2*2*2", "12", EXACT),
    ("face-based-surface-model", face_based, "2*2*2", "12", EXACT),
    ("two-sided-plate", lambda f: surface_model(f, [CUBE_FACES[2], CUBE_FACES[3]], corners(4, 0.3, 2.5)), "4*2.5*0.3",
     "4*2.5", EXACT),
]

# Profiles, each extruded by 2 m

L_WAY = ((0, 0), (2, 0), (2, 1))


def arc(f, radius, start, end, sense=".T.", points=False):
    def trim(angle, point):
        return [f"IFCPARAMETERVALUE({float(angle)})"] + ([f.point(*point)] if points else [])
    circle = f("CIRCLE", f.place2(), radius)
    return f("TRIMMEDCURVE", circle, trim(start, (radius, 0)), trim(end, (-radius, 0)), sense,
             ".CARTESIAN." if points else ".PARAMETER.")


def half_disk(f, *trims, **more):
    chord = f.polyline((-0.5, 0), (0.5, 0))
    segments = [f("COMPOSITECURVESEGMENT", ".CONTINUOUS.", ".T.", curve)
                for curve in (arc(f, 0.5, *trims, **more), chord)]
    return f.outline(f("COMPOSITECURVE", segments, ".F."))


def indexed_arc(f):
    points = f("CARTESIANPOINTLIST2D", [(0, 0), (2, 0), (2, 1), (1, 2), (0, 1)])  # a 2 x 1 base under half a disk
    return f.outline(f("INDEXEDPOLYCURVE", points, "(IFCLINEINDEX((1,2,3)),IFCARCINDEX((3,4,5)),IFCLINEINDEX((5,1)))", None))


def bezier(f):
    points = [f.point(*p) for p in ((0, 0), (0, 1), (1, 1), (1, 0))]
    spline = f("BSPLINECURVEWITHKNOTS", "3", points, ".UNSPECIFIED.", ".F.", ".F.", whole(4, 4), (0, 1), ".UNSPECIFIED.")
    chord = f.polyline((1, 0), (0, 0))
    return f.outline(f("COMPOSITECURVE", [f("COMPOSITECURVESEGMENT", ".CONTINUOUS.", ".T.", c) for c in (spline, chord)], ".F."))


def derived(f, *scales):
    operator = f("CARTESIANTRANSFORMATIONOPERATOR2DNONUNIFORM", None, None, f.point(0, 0), *scales)
    return f("DERIVEDPROFILEDEF", ".AREA.", None, f.rectangle(0.4, 0.2), operator, None)


def composite(f):
    return f("COMPOSITEPROFILEDEF", ".AREA.", None, [f.rectangle(0.4, 0.2), f.profile("CIRCLE", 0.1)], None)


def voided(f):
    return f.outline(f.closed((0, 0), (3, 0), (3, 2), (0, 2)), f.closed((1, 0.5), (2, 0.5), (2, 1.5), (1, 1.5)),
                     f("CIRCLE", f.place2(0.5, 1), 0.25))


def plain(kind, *measures):
    return lambda f: f.profile(kind, *measures)


ROUND = "(1 - pi/4)"  # what a fillet of radius 1 fills of its square
PROFILES = [
    ("rectangle", plain("RECTANGLE", 0.4, 0.3), "0.4*0.3"),
    ("rounded-rectangle", plain("ROUNDEDRECTANGLE", 0.4, 0.3, 0.05), f"0.4*0.3 - 4*{ROUND}*0.05**2"),
    ("hollow-rectangle", plain("RECTANGLEHOLLOW", 0.15, 0.038, 0.001, 0.001, 0.002),
     f"0.15*0.038 - 4*{ROUND}*0.002**2 - (0.148*0.036 - 4*{ROUND}*0.001**2)"),
    ("circle", plain("CIRCLE", 0.18), "pi*0.18**2"),
    ("hollow-circle", plain("CIRCLEHOLLOW", 0.1, 0.01), "pi*(0.1**2 - 0.09**2)"),
    ("ellipse", plain("ELLIPSE", 0.3, 0.2), "pi*0.3*0.2"),
    ("trapezium", plain("TRAPEZIUM", 0.4, 0.2, 0.3, 0.05), "(0.4 + 0.2)/2*0.3"),
    ("i-shape", plain("ISHAPE", 0.2, 0.3, 0.01, 0.015, 0.012, None, None),
     f"2*0.2*0.015 + 0.27*0.01 + 4*{ROUND}*0.012**2"),
    ("i-shape-asymmetric", plain("ASYMMETRICISHAPE", 0.3, 0.4, 0.01, 0.02, 0.015, 0.2, 0.01, 0.005, None, None, None, None),
     f"0.3*0.02 + 0.2*0.01 + (0.4 - 0.03)*0.01 + 2*{ROUND}*(0.015**2 + 0.005**2)"),
    ("l-shape", plain("LSHAPE", 0.1, 0.06, 0.01, 0.012, 0.006, None),
     f"0.1*0.01 + (0.06 - 0.01)*0.01 + {ROUND}*(0.012**2 - 2*0.006**2)"),
    ("u-shape", plain("USHAPE", 0.2, 0.08, 0.01, 0.012, 0.01, None, None),
     f"0.2*0.01 + 2*(0.08 - 0.01)*0.012 + 2*{ROUND}*0.01**2"),
    ("t-shape", plain("TSHAPE", 0.1, 0.12, 0.008, 0.01, 0.009, None, None, None, None),
     f"0.12*0.01 + (0.1 - 0.01)*0.008 + 2*{ROUND}*0.009**2"),
    ("c-shape", plain("CSHAPE", 0.2, 0.08, 0.002, 0.03, 0.004),
     f"0.002*(0.2 + 2*(0.08 - 0.002) + 2*(0.03 - 0.002)) - 4*{ROUND}*((0.004 + 0.002)**2 - 0.004**2)"),
    ("z-shape", plain("ZSHAPE", 0.2, 0.08, 0.01, 0.012, 0.01, None),
     f"0.2*0.01 + 2*(0.08 - 0.01)*0.012 + 2*{ROUND}*0.01**2"),
    ("centre-line", lambda f: f("CENTERLINEPROFILEDEF", ".CURVE.", None, f.polyline(*L_WAY), 0.1), "(2 + 1)*0.1"),
    ("derived", lambda f: derived(f, 2, 3), "0.4*2*0.2*3"),
    ("mirrored", lambda f: derived(f, -1, 1), "0.4*0.2"),
    ("composite", composite, "0.4*0.2 + pi*0.1**2"),
    ("voids", voided, "3*2 - 1*1 - pi*0.25**2"),
    ("trim-in-radians", lambda f: half_disk(f, 0, 3.141592653589793), "pi*0.5**2/2"),
    ("trim-against-its-points", lambda f: half_disk(f, 0, 1.0, points=True), "pi*0.5**2/2"),
    ("indexed-arc", indexed_arc, "2*1 + pi*1**2/2"),
    ("bezier", bezier, "18*(1/30)"),
    ("repeated-points", lambda f: f.outline(f.closed((0, 0), (2, 0), (2, 0), (2, 1), (2, 1), (0, 1), (0, 0))), "2*1"),
]

# Sweeps, primitives, booleans


def revolved(f, angle):
    axis = f("AXIS1PLACEMENT", f.point(0, 0, 0), f.direction(0, 1, 0))
    return f("REVOLVEDAREASOLID", f.rectangle(1, 1, x=2.5), f.origin, axis, angle)


def tapered(f):
    small = f.rectangle(1, 1, 0, 0)
    return f("EXTRUDEDAREASOLIDTAPERED", f.rectangle(2, 2, 0, 0), f.origin, f.up, 3, small)


def disk(f, way, inner=None):
    return f("SWEPTDISKSOLID", f.polyline(*way), 0.1, inner, None, None)


def along(f):
    return f("FIXEDREFERENCESWEPTAREASOLID", f.rectangle(0.2, 0.3, 0, 0), f.origin,
             f.polyline((0, 0, 0), (4, 0, 0), (4, 3, 0)), None, None, f.up)


def csg(f, operator):
    first, second = f("BLOCK", f.origin, 2, 2, 2), f("BLOCK", f.place3(1, 1, 1), 2, 2, 2)
    return f("CSGSOLID", f.cut(first, second, "BOOLEANRESULT", operator))


def half_space(f, x, y, z, normal, agreement=".F.", entity="HALFSPACESOLID", *more):
    return f(entity, f.plane(x, y, z, normal), agreement, *more)


def boxed(f):
    box = f("BOUNDINGBOX", f.point(-50, -50, -50), 100, 100, 100)
    return f.cut(f.box(4, 0.5, 3), half_space(f, 0, 0, 1, (0, 0, 1), ".F.", "BOXEDHALFSPACE", box))


def polygonal(f, x, normal):
    boundary = f.polyline((1, -1), (2, -1), (2, 1), (1, 1), (1, -1))
    cutter = half_space(f, x, 0, 1, normal, ".F.", "POLYGONALBOUNDEDHALFSPACE", f.origin, boundary)
    return f.cut(f.box(4, 0.5, 3), cutter)


def clipped_twice(f):
    once = f.cut(f.box(4, 0.5, 3), half_space(f, 0, 0, 2, (0, 0, 1)))
    return f.cut(once, half_space(f, 1, 0, 0, (1, 0, 0), ".T."))


def mapped(f, operator, items=None):
    source = f("REPRESENTATIONMAP", f.origin, f.shape(items or [f.box(1, 2, 3)]))
    return f("MAPPEDITEM", source, operator)


def operator3(f, *scales, x=None):
    scales = (*scales, None, None)[:3]
    axis = x and f.direction(*x)
    return f("CARTESIANTRANSFORMATIONOPERATOR3DNONUNIFORM", axis, None, f.point(1, 1, 1), scales[0], None, *scales[1:])


SOLIDS = [
    ("oblique-extrusion", lambda f: f.extrude(f.rectangle(1, 1), 2, direction=f.direction(0.6, 0, 0.8)), "1*1*2*0.8",
     "(2*1 + 2*2*0.8 + 2*1*2)/2", EXACT),
    ("tapered-extrusion", tapered, "3/3*(2*2 + 1*1 + 2*1)", None, EXACT),
    ("revolution-full", lambda f: revolved(f, 6.283185307179586), "1*1*2*pi*2.5", None, EXACT),
    ("revolution-quarter", lambda f: revolved(f, 1.5707963267948966), "1*1*pi/2*2.5", None, EXACT),
    ("disk", lambda f: disk(f, ((0, 0, 0), (0, 0, 5))), "pi*0.1**2*5", None, EXACT),
    ("disk-hollow-bent", lambda f: disk(f, ((0, 0, 0), (4, 0, 0), (4, 3, 0)), 0.05), "pi*(0.1**2 - 0.05**2)*7", None, EXACT),
    ("fixed-reference-sweep", along, "0.2*0.3*(4 + 3)", None, EXACT),
    ("block", lambda f: f("CSGSOLID", f("BLOCK", f.origin, 1, 2, 3)), "1*2*3", "2 + 3 + 6", EXACT),
    ("pyramid", lambda f: f("CSGSOLID", f("RECTANGULARPYRAMID", f.origin, 3, 2, 4)), "3*2*4/3", None, EXACT),
    ("cone", lambda f: f("CSGSOLID", f("RIGHTCIRCULARCONE", f.origin, 3, 1)), "pi*1**2*3/3", None, CURVED),
    ("cylinder", lambda f: f("CSGSOLID", f("RIGHTCIRCULARCYLINDER", f.origin, 3, 1)), "pi*1**2*3", None, CURVED),
    ("sphere", lambda f: f("CSGSOLID", f("SPHERE", f.origin, 1)), "4/3*pi*1**3", None, CURVED),
    ("union", lambda f: csg(f, ".UNION."), "2*8 - 1*1*1", "2*12 - 3", EXACT),
    ("intersection", lambda f: csg(f, ".INTERSECTION."), "1*1*1", "3", EXACT),
    ("difference", lambda f: csg(f, ".DIFFERENCE."), "8 - 1*1*1", "12", EXACT),
    ("half-space", lambda f: f.cut(f.box(4, 0.5, 3), half_space(f, 0, 0, 1, (0, 0, 1))), "4*0.5*1", "2 + 4 + 0.5", EXACT),
    ("half-space-agreeing", lambda f: f.cut(f.box(4, 0.5, 3), half_space(f, 0, 0, 1, (0, 0, 1), ".T.")), "4*0.5*2",
     None, EXACT),
    ("half-space-sloped", lambda f: f.cut(f.box(4, 0.5, 3), half_space(f, 0, 0, 1, (-1, 0, 2))), "4*0.5*(1 + 3)/2", None, EXACT),
    ("half-space-boxed", boxed, "4*0.5*1", None, EXACT),
    ("half-space-polygonal", lambda f: polygonal(f, 0, (0, 0, 1)), "4*0.5*3 - 1*0.5*2", None, EXACT),
    ("half-space-polygonal-parallel", lambda f: polygonal(f, 1.5, (1, 0, 0)), "4*0.5*3 - 0.5*0.5*3", None, EXACT),
    ("clipped-twice", clipped_twice, "3*0.5*2", None, EXACT),
    ("mapped-moved", lambda f: mapped(f, operator3(f, 2)), "1*2*3*2**3", "11*2**2", EXACT),
    ("mapped-mirrored-stretched", lambda f: mapped(f, operator3(f, 2, 3, 0.5, x=(-1, 0, 0))), "1*2*2*3*3*0.5",
     "2*6 + 2*1.5 + 6*1.5", EXACT),
    ("mapped-twice", lambda f: mapped(f, operator3(f, 2), [mapped(f, operator3(f, 0.5))]), "1*2*3", "11", EXACT),
]

# Units

ANGLES = [("angles-unnamed-in-degrees", None, 180), ("angles-in-degrees", "degree", 180), ("angles-in-grads", "grad", 200)]
LENGTHS = [("mm", (".MILLI.", 1e-3)), ("cm", (".CENTI.", 1e-2)), ("foot", ("foot", 0.3048)), ("inch", ("inch", 0.0254))]


def one_wall(name, body, volume, area, tolerance, **options):
    f = IfcFile(name, **options)
    f.wall("w", body(f))
    f.expect("w", volume=volume, tolerance=tolerance)
    if area:
        f.expect("w", area=area, tolerance=tolerance)
    f.row("w", "volume source", "geometry")
    f.row("w", "lists", "without material")
    return f


def body_cases():
    for row in FACES + SOLIDS:
        yield one_wall(*row)
    for name, profile, area in PROFILES:
        tolerance = 1e-5
        yield one_wall("profile-" + name, lambda f: f.extrude(profile(f), 2), f"2*({area})", None, tolerance)
    for name, unit, end in ANGLES:
        yield one_wall(name, lambda f: f.extrude(half_disk(f, 0, end), 2), "2*pi*0.5**2/2", None, 1e-5, angle=unit)
    for name, unit in LENGTHS:
        one = unit[1]
        yield one_wall("length-" + name, lambda f: f.box(4 / one, 0.2 / one, 3 / one), "4*0.2*3", "12 + 0.8 + 0.6", EXACT,
                       length=unit)
