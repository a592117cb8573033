"""picture_map.py PICTURE.ppm SIDE: a picture as letters, one for each square of SIDE pixels: a blank for white, "." for
little on white such as texts and lines, else a letter for the colour of most of it, which the last lines explain."""
import collections
import sys

with open(sys.argv[1], "rb") as file:
    kind, size, depth, pixels = file.read().split(b"\n", 3)
assert (kind, depth) == (b"P6", b"255")
width, height = map(int, size.split())
side = int(sys.argv[2])
letters = {}
for top in range(0, height, side):
    squares = collections.defaultdict(collections.Counter)
    for y in range(top, min(top + side, height), 2):
        row = pixels[3 * width * y:3 * width * (y + 1)]
        for x in range(0, width, 2):
            squares[x // side][row[3 * x:3 * x + 3]] += 1
    line = ""
    for _, colours in sorted(squares.items()):
        most, count = colours.most_common(1)[0]
        isWhite = most == b"\xff\xff\xff"
        inked = 1 - count / sum(colours.values())
        line += (" ." [inked > 0.02]) if isWhite else letters.setdefault(most, chr(ord("a") + len(letters)))
    print(line.rstrip() + "|")
for colour, letter in letters.items():
    print(letter, *colour)
