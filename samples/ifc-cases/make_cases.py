#!/usr/bin/env python3
"""Writes the files of this folder: make_cases.py writes them here, make_cases.py FOLDER writes them and the large ones
there, and make_cases.py --check answers 1 and names the files that are not as they would be written."""
import pathlib
import sys

from body_cases import body_cases
from rule_cases import large_cases, rule_cases

HERE = pathlib.Path(__file__).parent


def contents(cases):
    rows = [row for case in cases for row in case.expected]
    files = {case.name + ".ifc": case.text() for case in cases}
    assert len(files) == len(cases), "two cases have one name"
    return files | {"expected.txt": "\n".join(["file;element;quantity;value;tolerance;how"] + rows) + "\n"}


def write(folder, files):
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in files.items():
        (folder / name).write_bytes(text.encode("latin-1" if name.startswith("raw-latin") else "utf-8"))


def check(files):
    """Files that are missing or others, and those that no case writes."""
    with_bytes = {n: t.encode("latin-1" if n.startswith("raw-latin") else "utf-8") for n, t in files.items()}
    there = {p.name: p.read_bytes() for p in [*HERE.glob("*.ifc"), *HERE.glob("expected.txt")]}
    wrong = sorted(n for n in with_bytes.keys() | there.keys() if with_bytes.get(n) != there.get(n))
    print("\n".join(wrong))
    return 1 if wrong else 0


if __name__ == "__main__":
    small = [*body_cases(), *rule_cases()]
    if sys.argv[1:] == ["--check"]:
        sys.exit(check(contents(small)))
    if sys.argv[1:]:
        write(pathlib.Path(sys.argv[1]), contents(small + [*large_cases()]))
    else:
        write(HERE, contents(small))
