#!/usr/bin/env python3
"""Sums the assessment of a house by hand, from the IFC text itself, and compares it with what kelvarnix printed.

judge_house.py table MATERIALS.csv TABLE.csv
    writes the material table that the house is assessed with, from published figures
judge_house.py compare MODEL.ifc TABLE.csv GEOMETRY.csv RESULT.json
    GEOMETRY.csv has lines GUID;volume m3 of the elements for which the file states no volume; everything else is read
    from the file here. Prints the sum and exits 1 where a number differs by more than half of its last decimal.
"""
import csv
import json
import math
import re
import sys

# Material in the model -> row of the published figures.
MATERIALS = {
    "Leichtbeton 102890359": "Lightweight aggregate (expanded clay) block, solid",
    "Solid 397409098": "Clay roof tile",
    "Stahlbeton 65690": "Ready-mix concrete C30/37",
    "Solid": "Structural softwood, planed (incineration EoL)",
    "Holz": "OSB board (KBOB)",
    "Radial Gradient Fill 1515460218": "Reinforcing steel",
}
OPENINGS = [
    ("door", "Innentuer*", "Fibre-cement board"),
    ("door", "*tuer", "Curtain wall, aluminium post-rail, triple glazed"),
    ("window", "*", "Triple glazing unit 36 mm"),
]
PHASES = ["A1-A3", "C3", "C4"]
YEARS = 50
LIVES = {"Doors": 30, "Windows": 30, "Inventory": 20, "Installations": 25}
SHARES = {"Inventory": 5, "Installations": 10, "BuildingProcess": 8}


def write_table(figures_file, table_file):
    with open(figures_file, encoding="utf-8") as file:
        figures = {row["name"]: row for row in csv.DictReader(file, delimiter=";")}
    with open(table_file, "w", encoding="utf-8") as file:
        file.write("applies_to;name;unit;A1-A3;C3;C4;D;service_life;density\n")
        names = [("material", name, figure) for name, figure in MATERIALS.items()] + OPENINGS
        for kind, name, figure in names:
            row = figures[figure]
            cells = [kind, name, row["unit"], row["gwp_a1a3"], row["gwp_c3"], row["gwp_c4"], row["gwp_d"],
                     row["service_life_years"], row["density_kg_m3"]]
            file.write(";".join(cells) + "\n")


def read_arguments(text):
    """Arguments of an entity as nested lists of texts."""
    stack, word = [[]], ""
    for token in re.findall(r"'(?:[^']|'')*'|[(),]|[^(),']+", text):
        if token == "(":
            stack.append([])
        elif token in ",)":
            if word:
                stack[-1].append(word)
            word = ""
            if token == ")":
                done = stack.pop()
                stack[-1].append(done)
        else:
            word += token.strip()
    return stack[0][0]


class House:
    def __init__(self, path):
        with open(path, encoding="latin-1") as file:
            text = file.read()
        self.entities = {}
        for number, name, arguments in re.findall(r"(#\d+)\s*=\s*(\w+)\s*(\((?:'(?:[^']|'')*'|[^';])*\))\s*;", text):
            self.entities[number] = (name, arguments)
        self.quantities = {}  # object -> {name: value}
        self.materials = {}  # object -> [(material, share, thickness of all)]
        for number, (name, _) in self.entities.items():
            if name == "IFCRELDEFINESBYPROPERTIES":
                self.take_quantities(self.get(number))
            elif name == "IFCRELASSOCIATESMATERIAL":
                arguments = self.get(number)
                for item in arguments[4]:
                    self.materials[item] = self.layers(arguments[5])

    def get(self, number):
        return read_arguments(self.entities[number][1])

    def take_quantities(self, relation):
        if self.entities[relation[5]][0] != "IFCELEMENTQUANTITY":
            return
        for quantity in self.get(relation[5])[5]:
            arguments = self.get(quantity)
            for item in relation[4]:
                self.quantities.setdefault(item, {})[arguments[0].strip("'")] = float(arguments[3])

    def layers(self, number):
        kind, arguments = self.entities[number][0], self.get(number)
        if kind == "IFCMATERIAL":
            return [(arguments[0].strip("'"), 1.0, None)]
        if kind == "IFCMATERIALLAYERSETUSAGE":
            return self.layers(arguments[0])
        if kind == "IFCMATERIALLIST":
            return [(self.layers(item)[0][0], 1.0 / len(arguments[0]), None) for item in arguments[0]]
        assert kind == "IFCMATERIALLAYERSET", kind
        layers = [self.get(layer) for layer in arguments[0]]
        total = sum(float(layer[1]) for layer in layers)
        return [(self.layers(layer[0])[0][0], float(layer[1]) / total, total) for layer in layers]


def read_table(path):
    with open(path, encoding="utf-8") as file:
        rows = list(csv.DictReader(file, delimiter=";"))
    for row in rows:
        row["gwp"] = sum(float(row[phase] or 0) for phase in PHASES)
    return rows


def pick(rows, kind, name):
    for row in rows:
        pattern = re.escape(row["name"]).replace(r"\*", ".*")
        if row["applies_to"] == kind and re.fullmatch(pattern, name, re.IGNORECASE):
            return row
    raise SystemExit(f"no row for {kind} {name}")


def provisions(life):
    return math.ceil(YEARS / int(life)) if int(life or 0) > 0 else 1


def sum_house(house, rows, geometry):
    stated, computed = {}, {}
    sums = {"material": 0.0, "door": 0.0, "window": 0.0}
    area = 0.0
    for number, (kind, _) in house.entities.items():
        quantities = house.quantities.get(number, {})
        if kind == "IFCBUILDING":
            area += quantities["GrossFloorArea"]
        if kind in ("IFCDOOR", "IFCWINDOW"):
            arguments = house.get(number)
            what = kind[3:].lower()
            row = pick(rows, what, arguments[2].strip("'"))
            sums[what] += row["gwp"] * float(arguments[8]) * float(arguments[9])
            continue
        if number not in house.materials:
            continue
        guid = house.get(number)[0].strip("'")
        volume = quantities.get("NetVolume", geometry.get(guid))
        side = quantities.get("NetSideArea", quantities.get("NetArea"))
        for name, share, thickness in house.materials[number]:
            row = pick(rows, "material", name)
            target = stated if "NetVolume" in quantities else computed
            target[name] = target.get(name, 0.0) + volume * share
            amount = {"m3": volume * share, "m2": volume / thickness if side is None and thickness else side,
                      "kg": volume * share * float(row["density"] or 0)}[row["unit"]]
            sums["material"] += row["gwp"] * amount * provisions(row["service_life"])
    print("material: stated m3, from geometry m3")
    for name in MATERIALS:
        print(f"  {name}: {stated.get(name, 0.0):.6f}, {computed.get(name, 0.0):.6f}")
    return sums, area


def compare(model, table, geometry_file, result_file):
    with open(geometry_file, encoding="utf-8") as file:
        geometry = {guid: float(volume) for guid, volume in csv.reader(file, delimiter=";")}
    with open(result_file, encoding="utf-8") as file:
        result = json.load(file)
    sums, area = sum_house(House(model), read_table(table), geometry)
    building = sum(sums.values())
    gwp = {"OperatingEmission": 0.0, "BuildingComponents": sums["material"],
           "Doors": sums["door"] * provisions(LIVES["Doors"]), "Windows": sums["window"] * provisions(LIVES["Windows"])}
    for key, share in SHARES.items():
        gwp[key] = building * share / 100 * (provisions(LIVES[key]) if key in LIVES else 1)
    faults = 0
    shown = result["categories"] + [dict(result["total"], key="total")]
    gwp["total"] = sum(gwp.values())
    print(f"floor area {area} m2\n{'':20}{'by hand':>14}{'kelvarnix':>14}{'per m2':>10}{'':>10}{'a year':>10}{'':>10}")
    for row in shown:
        expected = [gwp[row["key"]], gwp[row["key"]] / area, gwp[row["key"]] / area / YEARS]
        found = [row["gwp"], row["gwp_per_area"], row["gwp_per_area_per_year"]]
        print(f"{row['key']:20}{expected[0]:14.4f}{found[0]:14}{expected[1]:10.4f}{found[1]:10}{expected[2]:10.4f}{found[2]:10}")
        faults += sum(abs(a - b) > 0.005 + 1e-9 for a, b in zip(expected, found))
    print("differences:", faults)
    return 1 if faults or len(shown) != 8 or not building else 0


if __name__ == "__main__":
    if len(sys.argv) == 4 and sys.argv[1] == "table":
        write_table(*sys.argv[2:])
    elif len(sys.argv) == 6 and sys.argv[1] == "compare":
        sys.exit(compare(*sys.argv[2:]))
    else:
        sys.exit(__doc__)
