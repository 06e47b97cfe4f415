"""What the library takes of a machine: footprint.py [--output FILE] BUILD_FOLDER...

Prints the figures of each build, or writes them to FILE as docs/footprint.md. Exits with 1 and a
line for each budget that a build exceeds.
"""

import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

from build_folder import BuildFolder

KIB = 1024
LARGEST_LIBRARY = 256 * KIB
LARGEST_PAGE = 5 * KIB * KIB

# What every C++ program needs, the dynamic loader included.
RUNTIME = re.compile(r"(libstdc\+\+|libgcc_s|libm|libc|ld(-linux.*|64)?)\.so\.\d+$")

SKELETON = "Content-Type: text/html\r\n\r\n<p>Hello, $body$!</p>\n"
PAGE_END = b"</p>\n"

# The emulator lays a 32-bit program below this address and itself above it.
EMULATED_END = 1 << 32

DOCUMENT = """\
# Footprint

`scripts/make_footprint` makes this page. A test checks the budgets.

{table}

- **Stripped library**: the file `liborvgui.so.{version}` without symbols and debug information.
- **Relocations** are the addresses that the loader fills in before a page begins, **static constructors**
  the entries of `.init_array`, one of which is the compiler's own.
- **Smallest page**: `scripts/smallest_page.cpp`, which prints one field of the request in a skeleton, without
  a session. On this machine the figure is the peak of its resident memory, including shared libraries. In
  the emulator it is the resident part of the page's own addresses after printing, without the emulator's
  memory. Code that the emulator has only read for translation counts there, too.
"""  # noqa: E501


def stripped_size(build):
    with tempfile.TemporaryDirectory() as work:
        stripped = pathlib.Path(work) / "stripped"
        build.tool("strip", "-o", stripped, build.shared_object)
        return stripped.stat().st_size


def needed(build):
    return re.findall(r"\(NEEDED\).*\[(.*)\]", build.tool("readelf", "-dW", build.shared_object))


def relocations(build):
    counts = re.findall(r"contains (\d+) entr", build.tool("readelf", "-rW", build.shared_object))
    return sum(map(int, counts))


def static_constructors(build):
    bits = int(re.search(r"Class: +ELF(\d+)", build.tool("readelf", "-hW", build.shared_object))[1])
    size = re.search(r" \.init_array +\w+ +\w+ +\w+ +(\w+)",
                     build.tool("readelf", "-SW", build.shared_object))
    return int(size[1], 16) * 8 // bits if size else 0


def resident_of_page(build):
    """Bytes of memory that the smallest page takes when it has been printed."""
    with tempfile.NamedTemporaryFile("w", newline="") as skeleton:
        skeleton.write(SKELETON)
        skeleton.flush()
        environment = {**os.environ, "REQUEST_METHOD": "GET", "QUERY_STRING": "who=you"}
        with subprocess.Popen(build.command(build.folder / "scripts/smallest_page", skeleton.name),
                              env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL) as page:
            shown = b""
            while not shown.endswith(PAGE_END):
                line = page.stdout.readline()
                if not line:
                    raise SystemExit(f"{build.folder}: the smallest page printed {shown!r}")
                shown += line
            emulated = bool(build.settings["emulator"])
            return resident_emulated(page.pid) if emulated else resident(page.pid)


def resident(pid):
    status = pathlib.Path(f"/proc/{pid}/status").read_text()
    return int(re.search(r"VmHWM:\s+(\d+) kB", status)[1]) * KIB


def resident_emulated(pid):
    maps = re.findall(r"^([0-9a-f]+)-.*?\n(?:(?!Rss).*\n)*?Rss: +(\d+) kB",
                      pathlib.Path(f"/proc/{pid}/smaps").read_text(), re.MULTILINE)
    inside = [int(size) for start, size in maps if int(start, 16) < EMULATED_END]
    if not any(inside):
        raise SystemExit("the emulator did not lay the page into the lowest 4 GiB")
    return sum(inside) * KIB


def is_allowed(build, library):
    platform = [re.sub(r"^(.*/)?(lib|-l)?|\.so.*$", "", name)
                for name in build.settings["platform"].split(";")]
    return RUNTIME.match(library) or re.sub(r"^lib|\.so.*$", "", library) in platform


def measure(build):
    return {"size": stripped_size(build), "needed": needed(build),
            "relocations": relocations(build), "constructors": static_constructors(build),
            "resident": resident_of_page(build)}


def excesses(build, figures):
    """A line for each budget that the figures exceed."""
    where = f"{build.settings['machine']} ({build.folder})"
    lines = []
    if figures["size"] > LARGEST_LIBRARY:
        lines.append(f"{where}: the stripped library has {figures['size']} bytes, "
                     f"{figures['size'] - LARGEST_LIBRARY} more than it may")
    lines += [f"{where}: the library needs {name}, neither the C++ runtime nor the platform"
              for name in figures["needed"] if not is_allowed(build, name)]
    if figures["resident"] > LARGEST_PAGE:
        lines.append(f"{where}: the smallest page takes {figures['resident'] // KIB} KiB of memory,"
                     f" {LARGEST_PAGE // KIB} are allowed")
    return lines


def table(builds, measured):
    def row(head, budget, cells):
        return "| " + " | ".join([head, budget, *cells]) + " |"

    def kib(count):
        return f"{count / KIB:.1f} KiB"

    settings = [build.settings for build in builds]
    return "\n".join([
        row("", "Budget", [f"{s['machine']}, {s['compiler']}" for s in settings]),
        row("---", "---", ["---"] * len(builds)),
        row("Stripped library", f"at most {LARGEST_LIBRARY // KIB} KiB",
            [kib(f["size"]) for f in measured]),
        row("Libraries it needs", "the C++ runtime and the platform",
            [", ".join(f"`{name}`" for name in f["needed"]) for f in measured]),
        row("Relocations", "", [str(f["relocations"]) for f in measured]),
        row("Static constructors", "", [str(f["constructors"]) for f in measured]),
        row("Smallest page, resident", f"at most {LARGEST_PAGE // KIB} KiB",
            [f"{f['resident'] // KIB} KiB" for f in measured]),
    ])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--output", type=pathlib.Path)
    parser.add_argument("builds", nargs="+", type=BuildFolder)
    options = parser.parse_args()

    measured = [measure(build) for build in options.builds]
    shown = table(options.builds, measured)
    if options.output:
        version = options.builds[0].settings["version"]
        options.output.write_text(DOCUMENT.format(table=shown, version=version))
    else:
        print(shown)
    lines = [line for pair in zip(options.builds, measured) for line in excesses(*pair)]
    print("\n".join(lines), end="\n" if lines else "", file=sys.stderr)
    return 1 if lines else 0


if __name__ == "__main__":
    sys.exit(main())
