#!/usr/bin/env python3
"""What other readers find in a workbook: show_workbook.py FILE whole|pictures. By openpyxl of each sheet the page, the
widths and heights, and each cell with its value, number format, letters, fill and alignment; a style is shown where it
differs from the left neighbour's, a cell without value and style is not. By an XML reader the places of the pictures."""
import sys
import xml.etree.ElementTree
import zipfile

import openpyxl


def style_of(cell):
    font, fill, place = cell.font, cell.fill, cell.alignment
    return " ".join(str(part) for part in (
        cell.number_format, f"{font.sz:g}pt", "bold" if font.b else "plain",
        font.color.rgb if font.color is not None and font.color.type == "rgb" else "own",
        "on " + fill.fgColor.rgb if fill.fill_type else "on nothing",
        place.horizontal, place.vertical, "wraps" if place.wrap_text else "one line",
        cell.border.bottom.style, cell.border.right.style))


def show(sheet):
    page, margins = sheet.page_setup, sheet.page_margins
    print(f"sheet {sheet.title} {sheet.dimensions} {page.orientation} frozen {sheet.freeze_panes}"
          f" titles {sheet.print_title_rows} margins {margins.left} {margins.top} {margins.right} {margins.bottom}")
    header = sheet.oddHeader
    print(f"page header: {header.left.text} | {header.center.text} | {header.right.text} {header.right.size}")
    print("widths", " ".join(f"{name}={column.width:g}" for name, column in sorted(sheet.column_dimensions.items())))
    for row in sheet.iter_rows():
        print(f"row {row[0].row} height {sheet.row_dimensions[row[0].row].height:g}")
        before = None
        for cell in row:
            if cell.value is None and not cell.has_style:
                continue
            style = style_of(cell)
            print(f"{cell.coordinate} {cell.value!r}" + ("" if style == before else f" ({style})"))
            before = style


def show_pictures(archive):
    for name in archive.namelist():
        if name.startswith("xl/media/"):
            print(f"{name} {archive.getinfo(name).file_size} bytes")
        if name.startswith("xl/drawings/drawing"):
            for anchor in xml.etree.ElementTree.fromstring(archive.read(name)):
                for element in anchor.iter():
                    values = " ".join(element.attrib.values())
                    if values and element.tag.split("}")[1] in ("pos", "ext", "cNvPr", "blip"):
                        print(f"picture {element.tag.split('}')[1]} {values}")


if sys.argv[2] == "whole":
    for one in openpyxl.load_workbook(sys.argv[1]).worksheets:
        show(one)
show_pictures(zipfile.ZipFile(sys.argv[1]))
