#!/usr/bin/env python3
"""Reads a spreadsheet report with openpyxl and LibreOffice and compares it with the JSON of the same run.

judge_report.py REPORT.xlsx RESULT.json WORK PROJECT
    PROJECT is the project's name, without blanks. WORK is a folder for what LibreOffice makes of the report. Prints each difference and exits 1 when there is one.
"""
import csv
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import zipfile

import openpyxl

REPORT, RESULT, WORK, PROJECT = sys.argv[1:5]
WORD = r'<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">([^<]*)</word>'
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
check(sheet["A11"].value == "Considered period [years]" and sheet["C11"].value == result["settings"]["SERVICELIFE"],
      "period %r" % sheet["C11"].value)
check(sheet["A12"].value == "Gross floor area [m2]", "floor area %r" % sheet["A12"].value)
same(sheet["C12"].value, result["settings"]["FLOORAREA"], "floor area")
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


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True, timeout=300).stdout


def convert(target):
    run("soffice", "-env:UserInstallation=" + pathlib.Path(WORK, "profile").resolve().as_uri(), "--headless",
        "--convert-to", target, "--outdir", WORK, REPORT)


STEM = os.path.join(WORK, os.path.splitext(os.path.basename(REPORT))[0])
convert("csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,true,false,false,-1")
for name in book.sheetnames:
    with open("%s-%s.csv" % (STEM, name), encoding="utf-8", newline="") as file:
        shown = list(csv.reader(file))
    if name == sheet.title:
        check(shown[8][0] == "TOTAL", "LibreOffice: %r" % shown[8])
        same(float(shown[8][6].replace(",", "")), result["total"]["gwp"], "LibreOffice's TOTAL")
        check(shown[3][4].strip() == "%d" % result["categories"][2]["service_life"], "years shown as %r" % shown[3][4])
    for cell in (cell for row in book[name].iter_rows() for cell in row if cell.data_type == "n" and cell.value is not None):
        text = shown[cell.row - 1][cell.column - 1].strip()
        digits = text.replace(",", "").replace("-", "").replace(".", "").lstrip("0")
        # Beyond the six digits that a cell holds only zeros in front of the point may follow.
        check(digits[6:].strip("0") == "" and (len(digits) <= 6 or "." not in text), "%s shows %r" % (cell.coordinate, text))
        same(cell.value, float(text.replace(",", "")), "%s shows %r" % (cell.coordinate, text))

# On paper: letters of 8 points or more, each heading above the left quarter of its picture, the page header. A row's height on paper
# beside the one in the file tells how the page is scaled, whatever font LibreOffice has found.
SMALLEST_LETTERS = 8.0  # points
CHART_LETTERS = 11.0  # pixels of a picture as the workbench draws it
convert("pdf")
pages = [[(word[4], *map(float, word[:4])) for word in re.findall(WORD, page)]
         for page in run("pdftotext", "-bbox", STEM + ".pdf", "-").split("<page ")[1:]]
sizes = re.findall(r"Page +\d+ size: +([\d.]+) x ([\d.]+) pts", run("pdfinfo", "-l", "2", STEM + ".pdf"))
check([float(width) > float(height) for width, height in sizes] == [True, False],
      "the results are not one landscape page, followed by the materials in portrait: %r" % sizes)
for page, table, (first, last) in ((pages[0], sheet, ((4, "Doors"), (9, "TOTAL"))),
                                   (pages[1], materials, ((1, "Layer"), (2, rows[1][0].split()[0])))):
    tops = {text: top for text, left, top, right, bottom in reversed(page)}  # the topmost of each
    heights = [table.row_dimensions[row].height for row in range(first[0], last[0] + 1)]
    onPaper = tops[last[1]] - tops[first[1]]
    scale = onPaper / (sum(heights) - (heights[0] + heights[-1]) / 2)  # from middle to middle
    smallest = min(cell.font.sz for row in table.iter_rows() for cell in row if cell.value is not None)
    check(smallest * scale >= SMALLEST_LETTERS, "%s: letters of %.2f points" % (table.title, smallest * scale))
    header = table.oddHeader
    check(min(header.left.size or 0, header.right.size or 0) * scale >= SMALLEST_LETTERS, "%s: letters of the page header" % table.title)
    check(header.left.text == PROJECT, "%s: page header %r" % (table.title, header.left.text))
    line = " ".join(text for text, left, top, right, bottom in page if top < tops.get("Last", 0) + 2)
    check(line.startswith(PROJECT + " Last update from Archicad: 20"), "%s: page header on paper %r" % (table.title, line))
with tempfile.TemporaryDirectory(dir=WORK) as folder:
    run("pdftohtml", "-xml", "-zoom", "3", "-f", "1", "-l", "1", STEM + ".pdf", folder + "/page")
    with open(folder + "/page.xml", encoding="utf-8") as file:
        layout = file.read()
unit = float(sizes[0][0]) / float(re.search(r'<page [^>]*width="(\d+)"', layout)[1])
images = sorted([float(value) * unit for value in image] for image in
                re.findall(r'<image top="(-?\d+)" left="(-?\d+)" width="(\d+)" height="(\d+)"', layout))
check(len(images) == 2, "%d pictures on paper" % len(images))
lowest = max(top + height for top, left, width, height in images)
legend = [top for text, left, top, right, bottom in pages[0] if text == "Doors"][1]
check(lowest - 1 < legend < lowest + 30, "the legend at %.0f is not right below the pictures, which end at %.0f" % (legend, lowest))
for (top, left, width, height), heading, drawn in zip(sorted(images, key=lambda image: image[1]), ("GWP", "Threshold"), (350, 520)):
    check(CHART_LETTERS * width / drawn >= SMALLEST_LETTERS, "%s: letters of %.2f points" % (heading, CHART_LETTERS * width / drawn))
    check(abs(width / height - drawn / 230) < 0.01, "%s: %.1f x %.1f" % (heading, width, height))
    above = [word for word in pages[0] if word[0] == heading and left - 2 <= word[1] <= left + width / 4 and -1 < top - word[4] < 12]
    check(len(above) == 1, "%s does not stand above its picture at %.0f, %.0f: %r" %
          (heading, left, top, [word for word in pages[0] if word[0] == heading]))

for problem in problems:
    print("judge_report: " + problem)
sys.exit(1 if problems else 0)
