#!/usr/bin/env python3
"""Reads a spreadsheet report with openpyxl and LibreOffice and compares it with the JSON of the same run.

judge_report.py REPORT.xlsx RESULT.json WORK
    WORK is a folder for what LibreOffice makes of the report. Prints each difference and exits 1 when there is one.
"""
import csv
import json
import os
import subprocess
import sys
import zipfile

import openpyxl

REPORT, RESULT, WORK = sys.argv[1:4]
problems = []


def check(condition, text):
    if not condition:
        problems.append(text)


def same(number, shown, what):
    """Equal within half a unit of the palette's last decimal or six digits, whichever is coarser."""
    tolerance = max(0.005, abs(shown) * 5e-6) + 1e-9
    check(isinstance(number, (int, float)) and abs(number - shown) <= tolerance, "%s: %r, not %r" % (what, number, shown))


with open(RESULT, encoding="utf-8") as file:
    result = json.load(file)
book = openpyxl.load_workbook(REPORT)
check(book.sheetnames == ["Kelvarnix report", "Material CO2 report"], "sheets %r" % book.sheetnames)
sheet, materials = book.worksheets

header = [cell.value for cell in sheet[1]][:9]
check(header[0] is None and header[1] == "Type" and header[8] == "GWP per area per year\n[kg CO2eq/m2/a]", "header %r" % header)
check(sheet["G1"].alignment.wrap_text, "the header does not wrap")
labels = ["Operational energy use", "Building components", "Doors", "Windows", "Inventory", "Installations",
          "Construction process"]
for row, (category, label) in enumerate(zip(result["categories"], labels), start=2):
    check(sheet.cell(row, 1).value == label, "row %d is %r" % (row, sheet.cell(row, 1).value))
    for column, key in ((7, "gwp"), (8, "gwp_per_area"), (9, "gwp_per_area_per_year")):
        same(sheet.cell(row, column).value, category[key] or 0.0, "%s %s" % (label, key))
for column, key in ((7, "gwp"), (8, "gwp_per_area"), (9, "gwp_per_area_per_year")):
    same(sheet.cell(9, column).value, result["total"][key], "TOTAL " + key)
for cell in [sheet.cell(9, column) for column in range(3, 7)] + [sheet.cell(2, column) for column in range(4, 7)]:
    check(cell.value is None and cell.has_style, "%s is not blank but styled" % cell.coordinate)
check(sheet["A11"].value == "Considered period [years]" and sheet["B11"].value == result["settings"]["SERVICELIFE"],
      "period %r" % sheet["B11"].value)
check(sheet["A12"].value == "Gross floor area [m2]", "floor area %r" % sheet["A12"].value)
same(sheet["B12"].value, result["settings"]["FLOORAREA"], "floor area")
check(all(sheet.column_dimensions[letter].width == 30 for letter in "ABCDEFGHI"), "column widths")
check(sheet.page_setup.orientation == "landscape" and sheet.page_setup.paperSize == 9 and sheet.sheet_properties.pageSetUpPr.fitToPage,
      "the page is no A4 landscape page fitted to its width")

layer, found = "", []
rows = list(materials.iter_rows(values_only=True))
check(rows[0][:3] == ("Layer", "Name", "GWP (kg CO2-eq)"), "material header %r" % (rows[0],))
for row in rows[1:-1]:
    layer = row[0] or layer
    if row[1]:
        found.append((layer, row[1], row[2]))
check(len(found) == len(result["materials"]), "%d materials" % len(found))
for (layer, name, gwp), wanted in zip(found, result["materials"]):
    check((layer, name) == (wanted["layer"], wanted["material"]), "%r is not %r" % ((layer, name), wanted))
    same(gwp, wanted["gwp"], name)
check(rows[-1][0] == "Total: ", "last material row %r" % (rows[-1],))

with zipfile.ZipFile(REPORT) as archive:
    pictures = [name for name in archive.namelist() if name.startswith("xl/media/")]
    check(len(pictures) == 2 and all(archive.read(name)[:3] == b"\xff\xd8\xff" for name in pictures), "pictures %r" % pictures)

subprocess.run(["soffice", "-env:UserInstallation=file://" + os.path.abspath(WORK) + "/profile", "--headless",
                "--convert-to", "csv", "--outdir", WORK, REPORT], check=True, capture_output=True, timeout=300)
with open(os.path.join(WORK, os.path.splitext(os.path.basename(REPORT))[0] + ".csv"), encoding="utf-8") as file:
    total = list(csv.reader(file))[8]
check(total[0] == "TOTAL", "LibreOffice: %r" % total)
same(float(total[6].replace(",", "")), result["total"]["gwp"], "LibreOffice's TOTAL")

for problem in problems:
    print("judge_report: " + problem)
sys.exit(1 if problems else 0)
