"""Builds each example in the comments of the public headers: examples_test.py BUILD LIBRARY…"""

import json
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

TREE = pathlib.Path(__file__).resolve().parents[2]
HEADERS = [*TREE.glob("include/gui/*.h"), *TREE.glob("platform/include/orv/*.h")]
START = "".join(f"#include <{name}>\n" for name in ("cstdio", "iostream", "memory", "vector"))


def make_source() -> str:
    """A function for each example, with the lines of its header."""
    parts = [START, *(f'#include "{header}"\n' for header in HEADERS),
             "using namespace ORVLib;\nusing namespace ORVLib::Gui;\nint main() {}\n"]
    for header in HEADERS:
        text = header.read_text(encoding="utf-8")
        for found in re.finditer(r"/// @code\n(.*?)/// @endcode", text, re.S):
            line = text.count("\n", 0, found.start(1)) + 1
            code = re.sub("^/// ?", "", found[1], flags=re.M)
            parts.append(f'void {header.stem}{line}() {{\n#line {line} "{header}"\n{code}}}\n')
    assert "#line" in parts[-1], "no example found"
    return "".join(parts)


def main() -> int:
    commands = json.loads((pathlib.Path(sys.argv[1]) / "compile_commands.json").read_text())
    page = next(entry for entry in commands if "/console/pages/" in entry["file"])
    options = shlex.split(page["command"].partition(" -o ")[0])
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder) / "examples.cpp"
        source.write_text(make_source(), encoding="utf-8")
        return subprocess.run([*options, "-Werror", source, "-o", source.with_suffix(""),
                               *sys.argv[2:]], check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
