"""The library's ABI against the kept lists beside this file.

    symbols.txt   what programs may link
    platform.txt  what the library takes from the platform: the porter's list
    layout.txt    bases, virtual slots and members, in their order, of every class of the headers

The lists hold for every machine: no sizes and no offsets. A change that only adds is compatible;
anything else breaks programs that are already built. `abi_test.py --write` takes the present state
as the new lists. CONSOLE_BUILD names the build folder.
"""

import os
import pathlib
import re
import sys
import tempfile
import unittest

from support import BuildFolder, dwarf

LISTS = pathlib.Path(__file__).resolve().parent
SOURCES = LISTS.parent.parent
BUILD = BuildFolder(os.environ["CONSOLE_BUILD"])


def dynamic_symbols(which):
    """Kind and name of every symbol, each once."""
    lines = BUILD.tool("nm", "-D", "-C", which, BUILD.shared_object).splitlines()
    symbols = [re.match(r"[0-9a-f]* *(\w) (.*)", line).groups() for line in lines]
    return sorted({(kind, dwarf.plain(name)) for kind, name in symbols})


def exported():
    # Inline variables come and go with the compiler's options; every program has its own.
    return sorted(name for kind, name in dynamic_symbols("--defined-only")
                  if kind not in "VWu" or name.startswith(("vtable for ", "typeinfo ")))


def taken_from_platform():
    return sorted(name for _, name in dynamic_symbols("--undefined-only")
                  if "ORVLib::" in name or name.startswith(("lmsg_", "lgui_")))


def layout():
    folders = [SOURCES / "include", SOURCES / "platform/include"]
    with tempfile.TemporaryDirectory() as work:
        probe, built = pathlib.Path(work) / "probe.cpp", pathlib.Path(work) / "probe.o"
        probe.write_text("".join(f'#include "{header.relative_to(folder)}"\n' for folder in folders
                                 for header in sorted(folder.glob("*/*.h"))))
        # Classes are described although nothing here uses them.
        BUILD.tool("cxx", "-std=c++17", "-gdwarf-4", "-fno-eliminate-unused-debug-types",
            "-femit-class-debug-always", *(f"-I{folder}" for folder in folders), "-c", probe,
            "-o", built)
        dump = BUILD.tool("readelf", "--wide", "--debug-dump=info", built)
    return [line for described in dwarf.classes(dump, "ORVLib::") for line in described]


CHECKS = {"symbols.txt": exported, "platform.txt": taken_from_platform, "layout.txt": layout}


class Abi(unittest.TestCase):
    maxDiff = None

    def test_kept_lists(self):
        for name, present in CHECKS.items():
            with self.subTest(name):
                self.assertEqual(present(), (LISTS / name).read_text().splitlines())


def write():
    for name, present in CHECKS.items():
        (LISTS / name).write_text("".join(line + "\n" for line in present()))


if __name__ == "__main__":
    write() if sys.argv[1:] == ["--write"] else unittest.main()
