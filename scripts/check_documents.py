"""Checks the documents against the tree and a build: check_documents.py BUILD

Every path, heading, test, option and variable that they name exists, code they show from a file is
in that file, and the commands for mkcatalogue and boardctl that they print succeed.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

TREE = pathlib.Path(__file__).resolve().parent.parent
DOCUMENTS = [TREE / "README.md", TREE / "CONTRIBUTING.md", *sorted(TREE.glob("docs/*.md"))]
FOLDERS = {path.name for path in TREE.iterdir() if path.is_dir()} - {"build"}
OURS = r"(?:\./run|\./test|bench/run|fuzz/run|orvboardd|boardctl|mkcatalogue)\b[^`\n]*"
WRITTEN_BY_READERS = {"console/pages/common/hello.cpp", "console/skeletons/skeleton_hello.txt",
                      "console/pages/network/orv_lanport_set.cpp"}


def expand(name):
    """The names that a{b,c} stands for."""
    found = re.fullmatch(r"([^{]*)\{(.*)\}(.*)", name)
    return [found[1] + part + found[3] for part in found[2].split(",")] if found else [name]


def paths(text):
    for name in re.findall(r"(?<![\w/.])[\w.-]+/[\w.*{},/-]*", text):
        for path in expand(name.rstrip("./,")):
            is_ours = path.split("/")[0] in FOLDERS and not re.search("AREA|NAME", path)
            if is_ours and path not in WRITTEN_BY_READERS and not list(TREE.glob(path)):
                yield path


def links(document, text):
    for name, heading in re.findall(r"\]\(([\w./-]*)#?([\w-]*)\)", text):
        target = document.parent / name if name else document
        titles = re.findall("^#+ (.*)", target.read_text(), re.M) if target.suffix == ".md" else []
        slugs = {re.sub(r"[^\w -]", "", title).lower().replace(" ", "-") for title in titles}
        if not target.exists() or heading and heading not in slugs:
            yield f"{name}#{heading}"


def words(text, sources):
    tests = [f"def {name}(" for name in re.findall(r"\btest_[a-z_0-9]+", text)]
    tests += [", ".join(name.split(".")) + ")"
              for name in re.findall(r"`([A-Z]\w+\.[A-Z]\w+)`", text)]
    options = re.findall(r"`(--[a-z-]+)", text)
    options += [word for line in re.findall(OURS, text)
                for word in re.findall(r" (--[a-z-]+)", line)]
    variables = re.findall(r"\bORV(?:GUI)?_[A-Z_]+\b", text)
    return {word for word in (*tests, *options, *variables) if word not in sources}


def code(text):
    """Whole files, which begin with a comment, after a sentence that names them."""
    for name, block in re.findall(r"`([\w./]+\.cpp)`[^`]*?```cpp\n(.*?)```", text, re.S):
        is_file = block.startswith("//") and name not in WRITTEN_BY_READERS
        if is_file and block != (TREE / name).read_text(encoding="utf-8"):
            yield f"other code than {name}"


def run(script, build, **environment):
    folder = f"{build}/tools"
    done = subprocess.run(["bash", "-ec", script], capture_output=True, text=True, check=False,
                          env={**os.environ, "PATH": f"{folder}:{os.environ['PATH']}",
                               **environment})
    return [] if done.returncode == 0 else [f"{script} fails: {done.stderr}"]


def commands(text, build, work):
    """Runs the lines for mkcatalogue, and those for boardctl as a user with a new board."""
    lines = re.findall(r"^ *(mkcatalogue --.*)", text, re.M)
    session = re.findall(r"^ *\$ (?:build/host/tools/|SID=\$\(build/host/tools/)?(boardctl .*)",
                         text, re.M)
    session = [re.sub(r"mI3x…", "$SID", line.rstrip(")")) for line in session]
    session = [f"SID=$({line} <<< admin-pass)" if "login" in line else line for line in session]
    yield from run("\n".join([f"cd {work}", *lines, *session]), build,
                   ORV_IPC_SOCKET=f"{work}/board.sock")


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    found = []
    sources = "".join(path.read_text(errors="replace") for path in TREE.rglob("*")
                      if path.is_file() and path.suffix != ".md"
                      and path.relative_to(TREE).parts[0] not in (".git", "build"))
    with tempfile.TemporaryDirectory() as work:
        for name in ("english.txt", "japanese.txt"):
            shutil.copy(TREE / "console/catalogue" / name, work)
        with subprocess.Popen([build / "board/orvboardd", "--state", f"{work}/state", "--socket",
                               f"{work}/board.sock"], stdout=subprocess.PIPE) as board:
            board.stdout.readline()
            for document in DOCUMENTS:
                text = document.read_text(encoding="utf-8")
                found += [f"{document.name}: {problem}" for problem in
                          (*paths(text), *links(document, text), *words(text, sources),
                           *code(text), *commands(text, build, work))]
            board.terminate()
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
