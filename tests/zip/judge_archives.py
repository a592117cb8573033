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
import zlib


def worksheet(size):
    numbers = random.Random(5)
    rows = []
    total = 0
    while total < size:
        row = "<row r='%d'>" % len(rows) + "".join(
            "<c r='%s%d'><v>%g</v></c>" % (column, len(rows), numbers.random() * 1000) for column in "ABCDEFGHI"
        ) + "</row>"
        rows.append(row)
        total += len(row)
    return "".join(rows).encode()


def inputs(is_windows):
    noise = random.Random(6)
    needle = noise.randbytes(180)
    edge = b"".join(needle + noise.randbytes(distance - len(needle)) + needle for distance in range(32505, 32769, 8))
    files = {
        "empty.xml": b"",
        "one.xml": b"x",
        "all.bin": bytes(range(256)),
        "runs.txt": b"a" * 3_000_000 + b"b" * 70_000,
        "random": noise.randbytes(1_000_001),
        "text.txt": b"The quick brown fox jumps over the lazy dog.\n" * 5000,
        "sheet.xml": worksheet(25_000_000),
        "edge.dat": edge,
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


def check_headers(data, entry, path):
    local = struct.unpack_from("<4sHHHHHIIIHH", data, entry.header_offset)
    require(local[0] == b"PK\3\4" and local[1] == 20 and local[2] == 0, entry.filename + ": local header")
    require(local[6:9] == (entry.CRC, entry.compress_size, entry.file_size), entry.filename + ": local sizes")
    require(local[10] == 17, entry.filename + ": local extra length")
    extra = data[entry.header_offset + 30 + local[9]:][:17]
    modified = int(os.stat(path).st_mtime)
    require(struct.unpack("<2sHBI", extra[:9]) == (b"UT", 13, 7, modified), entry.filename + ": local times")
    require(struct.unpack("<2sHBI", entry.extra) == (b"UT", 5, 7, modified), entry.filename + ": central time")
    utc = time.gmtime(modified)
    date = (utc.tm_year - 1980) << 9 | utc.tm_mon << 5 | utc.tm_mday
    clock = utc.tm_hour << 11 | utc.tm_min << 5 | (utc.tm_sec * 2 & 31)
    require((local[4], local[5]) == (clock, date), entry.filename + ": DOS time")
    require(entry.external_attr >> 16 == 0x8180, entry.filename + ": mode")
    start = entry.header_offset + 30 + local[9] + local[10]
    return data[start:start + entry.compress_size]


def check_content(archive, files, folder):
    data = open(archive, "rb").read()
    with zipfile.ZipFile(archive) as opened:
        require(opened.testzip() is None, "zipfile finds a bad entry")
        entries = opened.infolist()
        names = [entry.filename.encode("cp437" if not entry.flag_bits & 0x800 else "utf-8").decode() for entry in entries]
        require(names == list(files), "names or their order differ: %s" % names)
        for entry, (name, content) in zip(entries, files.items()):
            packed = check_headers(data, entry, os.path.join(folder, name))
            is_stored = name in ("packed.gz", "packed.zip")
            require(entry.compress_type == (0 if is_stored else 8), name + ": method")
            require(opened.read(entry) == content, name + ": content")
            if not is_stored:
                inflater = zlib.decompressobj(-15)
                require(inflater.decompress(packed) == content and inflater.eof, name + ": stream")
                require(not inflater.unused_data, name + ": bytes behind the stream")


def main():
    packer = sys.argv[1:]
    is_windows = packer[-1].endswith(".exe")
    with tempfile.TemporaryDirectory() as folder:
        files = inputs(is_windows)
        for index, (name, content) in enumerate(files.items()):
            path = os.path.join(folder, name)
            with open(path, "wb") as file:
                file.write(content)
            stamp = 1_600_000_000 + 86_399 * index
            os.utime(path, (stamp, stamp))
        archive = os.path.join(folder, "out.archive")
        run(*packer, archive, *(os.path.join(folder, name) for name in files))
        run("unzip", "-tqq", archive)
        run("7z", "t", "-tzip", archive)
        check_content(archive, files, folder)
        empty = os.path.join(folder, "empty.archive")
        run(*packer, empty)
        require(open(empty, "rb").read() == b"PK\5\6" + bytes(18), "the empty archive")
        refused = subprocess.run([*packer, os.path.join(folder, "bad.archive"), os.path.join(folder, "missing")],
                                 capture_output=True, text=True, errors="replace")
        require(refused.returncode != 0 and "missing" in refused.stderr, "a missing file goes unnoticed")
        require(not os.path.exists(os.path.join(folder, "bad.archive")), "a failed archive stays behind")
        print("judged %d entries, %d bytes" % (len(files), os.path.getsize(archive)))


main()
