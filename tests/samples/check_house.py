"""check_house.py PROGRAM SAMPLES: the sums that samples/README.md does by hand are right, agree with the material table,
and are what the program prints; the model is what its generator writes."""
import csv
import json
import math
import re
import subprocess
import sys

program, samples = sys.argv[1:3]
failures = []


def expect(what, actual, wanted, tolerance):
    if not abs(actual - wanted) <= tolerance:
        failures.append(f"{what}: {actual}, expected {wanted}")


def compute(expression):
    """Value of sums and products such as "80 x 0.20" or "-664 + 744"; units behind numbers are left out."""
    plain = re.sub(r"\s*\b(m[23]?|kg)\b", "", expression).replace("x", "*")
    assert re.fullmatch(r"[-+*()\d.\s]+", plain), expression
    return eval(plain)  # only digits and signs


def rows_of(section, cells):
    rows = [[cell.strip(" *") for cell in line.strip("|\n").split("|")] for line in section.splitlines()
            if line.startswith("|")]
    return [row for row in rows[2:] if len(row) == cells]


text = open(samples + "/README.md", encoding="utf-8").read()
components, table = text.split("## Building components by hand")[1].split("## The table by hand")
table, energy_table = table.split("## Sources")[0].split("## With the energy evaluation by hand")

with open(samples + "/house-materials.csv", encoding="utf-8") as file:
    stated = {row["name"]: row for row in csv.DictReader(file, delimiter=";") if row["applies_to"] == "material"}

by_hand = {row[0]: row for row in rows_of(components, 5)}
sum_by_hand = float(by_hand.pop("sum")[4])
assert by_hand.keys() == stated.keys(), "README and material table name different materials"
total = 0.0
for name, (_, quantity, gwp, provided, product) in by_hand.items():
    row = stated[name]
    amount, unit = re.fullmatch(r"(?:.* = )?([\d.]+) (m[23]|kg)", quantity).groups()
    if "=" in quantity:
        expect(name + ": quantity", compute(quantity.split("=")[0]), float(amount), 1e-9)
    assert unit == row["unit"], name
    parts, per_unit = gwp.split(" = ")
    expect(name + ": GWP per unit", compute(parts), float(per_unit), 1e-9)
    expect(name + ": GWP of the table", sum(float(row[phase] or 0) for phase in ("A1-A3", "C3", "C4")),
           float(per_unit), 1e-9)
    times, life = map(int, re.fullmatch(r"(\d) \((\d+) a\)", provided).groups())
    assert life == int(row["service_life"]) and times == math.ceil(50 / life), name
    value = float(amount) * float(per_unit) * times
    expect(name + ": product", value, float(product), 5e-5)  # four decimals are shown
    total += value
expect("sum of the materials", total, sum_by_hand, 5e-5)



def assess(*more):
    """The rows that the program prints for the sample house, by label."""
    answer = subprocess.run([program, "assess", samples + "/house.ifc", "--materials", samples + "/house-materials.csv",
                             "--settings", samples + "/house-settings.txt", "--json", "-", "--strict", *more],
                            stdout=subprocess.PIPE, check=True)
    result = json.loads(answer.stdout)
    rows = {row["label"]: row for row in result["categories"]}
    rows["TOTAL"] = result["total"]
    return rows


def compare(hand_rows, printed):
    for label, computation, *values in hand_rows:
        for key, value in zip(("gwp", "gwp_per_area", "gwp_per_area_per_year"), values):
            expect(f"{label}: {key}", printed[label][key], float(value), 1e-9)
        if re.fullmatch(r"[-+x\d.\s]+", computation):
            expect(f"{label}: sum", compute(computation), float(values[0]), 1e-6)


printed = assess()
hand_rows = rows_of(table, 5)
assert [row[0] for row in hand_rows] == list(printed), "the rows of README and program differ"
compare(hand_rows, printed)
with_energy = assess("--energy", samples + "/energy.xml")
energy_rows = rows_of(energy_table, 5)
assert len(energy_rows) == 2, "README: a row each for the operation and the total"
compare(energy_rows, with_energy)
assert all(printed[label] == with_energy[label] for label in list(printed)[1:-1]), "other rows changed"
expect("building components", printed["Building components"]["gwp"], total, 5e-3)

written = subprocess.run([sys.executable, samples + "/make_house.py"], stdout=subprocess.PIPE, check=True).stdout
if written != open(samples + "/house.ifc", "rb").read():
    failures.append("house.ifc is not what make_house.py writes")

print("\n".join(failures) or f"{len(by_hand)} materials and {len(printed)} rows agree")
sys.exit(1 if failures else 0)
