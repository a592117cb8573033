"""Packs files of many kinds and lets other archive readers judge the result.

usage: judge_archives.py [WINE] PACKER

Every reader must be there; one that is missing fails the check.
"""
import os
import random
import struct
import subprocess
import sys
import tempfile
import time
import zipfile


def inputs(is_windows):
    noise = random.Random(6)
    files = {
        "empty.xml": b"",
        "one.xml": b"x",
        "all.bin": bytes(range(256)),
        "runs.txt": b"a" * 3_000_000 + b"b" * 70_000,
        "random": noise.randbytes(1_000_001),
        "sheet.xml": b"".join(b"<c r='A%d'><v>%d</v></c>" % (row, row * row % 99991) for row in range(1_000_000)),
        "packed.gz": noise.randbytes(50_000),
        "packed.zip": b"",
        "loud.ZIP": b"not really" * 100,
        "[Content_Types].xml": b"<Types/>",
        "blank in name.txt": b"blank",
    }
    if not is_windows:
        files["grün ✓.txt"] = b"not ASCII"
    return files


def require(holds, what):
    if not holds:
        sys.exit("judge_archives: " + what)


def run(*command):
    result = subprocess.run(command, capture_output=True, text=True, errors="replace")
    require(result.returncode == 0, "%s: exit %d\n%s%s" % (command[0], result.returncode, result.stdout, result.stderr))


def check_content(archive, files):
    with zipfile.ZipFile(archive) as opened:
        entries = opened.infolist()
        names = [entry.filename.encode("cp437" if not entry.flag_bits & 0x800 else "utf-8").decode() for entry in entries]
        require(names == list(files), "names or their order differ: %s" % names)
        for index, (entry, (name, content)) in enumerate(zip(entries, files.items())):
            require(opened.read(entry) == content, name + ": content")
            require(entry.compress_type == (0 if name in ("packed.gz", "packed.zip") else 8), name + ": method")
            modified = struct.unpack("<2sHBI", entry.extra)[3]
            require(modified == stamp(index), name + ": time")
            # The seconds are doubled, cut to five bits, and read as pairs.
            utc = time.gmtime(modified)
            require(entry.date_time == (*utc[:5], (utc.tm_sec * 2 & 31) * 2), name + ": DOS time")
            require(entry.external_attr >> 16 == 0x8180, name + ": mode")


def stamp(index):
    return 1_600_000_000 + 86_399 * index


def main():
    packer = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        files = inputs(packer[-1].endswith(".exe"))
        for index, (name, content) in enumerate(files.items()):
            path = os.path.join(folder, name)
            with open(path, "wb") as file:
                file.write(content)
            os.utime(path, (stamp(index), stamp(index)))
        archive = os.path.join(folder, "out.archive")
        run(*packer, archive, *(os.path.join(folder, name) for name in files))
        run("unzip", "-tqq", archive)
        run("7z", "t", "-tzip", archive)
        check_content(archive, files)


main()
