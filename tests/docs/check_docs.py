"""check_docs.py PROGRAMS SOURCE FOLDER: what the pages show is so. Each page's "sh" blocks run one after another beside
copies of the samples; "# exit N" behind a command is how it ends, and a "text" or "json" block after it is what it
prints, "..." standing for anything. A picture is such a block as well. Blocks marked "<!-- not run: REASON -->" are
left out. docs/architecture.md names every target."""
import html
import pathlib
import re
import shutil
import subprocess
import sys

programs, source, folder = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
CALL = re.compile(r"(?m)^ *(\S*/)?(\./run|kelvarnix )")
FENCE = re.compile(r"(?ms)^ *```(\w*)\n(.*?)^ *```$")
failures, count = [], 0


def run(place, commands):
    if not place.exists():
        shutil.copytree(source / "samples", place / "samples")
        shutil.copy(source / "run", place)
        (place / "build/release").mkdir(parents=True)
        (place / "tools").mkdir()
        (place / "build/release/bin").symlink_to(programs)
        for built_already in ("bootstrap", "cmake"):
            (place / "tools" / built_already).symlink_to("/bin/true")
    script = re.sub(r"(?m)^(.+?) *# exit (\d)$", r"code=0; \1 || code=$?; [ $code = \2 ]", commands)
    script = f"PATH={place}/tools:{programs}:$PATH\n{script}"
    end = subprocess.run(["bash", "-euc", script], cwd=place, capture_output=True, text=True)
    if end.returncode:
        failures.append(f"{place.name}: ends with {end.returncode}:\n{commands}{end.stderr}")
    return end.stdout or end.stderr  # where nothing is printed, the message


def compare(name, shown, printed):
    shown, printed = (" ".join(text.split()) for text in (shown, printed))
    if not re.fullmatch(re.escape(shown).replace(re.escape("..."), ".*"), printed):
        failures.append(f"{name}: the page shows\n{shown}\nand the program prints\n{printed}")


for page in [*source.glob("*.md"), *source.glob("docs/*.md"), *source.glob("samples/*.md")]:
    text, printed, place = page.read_text("utf-8"), None, folder / f"{page.parent.name}.{page.name}"
    if stray := CALL.search(re.sub(FENCE, lambda block: "" if block[1] == "sh" else block[0], text)):
        failures.append(f"{page.name}: {stray[0]}... stands in no block of shell commands")
    for block in FENCE.finditer(text):
        if block[1] == "sh":
            marked = re.search(r"<!-- not run: \S[^>]*-->\s*$", text[:block.start()])
            count, printed = (count, None) if marked else (count + 1, run(place, block[2]))
        elif block[1] in ("text", "json"):
            compare(page.name, block[2], printed or "nothing")
for picture in source.glob("docs/pictures/*.svg"):
    command, *shown = map(html.unescape, re.findall(r">([^<]+)</text>", picture.read_text("utf-8")))
    shown = re.sub("(Last update:).*", r"\1 ...", "\n".join(shown))
    compare(picture.name, shown, run(folder / picture.name, command.removeprefix("$ ")))
for lists in source.glob("[!bt]*/**/CMakeLists.txt"):
    for target in re.findall(r"(?:add_library|kelvarnix_\w+)\(\s*([\w-]+)", lists.read_text("utf-8")):
        if f"`{target}`" not in (source / "docs/architecture.md").read_text("utf-8"):
            failures.append(f"architecture.md: {target} is missing")
sys.exit("\n\n".join(failures) or (count < 10 and "hardly a block was run"))
