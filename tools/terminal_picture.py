#!/usr/bin/env python3
"""Draws the text of a terminal as an SVG picture: COMMAND | tools/terminal_picture.py 'COMMAND' > picture.svg

The first argument is shown after a prompt, above the text. Nothing is made up or left out.
"""
import sys
from xml.sax.saxutils import escape

LETTER, LINE, MARGIN, FONT = 8.4, 19, 16, 14

lines = [line.rstrip("\n") for line in sys.stdin]
if len(sys.argv) > 1:
    lines = ["$ " + sys.argv[1]] + lines
width = round(2 * MARGIN + LETTER * max(map(len, lines)))
height = 2 * MARGIN + LINE * len(lines)

print(f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}">')
print(f'<rect width="{width}" height="{height}" rx="6" fill="#1e2329"/>')
print(f'<g font-family="DejaVu Sans Mono, Menlo, Consolas, monospace" font-size="{FONT}" fill="#d8dee6">')
for row, line in enumerate(lines):
    if not line.strip():
        continue
    colour = ' fill="#8fbf7f"' if row == 0 and len(sys.argv) > 1 else ""
    indent = len(line) - len(line.lstrip())
    text = line.strip()
    x, y = MARGIN + LETTER * indent, MARGIN + LINE * row + FONT
    # The length is given, so that columns agree whatever font the viewer has.
    print(f'<text x="{x:.1f}" y="{y}" textLength="{LETTER * len(text):.1f}" xml:space="preserve"{colour}>'
          f"{escape(text)}</text>")
print("</g>\n</svg>")
