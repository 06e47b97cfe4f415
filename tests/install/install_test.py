"""What `cmake --install` lays down, used from outside this tree.

CONSOLE_BUILD names the build folder.
"""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

from build_folder import BuildFolder


TREE = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = BuildFolder(os.environ["CONSOLE_BUILD"])
SITE = BUILD.settings["site"]
PREFIX = BUILD.settings["prefix"]
LIBDIR = f"{PREFIX}/{BUILD.settings['libdir']}"

# One file at least of every kind that a component brings.
COMPONENTS = {
    "Runtime": [f"{LIBDIR}/liborvgui.so.1", f"{LIBDIR}/liborvplatform.so.1"],
    "Development": [f"{PREFIX}/include/gui/AbstractMain.h", f"{PREFIX}/include/orv/PException.h",
                    f"{LIBDIR}/liborvgui.so", f"{LIBDIR}/liborvplatform.so",
                    f"{LIBDIR}/liborvgui.a", f"{LIBDIR}/liborvplatform.a",
                    f"{LIBDIR}/pkgconfig/orvgui.pc", f"{LIBDIR}/cmake/orvgui/orvguiConfig.cmake"],
    "Console": [f"{SITE}/etc/orv/trace/cgistr.out", f"{SITE}/etc/orv/trace/cgistrj.out",
                f"{SITE}/usr/local/www/skel/skeleton_top.txt",
                f"{SITE}/usr/local/www/htdocs/common/login.cgi", f"{SITE}/usr/local/www/orvguid",
                f"{SITE}/usr/local/www/htdocs/images/fan_64x64.gif",
                f"{SITE}/usr/local/www/htdocs/default.css"],
    "Board": [f"{PREFIX}/bin/orvboardd", f"{PREFIX}/bin/boardctl"],
}
if not BUILD.settings["emulator"]:
    COMPONENTS["Development"].append(f"{PREFIX}/bin/mkcatalogue")

# A property of hardened files, readelf's words for it or for its lack, and the files.
HARDENED = (
    ("its tables are read-only once relocated", r"GNU_RELRO", True, "all"),
    ("no stack that can be run", r"GNU_STACK .* RW +0x", True, "all"),
    ("no memory both written and run", r"LOAD .* RWE", False, "all"),
    ("the stack's guards", r"__stack_chk_fail", True, "all"),
    ("at a random address", r"FLAGS_1.* PIE", True, "program"),
    ("calls bound at the start", r"BIND_NOW", True, "program"),
    ("calls bound as they are made, for speed", r"BIND_NOW", False, "library"),
    ("calls with checked sizes", r"__\w+_chk\b", True, "library"),
    ("the C++ library's assertions", r"__glibcxx_assert_fail", True, "library"),
)

# Functions for which a static C library loads shared ones.
LOADING = (r"dlopen|dlsym|iconv_open|get(addr|name)info|initgroups"
           r"|get(host|serv|net|proto|pw|gr|sp)\w+")

# A project with a target of its own whose name is also one here.
CMAKE_PROJECT = """\
cmake_minimum_required(VERSION 3.22)
project(outside LANGUAGES CXX)
add_custom_target(docs)
{}
add_executable(page page.cpp)
target_link_libraries(page PRIVATE orvgui::orvgui)
install(TARGETS page)
if(COMMAND orvgui_add_console)
    foreach(name IN ITEMS one two)
        orvgui_add_page(twins ${{name}}/twin.cgi ${{name}}.cpp LIBRARIES orvgui::page)
    endforeach()
    orvgui_add_console(twins FOLDER ${{CMAKE_CURRENT_BINARY_DIR}}/www/pages INSTALL www/pages)
endif()
"""

# A page with the names of another one, which must not run a line of it.
TWIN = """\
#include <cstdio>
#include <stdexcept>
#include "gui/FormInfo.h"
struct Main { virtual ~Main() = default; virtual void run(); };
inline void Main::run() { throw std::runtime_error("NAME runs"); }
inline struct Global { Global() { puts("NAME begins"); } ~Global() { puts("NAME ends"); } } global;
__attribute__((destructor)) void last() { puts("NAME is over"); }
int main() {
    ORVLib::Gui::FormInfo form;
    try { Main().run(); } catch (const std::exception& e) { puts(e.what()); }
}
"""
TWIN_OUTPUT = "NAME begins\nNAME runs\nNAME ends\nNAME is over\n"

SKELETON = b"Content-Type: text/html; charset=$destination$\r\n\r\n<p>Hello, $body$!</p>\n$none$"
PAGE = (b"Content-Type: text/html; charset=iso-8859-1\r\n\r\n"
        b"<p>Hello, &lt;you&gt;&nbsp;&amp;&nbsp;me!</p>\n")


def run(*words, **environment):
    done = subprocess.run([*map(str, words)], env={**os.environ, **environment},
                          stdin=subprocess.DEVNULL, capture_output=True, check=False, timeout=300)
    if done.returncode != 0:
        raise AssertionError(f"{words}: {(done.stdout + done.stderr).decode(errors='replace')}")
    return done


def install(stage, *options):
    run("cmake", "--install", BUILD.folder, *options, DESTDIR=str(stage))
    return {str(file)[len(str(stage)):] for file in stage.rglob("*") if not file.is_dir()}


def build(source, folder, target, *options):
    if toolchain := BUILD.settings["toolchain"]:
        options += (f"-DCMAKE_TOOLCHAIN_FILE={toolchain}",)
    run("cmake", "-G", "Ninja", "-S", source, "-B", folder, *options)
    run("cmake", "--build", folder, "--target", target)


class Install(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.work = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.stage = cls.work / "stage"
        cls.installed = install(cls.stage)
        cls.outside = cls.work / "outside"
        cls.outside.mkdir()
        (cls.outside / "page.cpp").write_bytes((TREE / "scripts/smallest_page.cpp").read_bytes())
        (cls.outside / "skeleton.txt").write_bytes(SKELETON)
        for name in ("one", "two"):
            (cls.outside / (name + ".cpp")).write_text(TWIN.replace("NAME", name))

    def test_components_share_everything_out(self):
        together = []
        for component, expected in COMPONENTS.items():
            with self.subTest(component):
                files = install(self.work / component, "--component", component)
                self.assertLessEqual(set(expected), files)
                together += files
        self.assertEqual(sorted(together), sorted(self.installed))

    def test_everything_that_runs_is_hardened(self):
        files = [pathlib.Path(f"{self.stage}{name}") for name in self.installed]
        files = {file.stat().st_ino: file for file in files
                 if file.read_bytes().startswith(b"\x7fELF")}.values()
        self.assertGreaterEqual(len(files), 5)
        for file in files:
            kinds = ("all", "library" if ".so" in file.name else "program")
            said = BUILD.tool("readelf", "-ldsW", file)
            for what, pattern, expected, kind in HARDENED:
                if kind in kinds:
                    with self.subTest(what, file=file.name):
                        self.assertEqual(bool(re.search(pattern, said)), expected)

    def test_a_static_program_calls_nothing_that_loads_shared_libraries(self):
        program = pathlib.Path(f"{self.stage}{SITE}/usr/local/www/orvguid")
        if "INTERP" in BUILD.tool("readelf", "-lW", program):
            self.skipTest("the console is linked dynamically")
        if BUILD.settings["machine"] == "x86_64":
            self.assertIn("(RELR)", BUILD.tool("readelf", "-dW", program))
        text = (BUILD.folder / "console/console.map").read_text()
        table = text[text.index("\nCross Reference Table"):]
        uses = re.findall(r"^(\S+) +(\S+)\n((?: +\S+\n)*)", table, re.MULTILINE)
        self.assertGreater(len(uses), 1000)
        users = [(name, file) for name, _, files in uses if re.fullmatch(LOADING, name)
                 for file in files.split() if not re.search(r"lib(c|stdc\+\+)\.a\(", file)]
        self.assertEqual(users, [])

    def test_every_header_is_usable(self):
        include = pathlib.Path(f"{self.stage}{PREFIX}/include")
        headers = sorted(header.relative_to(include) for header in include.glob("*/*.h"))
        expected = [header for folder in (TREE / "include/gui", TREE / "platform/include/orv")
                    for header in folder.glob("*.h")]
        self.assertEqual(len(headers), len(expected))
        source = self.outside / "headers.cpp"
        source.write_text("".join(f'#include "{header}"\n' for header in headers))
        run(BUILD.settings["cxx"], "-std=c++17", "-fsyntax-only", f"-I{include}", source)

    def test_page_by_pkg_config(self):
        flags = run("pkg-config", "--cflags", "--libs", "orvgui",
                    PKG_CONFIG_LIBDIR=f"{self.stage}{LIBDIR}/pkgconfig")
        readme = (TREE / "README.md").read_text(encoding="utf-8")
        (self.outside / "hello.cpp").write_text(readme.split("```cpp\n")[1].split("```")[0])
        for name in ("page", "hello"):
            run(BUILD.settings["cxx"], "-std=c++17", self.outside / (name + ".cpp"),
                "-o", self.outside / name, *flags.stdout.decode().split())
        self.ask(self.outside / "page", f"{self.stage}{LIBDIR}")
        self.assertEqual(self.start(f"{self.stage}{LIBDIR}", self.outside / "hello").stdout,
                         b"Content-Type: text/plain\n\nHello\n")

    def test_page_by_cmake(self):
        root = self.work / "root"
        for command, option, libraries in (
                ("find_package(orvgui 1.0 REQUIRED)",
                 f"-Dorvgui_DIR={self.stage}{LIBDIR}/cmake/orvgui", f"{self.stage}{LIBDIR}"),
                (f"add_subdirectory({TREE} orvgui)", "-DCMAKE_CXX_STANDARD=20", root / "lib")):
            with self.subTest(command):
                (self.outside / "CMakeLists.txt").write_text(CMAKE_PROJECT.format(command))
                built = self.work / command.partition("(")[0]
                build(self.outside, built, "all", option, f"-DCMAKE_INSTALL_PREFIX={root}",
                      f"-DCMAKE_CXX_COMPILER={BUILD.settings['cxx']}")
                self.assertNotIn("BUILD_TESTING", (built / "CMakeCache.txt").read_text())
                run("cmake", "--install", built)
                self.ask(root / "bin/page", libraries)
                self.ask_twins(root / "www", libraries)

    def test_library_is_built_on_a_platform_that_is_given(self):
        product = self.work / "product"
        platform = f"{self.stage}{LIBDIR}/liborvplatform.so"
        build(TREE, product, "orvgui", "-DBUILD_TESTING=OFF",
              f"-DORVGUI_PLATFORM_INCLUDE={self.stage}{PREFIX}/include",
              f"-DORVGUI_PLATFORM_LIBRARIES={platform}")
        self.assertFalse((product / "board").exists())
        self.assertIn(platform, (product / "orvgui.pc").read_text())

    def ask(self, page, libraries):
        """Runs a page as the web server does, with the libraries in a folder."""
        answer = self.start(libraries, page, self.outside / "skeleton.txt")
        self.assertEqual(answer.stdout, PAGE)
        self.assertIn(b"printed", answer.stderr)

    def ask_twins(self, folder, libraries):
        for name in ("one", "two"):
            shown = self.start(libraries, folder / f"pages/{name}/twin.cgi").stdout.decode()
            self.assertEqual(shown, TWIN_OUTPUT.replace("NAME", name))
        elsewhere = folder / "pages/one/other.cgi"
        elsewhere.unlink(missing_ok=True)
        elsewhere.hardlink_to(folder / "orvguid")
        with self.assertRaisesRegex(AssertionError, "no page of this console is at .*other.cgi"):
            self.start(libraries, elsewhere)

    @staticmethod
    def start(libraries, *page):
        return run(*BUILD.command(*page), REQUEST_METHOD="GET", QUERY_STRING="who=%3Cyou%3E+%26+me",
                   LD_LIBRARY_PATH=str(libraries))
