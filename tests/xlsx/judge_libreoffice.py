"""Converts the gallery's workbooks with LibreOffice and looks for what was written in what comes out.

usage: judge_libreoffice.py FOLDER WORK
FOLDER  with the workbooks
WORK    an empty folder for the profile and the results
"""
import csv
import os
import pathlib
import subprocess
import sys

FOLDER, WORK = (os.path.abspath(argument) for argument in sys.argv[1:3])
TIME_LIMIT = 240  # seconds for one run
ALL_SHEETS = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,true,false,false,-1"


def require(holds, what):
    if not holds:
        sys.exit("judge_libreoffice: " + what)


def run(*command):
    result = subprocess.run(command, capture_output=True, text=True, errors="replace", timeout=TIME_LIMIT)
    require(result.returncode == 0, "%s: exit %d\n%s%s" % (command, result.returncode, result.stdout, result.stderr))
    return result.stdout


def convert(target, *names):
    profile = pathlib.Path(WORK, "profile").as_uri()
    run("soffice", "-env:UserInstallation=" + profile, "--headless", "--norestore", "--convert-to", target, "--outdir",
        WORK, *(os.path.join(FOLDER, name + ".xlsx") for name in names))


def table(name, sheet):
    with open(os.path.join(WORK, "%s-%s.csv" % (name, sheet)), encoding="utf-8", newline="") as file:
        return list(csv.reader(file))


def words(name):
    return " ".join(run("pdftotext", "-layout", os.path.join(WORK, name + ".pdf"), "-").split())


def judge_values():
    values = dict(row[:2] for row in table("gallery", "Values") if row[0] != "formula")
    expected = {"letters": "Grüße, 日本語, 🏠", "markup": '<a href="x">Tom & Jerry</a>', "blank ends": "  both  ",
                "tab and line feed": "a\tb\nc", "lookalike": "_x0041_ and _x000D_", "quarter": "0.25",
                "infinite": "#DIV/0!", "no number": "#NUM!"}
    for key, value in expected.items():
        require(values.get(key) == value, "%s: %r instead of %r" % (key, values.get(key), value))
    require(float(values["large"]) == 1234570, "large: " + values["large"])
    require("\x07" in values["control"], "control: %r" % values["control"])
    formulas = [row[1] for row in table("gallery", "Values") if row[0] == "formula"]
    require(formulas == ["1234570.25", "less & fine", "1"], "formulas: %s" % formulas)
    pages = table("gallery", "Seiten & Übersicht")
    require(len(pages) == 30 and pages[29] == ["290", "291", "292", "293", "294", "295"], "pages: %s" % pages[-1:])
    numbers = [row[0] for row in table("styles", "Numbers")]
    require(numbers[:6] == ["-1,234.50", "17", "12.5%", "1.23E+05", " 1,234.50 ", "42.3 kg CO2eq"], "numbers: %s" % numbers)
    require(numbers[6:9] == ["2023.03.15", "18:00:00", "2023.03.15 12:00:00"], "dates: %s" % numbers)


def judge_pages():
    charts = words("charts")
    for title in ("Lines, dashes and markers", "Columns with a data table", "Stacked bars", "Shares, patterns and a gradient",
                  "Smooth scatter", "Points only", "Pie", "Doughnut", "Kept in the chart", "On a sheet of its own <&>",
                  "End of life", "Stairs"):
        require(title in charts, "charts: no '%s' on the pages" % title)
    pages = words("gallery")
    for text in ("Haus & Hof", "2026 &P", "rechts", "unten <mitte>"):
        require(text in pages, "gallery: no '%s' in the pages' margins" % text)
    require("Grüße" not in words("comments") and "far out" in words("comments"), "comments: shown and hidden notes")
    listed = run("pdfimages", "-list", os.path.join(WORK, "pictures.pdf")).splitlines()[2:]
    require(len(listed) >= 7, "pictures: %d of 7 on the pages" % len(listed))


def judge_cells():
    rows = table("cells", "Cells")
    require(len(rows) == 100000 and all(len(row) == 10 for row in rows), "cells: %d rows" % len(rows))
    require(rows[0][:4] == ["Component 0", "0", "Component 1", "1"], "cells: %s" % rows[0])
    require(rows[99999][0] == "Component 9995" and float(rows[99999][1]) == float("%g" % (99999 * 0.37)),
            "cells: %s" % rows[99999])


convert(ALL_SHEETS, "gallery", "styles", "cells")
convert("pdf", "gallery", "charts", "styles", "comments", "pictures")
judge_values()
judge_pages()
judge_cells()
