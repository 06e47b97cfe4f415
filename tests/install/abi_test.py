"""The library's ABI against the kept lists in this folder.

    symbols.txt   the symbols that programs may link
    platform.txt  the symbols that the library takes from the platform: the porter's list
    layout.txt    the bases, virtual slots and members, in order, of every class of the headers

The lists contain no sizes and no offsets, so that they are the same for every machine. A change that
only adds is compatible; any other change breaks programs that are already built. `abi_test.py --write`
writes the lists again. CONSOLE_BUILD names the build folder.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

from support import PROJECT, BuildFolder

LISTS = pathlib.Path(__file__).resolve().parent
BUILD = BuildFolder(os.environ["CONSOLE_BUILD"])
STRING = re.compile(r"std::(__cxx11::)?basic_string<char, std::char_traits<char>, "
                    r"std::allocator<char> ?>")
DERIVED = {"pointer-type-def": "*", "reference-type-def": "&", "qualified-type-def": " const"}


def plain(text):
    return re.sub(" +>", ">", STRING.sub("std::string", text))


def dynamic_symbols(which):
    """The kind and name of every symbol."""
    lines = BUILD.tool("nm", "-D", "-C", which, BUILD.shared_object).splitlines()
    return {re.match(r"[0-9a-f]* *(\w) (.*)", plain(line)).groups() for line in lines}


def exported():
    # Inline variables come and go with the compiler's options; every program has its own.
    return sorted({name for kind, name in dynamic_symbols("--defined-only")
                   if kind not in "VWu" or name.startswith(("vtable for ", "typeinfo "))})


def taken_from_platform():
    return sorted(name for _, name in dynamic_symbols("--undefined-only")
                  if "ORVLib::" in name or name.startswith(("lmsg_", "lgui_")))


def described_headers(folder):
    """abidw's description of a library that includes all public headers."""
    probe, built = folder / "probe.cpp", folder / "probe.so"
    folders = [PROJECT / "include", PROJECT / "platform/include"]
    headers = [header.relative_to(path) for path in folders for header in sorted(path.glob("*/*.h"))]
    lines = [f'#include "{header}"\n' for header in headers]
    probe.write_text("".join(lines) + "int exported;\n")  # abidw refuses a library without symbols
    # GCC omits unused classes unless told otherwise; abidw 2.2 reads DWARF 4.
    BUILD.tool("cxx", "-std=c++17", "-gdwarf-4", "-fno-eliminate-unused-debug-types",
               "-femit-class-debug-always", *(f"-I{path}" for path in folders), "-fPIC", "-shared",
               probe, "-o", built)
    described = subprocess.run(["abidw", "--load-all-types", built], capture_output=True, check=True)
    return xml.etree.ElementTree.fromstring(described.stdout)


class Layout:
    """The classes of a description by abidw, one line for each base, virtual slot and member."""

    def __init__(self, description):
        self.types = {entry.get("id"): entry for entry in description.iter() if entry.get("id")}
        self.classes = {}
        for unit in description:
            self.visit(unit, "")

    def visit(self, scope, prefix):
        for entry in scope:
            if entry.tag in ("namespace-decl", "class-decl"):
                name = prefix + entry.get("name")
                self.visit(entry, name + "::")
                if name.startswith("ORVLib::") and entry.get("size-in-bits"):
                    self.classes[name] = self.lines(entry)
            else:
                self.visit(entry, prefix)

    def lines(self, described):
        def offset(entry):
            return float(entry.get("layout-offset-in-bits", "inf"))

        for entry in sorted(described, key=offset):
            virtual = entry.get("vtable-offset")
            if entry.tag == "base-class":
                yield f"    base {self.name(entry)}"
            elif virtual:  # a destructor has two slots, and the compiler does not say which
                slot = f" slot {virtual}" if virtual != "-1" else ""
                yield f"    virtual{slot} {entry[0].get('mangled-name')}"
            elif offset(entry) < float("inf"):
                yield f"    member {entry[0].get('name')}: {self.name(entry[0])}"

    def name(self, user):
        """The name of the type that an entry has, without the arguments of a template."""
        used = self.types[user.get("type-id")]
        if used.tag == "array-type-def":
            return f"{self.name(used)}[{']['.join(part.get('length') for part in used)}]"
        if used.tag in DERIVED:
            return self.name(used) + DERIVED[used.tag]
        return self.name(used) if used.tag == "typedef-decl" else used.get("name").partition("<")[0]


def layout():
    with tempfile.TemporaryDirectory() as folder:
        classes = Layout(described_headers(pathlib.Path(folder))).classes
    lines = [line for name in sorted(classes) for line in (name, *classes[name])]
    readable = subprocess.run(["c++filt"], input="\n".join(lines), capture_output=True, text=True,
                              check=True)
    return plain(readable.stdout).splitlines()


CHECKS = {"symbols.txt": exported, "platform.txt": taken_from_platform, "layout.txt": layout}


class Abi(unittest.TestCase):
    maxDiff = None

    def test_the_abi_is_that_of_the_kept_lists(self):
        for name, present in CHECKS.items():
            with self.subTest(name):
                self.assertEqual(present(), (LISTS / name).read_text().splitlines())


def write():
    for name, present in CHECKS.items():
        (LISTS / name).write_text("".join(line + "\n" for line in present()))


if __name__ == "__main__":
    write() if sys.argv[1:] == ["--write"] else unittest.main()
