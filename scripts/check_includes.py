"""Says which files include a header of a layer above their own: check_includes.py

A layer may include itself and the layers in its row. A public header belongs to the layer of its
source; one without a source, and what platform and libraries offer, may be included by all.
"""

import pathlib
import re
import sys

PROJECT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = (".", "include", "platform/include", "platform", "platform/host", "src", "board",
           "console")
INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)
LIBRARY = tuple("src/" + name
                for name in ("base", "message", "component", "backend", "request", "page"))
FRAMEWORK = tuple("console/framework/" + name
                  for name in ("backend", "component", "access", "input", "page"))
BOARD = ("board/wire", "board/state", "board/item", "board/daemon")
ALLOWED = {
    "platform/include": (), "platform/common": (), "platform/host": (), "multicall": (),
    "protocol": (),
    **{layer: LIBRARY[:i] for i, layer in enumerate(LIBRARY)}, "src/navigation": LIBRARY,
    **{layer: BOARD[:i] + ("platform/host", "protocol") for i, layer in enumerate(BOARD)},
    **{layer: FRAMEWORK[:i] + LIBRARY + ("src/navigation", "protocol")
       for i, layer in enumerate(FRAMEWORK)},
    "console/pages": FRAMEWORK + LIBRARY + ("src/navigation", "protocol"),
}
FOR_ALL = ("platform/include", "platform/common", "include/gui")
# A page is made of public headers alone; nobody but the library includes its own.
PRIVATE = ("src/",)


def layer_of(path):
    if path.parts[0] == "include":
        sources = list(PROJECT.glob(f"src/*/{path.stem}.cpp"))
        return f"src/{sources[0].parent.name}" if sources else "include/gui"
    depth = 3 if path.parts[:2] == ("console", "framework") else 2
    return "/".join(path.parent.parts[:depth])


def find(name, source):
    for folder in (*FOLDERS, source.parent):
        path = pathlib.Path(folder) / name
        if (PROJECT / path).is_file():
            return path
    return None


def problems():
    for folder in ("include", "src", "platform", "multicall", "protocol", "board", "console"):
        for file in sorted((PROJECT / folder).rglob("*.[hc]*")):
            source = file.relative_to(PROJECT)
            layer = layer_of(source)
            if file.suffix not in (".h", ".cpp") or layer == "include/gui":
                continue
            for name in INCLUDE.findall(file.read_text(encoding="utf-8")):
                header = find(name, source)
                if header is None:  # made in the build
                    continue
                other = layer_of(header)
                is_private = str(header).startswith(PRIVATE) and not layer.startswith(PRIVATE)
                if is_private or other not in (layer, *ALLOWED[layer], *FOR_ALL):
                    yield f"{source}: {layer} must not include {header}, which is in {other}"


def main():
    found = list(problems())
    for problem in found:
        print(problem, file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
