"""Reads the sample reports with openpyxl and LibreOffice and compares them with what has to be in them.

usage: judge_spreadsheet.py FOLDER WORK
FOLDER  with the reports that spreadsheet_samples wrote
WORK    a folder for LibreOffice's profile and results
"""
import csv
import os
import pathlib
import subprocess
import sys

import openpyxl

FOLDER, WORK = (os.path.abspath(argument) for argument in sys.argv[1:3])
TIME_LIMIT = 300  # seconds for one run
ALL_SHEETS = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,true,false,false,-1"
faults = []


def same(what, found, expected):
    if found != expected:
        faults.append("%s: %r instead of %r" % (what, found, expected))


def values(sheet, first, last):
    return [[cell.value for cell in row] for row in sheet.iter_rows(min_row=first, max_row=last)]


def judge_awkward():
    book = openpyxl.load_workbook(os.path.join(FOLDER, "awkward.xlsx"))
    same("sheets", book.sheetnames, ["Results_ A_B_", "Bob's _list_"])
    results, materials = book.worksheets
    rows = values(results, 1, 12)
    same("header", rows[0][:3], [None, "Type", "C\n[kg]"])
    # Period 50; the emission of -3 a year is blank but counts, 1000 / 100 m2 / 50 a; doors have no service life, windows 30.
    same("operation", rows[1], ["Op", "B6", None, None, None, None, -150, -0.75, -0.015])
    same("components", rows[2][2:], [1000, None, 50, 1, 1000, 10, 0.2])
    same("doors", rows[3][2:], [500, None, None, "#DIV/0!", 0, 0, 0])
    same("windows", rows[4][2:], [None, None, 30, 1.66667, -200, -2, -0.04])
    same("kinds of the doors", [cell.data_type for cell in results[4]][4:7], ["n", "e", "n"])
    same("blanks are styled", all(results.cell(9, column).has_style for column in range(2, 7)), True)
    same("notes", rows[10:], [["period", None, 50] + [None] * 6, ["area", None, 200] + [None] * 6])
    same("last row", results.max_row, 12)  # neither titles nor legend without a picture
    same("materials", values(materials, 2, 4),
         [[" =Walls", None, 1.5], [None, " =1+", -1.5], [" =", "Größe <&> 日本", 3]])
    same("kinds of the materials", [materials["A2"].data_type, materials["B3"].data_type], ["s", "s"])
    same("rows that each page repeats", materials.print_title_rows, "$1:$1")


def luminance(argb):
    shares = [int(argb[place:place + 2], 16) / 255 for place in (2, 4, 6)]
    return sum(weight * (share / 12.92 if share <= 0.04045 else ((share + 0.055) / 1.055) ** 2.4)
               for weight, share in zip((0.2126, 0.7152, 0.0722), shares))


def judge_legend():
    results = openpyxl.load_workbook(os.path.join(FOLDER, "legend.xlsx")).worksheets[0]
    legend = [cell for cell in results[results.max_row] if cell.value == "Name"]
    same("colours of the legend", len({cell.fill.fgColor.rgb for cell in legend}), 216)
    for cell in legend:
        lights = sorted((luminance(cell.fill.fgColor.rgb), luminance(cell.font.color.rgb)))
        same("contrast of %s and %s" % (cell.fill.fgColor.rgb, cell.font.color.rgb),
             (lights[1] + 0.05) / (lights[0] + 0.05) >= 4.5, True)


def judge_layers():
    materials = openpyxl.load_workbook(os.path.join(FOLDER, "layers.xlsx")).worksheets[1]
    rows = list(materials.iter_rows(min_row=2, values_only=True))
    same("rows of layers", len(rows), 20000)
    same("sum of layers", sum(row[2] for row in rows if row[0]), 50005000)
    same("last layer", rows[-2:], [("Layer 10000", None, 10000), (None, "Material 0", 10000)])


def convert(target, name):
    subprocess.run(["soffice", "-env:UserInstallation=" + pathlib.Path(WORK, "profile").as_uri(), "--headless",
                    "--convert-to", target, "--outdir", WORK, os.path.join(FOLDER, name + ".xlsx")],
                   check=True, capture_output=True, timeout=TIME_LIMIT)


def judge_libreoffice():
    convert(ALL_SHEETS, "awkward")
    with open(os.path.join(WORK, "awkward-Results_ A_B_.csv"), encoding="utf-8", newline="") as file:
        rows = list(csv.reader(file))
    same("LibreOffice: doors", [text.strip() for text in rows[3][2:]], ["500.00", "", "", "#DIV/0!", "0.00", "0.00", "0.00"])
    same("LibreOffice: operation", [text.strip() for text in rows[1][2:]], ["", "", "", "", "-150.00", "-0.75", "-0.02"])
    with open(os.path.join(WORK, "awkward-Bob's _list_.csv"), encoding="utf-8", newline="") as file:
        rows = list(csv.reader(file))
    same("LibreOffice: layer", rows[1][0], " =Walls")
    # Six digits are held: neither decimals nor other places show more.
    same("LibreOffice: digits", [row[2].strip() for row in rows[4:]],
         ["12,389,000", "34,089.4", "10,000.0", "-1,234,570", "0.04", "1,000,000,000"])
    convert("pdf", "awkward")
    text = subprocess.run(["pdftotext", os.path.join(WORK, "awkward.pdf"), "-"], check=True, capture_output=True,
                          text=True, timeout=TIME_LIMIT).stdout
    same("words of long names on paper", text.count("Rigips"), 6 * 30)
    convert("pdf", "layers")
    pages = subprocess.run(["pdftotext", "-layout", os.path.join(WORK, "layers.pdf"), "-"], check=True,
                           capture_output=True, text=True, timeout=TIME_LIMIT).stdout.strip("\f\n").split("\f")
    same("many pages", len(pages) > 100, True)
    same("headers of the pages", {" ".join(page.split("\n")[0].split()) for page in pages[1:]}, {"Layer Name GWP"})


os.makedirs(WORK, exist_ok=True)
judge_awkward()
judge_legend()
judge_layers()
judge_libreoffice()
for fault in faults:
    print("judge_spreadsheet: " + fault)
sys.exit(1 if faults else 0)
