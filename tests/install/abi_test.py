"""The library's ABI against the kept lists in this folder.

    symbols.txt   the symbols that programs may link, and what functions return
    platform.txt  the symbols that the library takes from the platform: the porter's list
    layout.txt    the bases, virtual slots and members, in order, of every class of the headers

The lists contain no sizes and no offsets, so that they are the same for every machine. A change
that only adds is compatible; any other change breaks programs that are already built.
`abi_test.py --write` writes the lists again. CONSOLE_BUILD names the build folder.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

from build_folder import BuildFolder
from site_parts import PROJECT


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
    names = {name for kind, name in dynamic_symbols("--defined-only")
             if kind not in "VWu" or name.startswith(("vtable for ", "typeinfo "))}
    returned = Description(BUILD.shared_object).returned()
    return sorted(name + returned.get(name, "") for name in names)


def taken_from_platform():
    return sorted(name for _, name in dynamic_symbols("--undefined-only")
                  if "ORVLib::" in name or name.startswith(("lmsg_", "lgui_")))


def demangled(lines):
    readable = subprocess.run(["c++filt"], input="\n".join(lines), capture_output=True, text=True,
                              check=True)
    return plain(readable.stdout).splitlines()


class Description:
    """What abidw tells of a library."""

    def __init__(self, library):
        described = subprocess.run(["abidw", "--load-all-types", library], capture_output=True,
                                   check=True)
        self.top = xml.etree.ElementTree.fromstring(described.stdout)
        self.types = {entry.get("id"): entry for entry in self.top.iter() if entry.get("id")}

    def returned(self):
        """What functions return, by their names; nothing without debug information."""
        found = {entry.get("mangled-name"): self.name(entry.find("return"))
                 for entry in self.top.iter("function-decl") if entry.get("elf-symbol-id")}
        return {name: f" -> {kind}" for name, kind in zip(demangled(found), found.values())
                if kind != "void"}

    def classes(self):
        """The classes in ORVLib with a line for each base, virtual slot and member."""
        found = {}

        def visit(scope, prefix):
            for entry in scope:
                if entry.tag in ("namespace-decl", "class-decl"):
                    name = prefix + entry.get("name")
                    visit(entry, name + "::")
                    if name.startswith("ORVLib::") and entry.get("size-in-bits"):
                        found[name] = self.lines(entry)
                else:
                    visit(entry, prefix)

        visit(self.top, "")
        return found

    def lines(self, described):
        def offset(entry):
            return float(entry.get("layout-offset-in-bits", "inf"))

        for entry in sorted(described, key=offset):
            virtual = entry.get("vtable-offset")
            if entry.tag == "base-class":
                yield f"    base {self.name(entry)}"
            elif virtual:  # a destructor has two slots, and the compiler does not say which
                slot = f" slot {virtual}" if virtual != "-1" else ""
                kind = self.name(entry[0].find("return"))
                yield f"    virtual{slot} {entry[0].get('mangled-name')} -> {kind}"
            elif offset(entry) < float("inf"):
                yield f"    member {entry[0].get('name')}: {self.name(entry[0])}"

    def name(self, user):
        """The name of the type that an entry has, without the arguments of a template."""
        used = self.types[user.get("type-id")]
        if used.tag == "array-type-def":
            return f"{self.name(used)}[{']['.join(part.get('length') for part in used)}]"
        if used.tag in DERIVED:
            return self.name(used) + DERIVED[used.tag]
        if used.tag == "typedef-decl":
            return self.name(used)
        return used.get("name", used.tag).partition("<")[0]


def layout():
    folders = [PROJECT / "include", PROJECT / "platform/include"]
    lines = [f'#include "{header.relative_to(path)}"\n' for path in folders
             for header in sorted(path.glob("*/*.h"))]
    with tempfile.TemporaryDirectory() as folder:
        probe, built = pathlib.Path(folder) / "probe.cpp", pathlib.Path(folder) / "probe.so"
        probe.write_text("".join(lines) + "int exported;\n")  # abidw wants a symbol
        # GCC omits unused classes unless told otherwise; abidw 2.2 reads DWARF 4.
        BUILD.tool("cxx", "-std=c++17", "-gdwarf-4", "-fno-eliminate-unused-debug-types",
                   "-femit-class-debug-always", *(f"-I{path}" for path in folders), "-fPIC",
                   "-shared", probe, "-o", built)
        classes = Description(built).classes()
    return demangled(line for name in sorted(classes) for line in (name, *classes[name]))


CHECKS = {"symbols.txt": exported, "platform.txt": taken_from_platform, "layout.txt": layout}


class Abi(unittest.TestCase):
    maxDiff = None

    def test_the_abi_is_that_of_the_kept_lists(self):
        for name, present in CHECKS.items():
            with self.subTest(name):
                found, kept = present(), (LISTS / name).read_text().splitlines()
                if not any(" -> " in line for line in found):  # no debug information
                    kept = [line.partition(" -> ")[0] for line in kept]
                self.assertEqual(found, kept)


def write():
    for name, present in CHECKS.items():
        (LISTS / name).write_text("".join(line + "\n" for line in present()))


if __name__ == "__main__":
    write() if sys.argv[1:] == ["--write"] else unittest.main()
