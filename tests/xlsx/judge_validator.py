"""Lets the Open XML SDK's validator judge workbooks; its findings must be exactly the expected ones.

usage: judge_validator.py --install WORK
       judge_validator.py FOLDER WORK [EXPECTED BOOK...]
FOLDER    with the workbooks
WORK      a folder into which the validator is installed once
EXPECTED  a file beside this one with the expected findings; without it the gallery's books and findings
"""
import filecmp
import json
import os
import shutil
import subprocess
import sys
from collections import Counter

FOLDER, WORK = (os.path.abspath(argument) for argument in sys.argv[1:3])
HERE = os.path.dirname(os.path.abspath(__file__))
EXPECTED = sys.argv[3] if len(sys.argv) > 3 else "expected-findings.txt"
BOOKS = sys.argv[4:] or ("gallery", "charts", "styles", "comments", "pictures", "cells")
PROGRAM = os.path.join(WORK, "node_modules", "@xarsh", "ooxml-validator", "dist", "src", "cli.js")
TIME_LIMIT = 300  # seconds


def install():
    source = os.path.join(HERE, "validator")
    wanted, installed = os.path.join(source, "package-lock.json"), os.path.join(WORK, "installed.json")
    if os.path.exists(installed) and filecmp.cmp(wanted, installed, shallow=False):
        return
    os.makedirs(WORK, exist_ok=True)
    for name in ("package.json", "package-lock.json", ".npmrc"):
        shutil.copyfile(os.path.join(source, name), os.path.join(WORK, name))
    cache = os.path.join(WORK, "cache")
    result = subprocess.run(["npm", "install", "--no-audit", "--no-fund", "--cache", cache], cwd=WORK, capture_output=True,
                            text=True, errors="replace", timeout=TIME_LIMIT)
    if result.returncode != 0 or not os.path.exists(PROGRAM):
        sys.exit("judge_validator: the validator cannot be installed\n" + result.stdout + result.stderr)
    shutil.rmtree(cache, ignore_errors=True)
    shutil.copyfile(wanted, installed)


def findings(book):
    path = os.path.join(FOLDER, book + ".xlsx")
    result = subprocess.run(["node", PROGRAM, path, "--officeVersion", "Microsoft365"], capture_output=True, text=True,
                            timeout=TIME_LIMIT)
    try:
        errors = json.loads(result.stdout)["errors"]
    except ValueError:
        sys.exit("judge_validator: %s: no answer\n%s%s" % (path, result.stdout, result.stderr))
    return ["%s | %s | %s | %s" % (book, error["path"], error["xPath"], error["description"]) for error in errors]


def expected():
    with open(os.path.join(HERE, EXPECTED), encoding="utf-8") as file:
        return [line.strip() for line in file if line.strip() and not line.startswith("#")]


if sys.argv[1] == "--install":
    sys.exit(install())
found = Counter(finding for book in BOOKS for finding in findings(book))
wanted = Counter(expected())
for line in sorted((found - wanted).elements()):
    print("judge_validator: not expected: " + line)
for line in sorted((wanted - found).elements()):
    print("judge_validator: expected but not found: " + line)
sys.exit(0 if found == wanted else 1)
