"""Reads the gallery's workbooks with openpyxl and compares them with what was to be written.

usage: judge_openpyxl.py FOLDER
"""
import os
import sys
import warnings

import openpyxl

FOLDER = sys.argv[1]
faults = []


def same(what, found, expected):
    if found != expected:
        faults.append("%s: %r instead of %r" % (what, found, expected))


def opened(name):
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")  # pictures need a library that nothing else here needs
        return openpyxl.load_workbook(os.path.join(FOLDER, name))


def column(sheet, letter):
    return [cell.value for cell in sheet[letter]]


def judge_gallery():
    book = opened("gallery.xlsx")
    same("sheets", book.sheetnames, ["Values", "Diagram", "Seiten & Übersicht"])
    same("creator", book.properties.creator, "Gallery")
    values = book["Values"]
    same("kinds", column(values, "A"),
         ["Kind", "letters", "markup", "blank ends", "tab and line feed", "control", "lookalike", "repeated", "quarter",
          "large", "small", "infinite", "no number", "formula", "formula", "formula"])
    # This reader leaves the escapes of control characters as they are.
    same("values", column(values, "B"),
         ["Value", "Grüße, 日本語, 🏠", '<a href="x">Tom & Jerry</a>', "  both  ", "a\tb\nc",
          "bell_x0007_ and return_x000D_.", "_x0041_ and _x000D_", "Grüße, 日本語, 🏠", 0.25, 1.23457e+06, -1.5e-300,
          "#DIV/0!", "#NUM!", "=SUM(B9:B10)", '=IF(B9<1,"less & fine","more")', "=Quarter*4"])
    same("kinds of cells", [cell.data_type for cell in values["B"]], ["s"] * 8 + ["n"] * 3 + ["e"] * 2 + ["f"] * 3)
    same("row height", (values.row_dimensions[14].height, values.row_dimensions[9].height), (20, None))
    same("widths", [values.column_dimensions[letter].width for letter in "AB"], [20, 40])
    same("comment", values["B9"].comment.text, "A quarter")
    same("charts", [type(chart).__name__ for chart in values._charts], ["LineChart"])
    pages = book["Seiten & Übersicht"]
    same("merges", sorted(str(area) for area in pages.merged_cells.ranges), ["B2:D3", "E5:F5"])
    same("pane", pages.freeze_panes, "C2")
    same("orientation", pages.page_setup.orientation, "landscape")
    margins = pages.page_margins
    same("margins", [margins.left, margins.right, margins.top, margins.bottom, margins.header, margins.footer],
         [0.5, 0.5, 1, 1, 0.25, 0.25])
    # This reader leaves a doubled "&" as it is.
    header, footer = pages.oddHeader, pages.oddFooter
    same("header", [part.text for part in (header.left, header.center, header.right)], ["Haus && Hof", "2026 &&P", "rechts"])
    same("footer", [part.text for part in (footer.left, footer.center, footer.right)], [None, "unten <mitte>", None])
    same("breaks", [each.id for each in pages.row_breaks.brk] + [each.id for each in pages.col_breaks.brk], [10, 20, 4])
    same("fit", (pages.sheet_properties.pageSetUpPr.fitToPage, pages.page_setup.fitToHeight), (True, 0))
    same("numbers", [[cell.value for cell in row] for row in pages.iter_rows(min_row=30)],
         [[290, 291, 292, 293, 294, 295]])
    names = {each.name: (each.attr_text, each.comment) for each in book.defined_names.definedName}
    same("names", names, {"Quarter": ("Values!$B$9", "A number of its own"), "Here": ("Values!$A$1:$B$2", None)})
    same("name of a sheet", [each.name for each in book.defined_names.definedName if each.localSheetId == 0], ["Here"])


def judge_styles():
    book = opened("styles.xlsx")
    same("active", book.active.title, "Numbers")
    fonts = book["Fonts"][1]
    attributes = [("b",), ("i",), ("u",), ("strike",), ("outline",), ("shadow",), ("condense",), ("extend",)]
    for position, (cell, (attribute,)) in enumerate(zip(fonts, attributes)):
        font = cell.font
        same(cell.value, bool(getattr(font, attribute)), True)
        others = [name for (name,) in attributes if name != attribute and getattr(font, name)]
        same(cell.value + " alone", others, [])
        size = 9 + position
        same(cell.value + " font", (font.sz, font.name, font.charset, font.color.rgb),
             (size, "Arial" if size % 2 == 0 else "Times New Roman", 204, "FFC00000"))
    same("six digits", (fonts[8].font.color.rgb, fonts[8].font.sz), ("000070C0", 11))
    patterns = [None, "solid", "mediumGray", "darkGray", "lightGray", "darkHorizontal", "darkVertical", "darkDown",
                "darkUp", "darkGrid", "darkTrellis", "lightHorizontal", "lightVertical", "lightDown", "lightUp",
                "lightGrid", "lightTrellis", "gray125", "gray0625"]
    cells = [cell for row in book["Fills"].iter_rows() for cell in row if cell.value is not None]
    same("fills", [cell.fill.patternType for cell in cells], patterns)
    same("fill colours", {(cell.fill.fgColor.rgb, cell.fill.bgColor.rgb) for cell in cells}, {("FF4F81BD", "FFFDE9D9")})
    lines = ["thin", "medium", "dashed", "dotted", "thick", "double", "hair", "mediumDashed", "dashDot", "mediumDashDot",
             "dashDotDot", "mediumDashDotDot", "slantDashDot"]
    cells = [cell for row in book["Borders"].iter_rows() for cell in row if cell.value is not None]
    for cell, line in zip(cells, lines):
        border = cell.border
        same(line, {side.style for side in (border.left, border.right, border.top, border.bottom)}, {line})
        same(line + " colour", border.left.color.rgb if cell.value % 2 == 0 else border.left.color.indexed,
             "FF00B050" if cell.value % 2 == 0 else 64)
    same("borders", len(cells), 13)
    crossed, up, down = (book["Borders"].cell(4, column).border for column in (7, 8, 9))
    same("diagonals", [(each.diagonalUp, each.diagonalDown, each.diagonal.style) for each in (crossed, up, down)],
         [(True, True, "thin"), (True, False, "hair"), (False, True, "hair")])
    same("sides", [side.style for side in (up.left, up.right, up.top, up.bottom)], ["thin", "medium", "thick", "double"])
    same("number formats", [cell.number_format for cell in book["Numbers"]["A"]],
         ["#,##0.00;[Red]\\-#,##0.00", "0;[BLACK]0", "0.0%;\\-0.0%", "0.00E+00;\\-0.00E+00",
          '_-* #,##0.00_-;\\-* #,##0.00_-;_-* "-"??_-;_-@_-', '0.0 "kg CO2eq";\\-0.0 "kg CO2eq"', "yyyy.mm.dd",
          "hh:mm:ss", "yyyy.mm.dd hh:mm:ss", "mm-dd-yy", "0;\\-0", "yyyy.mm.dd"]
         + ["0;[%s]0" % colour for colour in ("Green", "White", "Blue", "Magenta", "Yellow", "Cyan")])
    sheet = book["Alignment"]
    same("horizontal", [cell.alignment.horizontal for cell in sheet[1]][:4], [None, "left", "center", "right"])
    same("vertical", [cell.alignment.vertical for cell in sheet["A"]][:3], ["top", "center", "bottom"])
    same("wrap", (sheet["A4"].alignment.wrap_text, sheet["A4"].value), (True, "two\nlines"))
    same("rotation", [cell.alignment.textRotation for cell in sheet[4]][1:], [45, 90, 135, 180, 255])


def judge_comments():
    book = opened("comments.xlsx")
    found = {(sheet.title, cell.coordinate): (cell.comment.text, cell.comment.author)
             for sheet in book for row in sheet.iter_rows() for cell in row if cell.comment}
    same("comments", found, {
        ("Notes", "A1"): ("Bold, and red:\nsecond line  <end>", "Ада"),
        ("Notes", "A3"): ("hidden", "Gallery"),
        ("Notes", "A4"): ("Grüße", "Gallery"),
        ("More notes", "AB10"): ("far out", "Gallery"),
    })


def judge_charts():
    book = opened("charts.xlsx")
    same("sheets", book.sheetnames, ["Data", "Chart sheet", "Behind"])
    charts = book["Data"]._charts
    same("charts", [type(chart).__name__ for chart in charts],
         ["LineChart", "BarChart", "BarChart", "BarChart", "ScatterChart", "ScatterChart", "PieChart", "DoughnutChart",
          "BarChart", "LineChart", "BarChart", "ScatterChart"])
    same("legends", [(chart.legend.position, chart.legend.overlay) if chart.legend else None for chart in charts],
         [("b", False), None, ("t", False), ("l", False), ("r", True), ("t", True), ("r", False), ("b", True), ("l", True),
          ("r", False), None, ("r", False)])
    same("bars", [(chart.barDir, chart.grouping) for chart in charts[1:4]],
         [("col", "clustered"), ("bar", "stacked"), ("col", "percentStacked")])
    same("values", [series.val.numRef.f for series in charts[0].series],
         ["Data!$%s$2:$%s$7" % (letter, letter) for letter in "BCD"])
    same("pattern", charts[3].series[1].graphicalProperties.pattFill.prst, "solidDmnd")
    same("gradient", [stop.pos for stop in charts[3].series[2].graphicalProperties.gradFill.gsLst], [0, 50000, 100000])
    same("combination", [type(part).__name__ for part in charts[8]._charts], ["BarChart", "LineChart"])
    same("chartsheet", [type(chart).__name__ for chart in book["Chart sheet"]._charts], ["BarChart"])


def judge_cells():
    book = openpyxl.load_workbook(os.path.join(FOLDER, "cells.xlsx"), read_only=True)
    sheet = book["Cells"]
    sheet.reset_dimensions()  # the part says no more than "A1"
    rows = 0
    for row, cells in enumerate(sheet.iter_rows(values_only=True)):
        rows += 1
        if row % 997 != 0:
            continue
        expected = []
        for position in range(5):
            expected += ["Component %d" % ((row * 5 + position) % 10000), float("%g" % (row * 0.37 + position))]
        same("row %d" % row, list(cells), expected)
    same("rows", rows, 100000)


for judge in (judge_gallery, judge_styles, judge_comments, judge_charts, judge_cells):
    judge()
for fault in faults:
    print("judge_openpyxl: " + fault, file=sys.stderr)
sys.exit(1 if faults else 0)
