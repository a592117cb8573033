"""Small IFC files from Python: numbered entities, units, placements, profiles, solids, elements, and beside them what the
import must find, each figure with the formula that it is worked out by."""
import math

FORMULA_NAMES = {"pi": math.pi, "sqrt": math.sqrt}


def text_of(value):
    """As STEP writes it. Whole numbers become reals; lists of whole numbers come through whole()."""
    if value is None:
        return "$"
    if isinstance(value, (int, float)):
        digits = repr(float(value)).upper()
        digits = digits if "." in digits else digits.replace("E", ".E")
        return digits.removesuffix("0") if digits.endswith(".0") else digits
    if isinstance(value, (list, tuple)):
        return "(" + ",".join(map(text_of, value)) + ")"
    return value


def whole(*values):
    return "(" + ",".join(str(v) for v in values) + ")"


def quoted(text):
    return "'" + text + "'"


class IfcFile:
    """One file; entities are added by calling it: f("CARTESIANPOINT", (0, 0)) gives "#1"."""

    def __init__(self, name, schema="IFC4", length=(None, 1.0), angle="radian"):
        self.name, self.schema, self.lines, self.expected = name, schema, [], []
        self.origin = self.place3(0, 0, 0)
        self.context = self("GEOMETRICREPRESENTATIONCONTEXT", None, "'Model'", 3, 1e-5, self.origin, None)
        self.project = self("PROJECT", "'project'", None, "'Cases'", None, None, None, None, [self.context],
                            self.unit_assignment(length, angle))
        self.up = self.direction(0, 0, 1)
        self.placement = self("LOCALPLACEMENT", None, self.origin)

    def __call__(self, entity, *values):
        self.lines.append(f"#{len(self.lines) + 1}=IFC{entity}({','.join(map(text_of, values))});")
        return f"#{len(self.lines)}"

    def forward(self, ahead):
        """Number of an entity that comes later, for circles."""
        return f"#{len(self.lines) + ahead}"

    def text(self):
        head = ("ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
                f"FILE_SCHEMA(('{self.schema}'));\nENDSEC;\nDATA;\n")
        return head + "\n".join(self.lines) + "\nENDSEC;\nEND-ISO-10303-21;\n"

    # What the import must find

    def expect(self, element, **figures):
        """Texts of figures are formulas; a blank in a quantity's name is written as an underscore."""
        tolerance = figures.pop("tolerance", 1e-3)
        for quantity, formula in figures.items():
            value = eval(formula, {}, FORMULA_NAMES)  # our own formulas above
            self.row(element, quantity.replace("_", " "), f"{value:.10g}", f"{tolerance:g}", formula)

    def row(self, element, quantity, value, tolerance="", how="by the rule"):
        self.expected.append(";".join((self.name, element, quantity, value, tolerance, how)))

    # Units

    def unit_assignment(self, length, angle):
        prefix_or_name, metres = length
        si = self("SIUNIT", "*", ".LENGTHUNIT.", None, ".METRE.")
        if metres == 1.0 and not prefix_or_name:
            unit = si
        elif prefix_or_name.startswith("."):
            unit = self("SIUNIT", "*", ".LENGTHUNIT.", prefix_or_name, ".METRE.")
        else:
            unit = self.conversion(".LENGTHUNIT.", whole(1, 0, 0, 0, 0, 0, 0), prefix_or_name, "LENGTHMEASURE", metres, si)
        units = [unit, self("SIUNIT", "*", ".AREAUNIT.", None, ".SQUARE_METRE."),
                 self("SIUNIT", "*", ".VOLUMEUNIT.", None, ".CUBIC_METRE.")]
        radian = self("SIUNIT", "*", ".PLANEANGLEUNIT.", None, ".RADIAN.")
        if angle == "radian":
            units.append(radian)
        elif angle:
            factor = math.pi / {"degree": 180, "grad": 200}[angle]
            units.append(self.conversion(".PLANEANGLEUNIT.", whole(0, 0, 0, 0, 0, 0, 0), angle, "PLANEANGLEMEASURE",
                                         factor, radian))
        return self("UNITASSIGNMENT", units)

    def conversion(self, kind, exponents, name, measure, factor, si):
        dimensions = self("DIMENSIONALEXPONENTS", *exponents.strip("()").split(","))
        value = self("MEASUREWITHUNIT", f"IFC{measure}({text_of(factor)})", si)
        return self("CONVERSIONBASEDUNIT", dimensions, kind, quoted(name.upper()), value)

    # Points, places, curves

    def point(self, *xyz):
        return self("CARTESIANPOINT", xyz)

    def direction(self, *xyz):
        return self("DIRECTION", xyz)

    def place2(self, x=0, y=0):
        return self("AXIS2PLACEMENT2D", self.point(x, y), None)

    def place3(self, x, y, z, axis=None, reference=None):
        return self("AXIS2PLACEMENT3D", self.point(x, y, z), axis and self.direction(*axis),
                    reference and self.direction(*reference))

    def at(self, x, y, z, relative_to=None):
        return self("LOCALPLACEMENT", relative_to or self.placement, self.place3(x, y, z))

    def polyline(self, *points):
        return self("POLYLINE", [self.point(*p) for p in points])

    def closed(self, *points):
        made = [self.point(*p) for p in points]
        return self("POLYLINE", made + made[:1])

    # Profiles and solids

    def profile(self, kind, *measures):
        return self(kind + "PROFILEDEF", ".AREA.", None, self.place2(), *measures)

    def rectangle(self, width, depth, x=None, y=None):
        """Its corner in the origin, or its centre at x, y."""
        middle = self.place2(width / 2 if x is None else x, depth / 2 if y is None else y)
        return self("RECTANGLEPROFILEDEF", ".AREA.", None, middle, width, depth)

    def outline(self, curve, *inner):
        if inner:
            return self("ARBITRARYPROFILEDEFWITHVOIDS", ".AREA.", None, curve, inner)
        return self("ARBITRARYCLOSEDPROFILEDEF", ".AREA.", None, curve)

    def extrude(self, profile, depth, position=None, direction=None):
        return self("EXTRUDEDAREASOLID", profile, position or self.origin, direction or self.up, depth)

    def box(self, width, depth, height, x=0, y=0, z=0):
        return self.extrude(self.rectangle(width, depth), height, self.place3(x, y, z))

    def plane(self, x, y, z, normal):
        return self("PLANE", self.place3(x, y, z, normal, (normal[1], normal[2], normal[0])))

    def cut(self, first, second, entity="BOOLEANCLIPPINGRESULT", how=".DIFFERENCE."):
        return self(entity, how, first, second)

    # Faces

    def face_set(self, entity, points, faces, flag=".T."):
        """Faces are lists of loops of numbers of points, the outer loop first."""
        made = [self.point(*p) for p in points]
        return self(entity, [self.face([[made[i] for i in loop] for loop in loops], flag) for loops in faces])

    def face(self, loops, flag):
        bounds = ["FACEOUTERBOUND"] + ["FACEBOUND"] * (len(loops) - 1)
        return self("FACE", [self(bound, self("POLYLOOP", loop), flag) for bound, loop in zip(bounds, loops)])

    def brep(self, points, faces, flag=".T."):
        return self("FACETEDBREP", self.face_set("CLOSEDSHELL", points, faces, flag))

    # Elements

    def shape(self, items, name="'Body'", kind="'SweptSolid'"):
        items = items if isinstance(items, list) else [items]
        return self("SHAPEREPRESENTATION", self.context, name, kind, items)

    def element(self, entity, gid, items=None, placement=None, ending=(None,), name=None, object_type=None):
        """ITEMS: of the body, or whole representations made by shape()."""
        representations = None
        if items:
            first = items[0] if isinstance(items, list) else items
            is_shape = "=IFCSHAPEREPRESENTATION" in self.lines[int(first[1:]) - 1]
            representations = self("PRODUCTDEFINITIONSHAPE", None, None, items if is_shape else [self.shape(items)])
        return self(entity, quoted(gid), None, quoted(name or gid), None, object_type, placement or self.placement,
                    representations, None, *ending)

    def wall(self, gid, items=None, placement=None, **more):
        ending = (None,) if self.schema.startswith("IFC4") else ()
        return self.element("WALL", gid, items, placement, ending, **more)

    def opening(self, element, items, placement=None):
        made = self.element("OPENINGELEMENT", "opening", items, placement)
        self("RELVOIDSELEMENT", "'v'", None, None, None, element, made)
        return made

    def parts(self, whole_one, *parts):
        return self("RELAGGREGATES", "'g'", None, None, None, whole_one, parts)

    def in_storey(self, name, *elements):
        storey = self("BUILDINGSTOREY", quoted(name), None, quoted(name), None, None, None, None, None, ".ELEMENT.", 0)
        self("RELCONTAINEDINSPATIALSTRUCTURE", "'c'", None, None, None, elements, storey)
        return storey

    # Stated values and materials

    def stated(self, objects, set_name, **values):
        """Volumes, areas, lengths and weights of a quantity set, by the name's end."""
        made = []
        for name, value in values.items():
            name = name.replace("_", " ")
            kind = {"e": "VOLUME", "a": "AREA", "t": "WEIGHT", "h": "LENGTH"}[name[-1]]
            made.append(self("QUANTITY" + kind, quoted(name), None, None, value, *self.formula()))
        self.define(objects, self("ELEMENTQUANTITY", "'q'", None, set_name and quoted(set_name), None, None, made))

    def formula(self):
        return (None,) if self.schema.startswith("IFC4") else ()

    def properties(self, objects, set_name, **values):
        """Values are written with their measure: "IFCVOLUMEMEASURE(2.)"."""
        made = [self("PROPERTYSINGLEVALUE", quoted(name), None, value, None) for name, value in values.items()]
        self.define(objects, self("PROPERTYSET", "'p'", None, quoted(set_name), None, made))

    def define(self, objects, definition):
        self("RELDEFINESBYPROPERTIES", "'r'", None, None, None, objects if isinstance(objects, list) else [objects],
             definition)

    def type_of(self, entity, name, *objects):
        made = self(entity, quoted(name), None, quoted(name), None, None, None, None, None, None, ".NOTDEFINED.")
        self("RELDEFINESBYTYPE", "'d'", None, None, None, objects, made)
        return made

    def material(self, name):
        return self("MATERIAL", quoted(name), None, None)

    def made_of(self, definition, *objects):
        self("RELASSOCIATESMATERIAL", "'m'", None, None, None, objects, definition)

    def layers(self, *layers, name=None):
        made = [self("MATERIALLAYER", material, thickness, None, None, None, None, None)
                for material, thickness in layers]
        return self("MATERIALLAYERSET", made, name and quoted(name), None)
