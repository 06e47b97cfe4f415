"""Runs mkcatalogue, whose path is in the environment variable MKCATALOGUE, on real files."""

import os
import resource
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = os.path.abspath(os.environ["MKCATALOGUE"])


def words(*numbers):
    return b"".join(number.to_bytes(4, "big") for number in numbers)


class Mkcatalogue(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir(folder.name)

    def run_program(self, *arguments, **options):
        return subprocess.run([PROGRAM, *arguments], stderr=subprocess.PIPE, timeout=60,
                              **{"stdout": subprocess.PIPE, **options})

    def make(self, text, charset="EUC-JP", **options):
        Path("in.txt").write_bytes(text)
        return self.run_program("--charset", charset, "in.txt", "out", **options)

    def dump(self, catalogue, charset="EUC-JP", **options):
        Path("cat").write_bytes(catalogue)
        return self.run_program("--dump", "--charset", charset, "cat", **options)

    def assert_fails(self, result, error):
        self.assertEqual((result.returncode, result.stderr.decode()), (1, error + "\n"))

    def assert_output_is_as_before(self):
        self.assertEqual(Path("out").read_bytes(), b"before")
        self.assertEqual(sorted(os.listdir()), ["in.txt", "out"])

    def test_makes_the_bytes_pages_read(self):
        for charset, text, expected in (
                ("EUC-JP", b"", words(0)),
                ("EUC-JP", "0 電源\n1 ｱ\n".encode(),
                 words(2, 0, 5) + b"\xc5\xc5\xb8\xbb\0\x8e\xb1\0"),
                ("ISO-8859-1", "0 café".encode(), words(1, 0) + b"caf\xe9\0"),
                ("ISO-8859-1", b"\xef\xbb\xbf# note\r\n \t\r\n2\r\n0 \t a  b \t\r\n01\tc\r\n",
                 words(3, 0, 5, 7) + b"a  b\0c\0\0"),
                ("EUC-JP", rb"0 \x20\n\t\\n\xA4\xfF\x20", words(1, 0) + b" \n\t\\n\xa4\xff \0"),
                ("EUC-JP", b"0 TEXT_A  a\n1 TEXT_B\n2 TEXT_c d\n3 \\x54EXT_D",
                 words(4, 0, 2, 3, 12) + b"a\0\0TEXT_c d\0TEXT_D\0")):
            with self.subTest(text=text):
                result = self.make(text, charset, preexec_fn=lambda: os.umask(0o027))
                self.assertEqual((result.returncode, result.stderr), (0, b""))
                self.assertEqual(os.stat("out").st_mode & 0o777, 0o640)
                self.assertEqual(Path("out").read_bytes(), expected)

    def test_names_file_and_line_of_every_fault_and_leaves_the_output(self):
        start = "the line does not begin with a number and a blank"
        escape = r"unknown escape; known are \n, \t, \\ and \xHH with two hex digits"
        limits = "the number is out of range; numbers are 0 to 65535"
        for text, *errors in (
                (b"0 a\n1 b\n0 c", "3: number 0 is already used on line 1"),
                (b"5 f\n0 a\n2 c", "1: numbers 3 to 4 are missing", "3: number 1 is missing"),
                # The system's converter would make a backslash, a tilde and nothing of these.
                ("0 ¥\n1 ‾\n2 \U000e0041".encode(), "1: EUC-JP cannot hold U+00A5",
                 "2: EUC-JP cannot hold U+203E", "3: EUC-JP cannot hold U+E0041"),
                (b"0 \xc1\x81\n1 \xe0\x82\x80\n2 \xed\xa0\x80\n3 \xf4\x90\x80\x80\n4 \xe9\n5 \xff",
                 *(f"{line}: malformed UTF-8" for line in range(1, 7))),
                (b"0 a\0b\n# \0", *(f"{line}: the line holds a NUL byte" for line in (1, 2))),
                (b"text\n 0 a\n0text\n+1 a", *(f"{line}: {start}" for line in range(1, 5))),
                (b"-1 a\n65536 b\n4294967296 c\n18446744073709551616 d",
                 *(f"{line}: {limits}" for line in range(1, 5))),
                (b"0 \\q\n1 \\\n2 \\x4\n3 \\x4g", *(f"{line}: {escape}" for line in range(1, 5))),
                (b"0 TEXT_A a\n1 TEXT_A b", "2: TEXT_A is already used on line 1"),
                (rb"0 \x00", r"1: \x00 would end the text")):
            with self.subTest(text=text):
                Path("out").write_bytes(b"before")
                self.assert_fails(self.make(text), "\n".join("in.txt:" + e for e in errors))
                self.assert_output_is_as_before()

    def header(self, first, second):
        Path("in.txt").write_text(first, encoding="utf-8")
        Path("other.txt").write_text(second, encoding="utf-8")
        return self.run_program("--header", "N", "in.txt", "other.txt", "out")

    def test_makes_a_header_of_names_that_both_languages_have(self):
        first = "0 TEXT_A a %s %1\n2 c\n1 TEXT_B b"
        self.assertEqual(self.header(first, "0 TEXT_A %1%s 電\n1 TEXT_B\n2\n").returncode, 0)
        header = Path("out").read_text(encoding="utf-8")
        self.assertIn("namespace N {", header)
        self.assertIn("enum Text {\n    TEXT_A = 0,\n    TEXT_B = 1\n};\n", header)
        Path("out").write_bytes(b"before")
        for second, *errors in (
                ("0 TEXT_A a %s %1\n1 TEXT_B b", "other.txt: text 2 (no name) is missing:"
                 " it is in in.txt:2"),
                (first + "\n3 TEXT_C d",
                 "in.txt: text 3 (TEXT_C) is missing: it is in other.txt:4"),
                ("0 TEXT_A a %s %s\n1 b\n2 c", "other.txt:1: the placeholders differ from those in"
                 " in.txt:1", "other.txt:2: no name is called TEXT_B in in.txt:3"),
                (first + "\nx", "other.txt:4: the line does not begin with a number and a blank")):
            self.assert_fails(self.header(first, second), "\n".join(errors))
            self.assertEqual(Path("out").read_bytes(), b"before")

    def test_dumps_text_that_makes_the_same_catalogue(self):
        for charset, area, text in (
                ("EUC-JP", b"\xc5\xc5\xb8\xbb\0\0\x8f\xb0\xa1\0", "0 電源\n1\n2 丂\n"),
                ("EUC-JP", b" \0  a  \0\t\n\\x\0", "0 \\x20\n1 \\x20 a \\x20\n2 \\t\\n\\\\x\n"),
                ("EUC-JP", b"TEXT_A b\0TEXT_A\0TEXT_\0", "0 \\x54EXT_A b\n1 \\x54EXT_A\n2 TEXT_\n"),
                ("EUC-JP", b"\xa4\0\x1b\x85\x7f\0\xa4\xffA\xa4\xa2\xa4\0",
                 "0 \\xa4\n1 \\x1b\\x85\\x7f\n2 \\xa4\\xffAあ\\xa4\n"),
                # Both mean U+FFE2; only the first is what that character is written as.
                ("CP932", b"\x81\xca\0\xee\xf9\0\0", "0 ￢\n1 \\xee\\xf9\n2\n"),
                ("ISO-8859-1", b"\xe9\0\xa5\0\x9f\r\0", "0 é\n1 ¥\n2 \\x9f\\x0d\n")):
            with self.subTest(area=area):
                first = area.index(b"\0") + 1
                catalogue = words(3, 0, first, area.index(b"\0", first) + 1) + area
                self.assertEqual(self.dump(catalogue, charset).stdout.decode(), text)
                self.assertEqual(self.make(text.encode(), charset).returncode, 0)
                self.assertEqual(Path("out").read_bytes(), catalogue)

    def test_dumps_the_largest_catalogue_and_strings_that_share_or_lack_their_end(self):
        most = b"".join(b"%d\n" % number for number in range(65536))
        self.assertEqual(self.make(most).returncode, 0)
        self.assertEqual(self.dump(Path("out").read_bytes()).stdout, most)
        self.assertEqual(self.dump(words(3, 0, 1, 3) + b"abc").stdout, b"0 abc\n1 bc\n2\n")

    def test_refuses_catalogues_that_lie(self):
        short = "too short for a catalogue: the number of strings is cut off"
        for catalogue, error in (
                (b"\0\0\0", short),
                (words(0xffffffff), "damaged: 4294967295 strings do not fit in this file"),
                (words(2, 0) + b"abc", "damaged: 2 strings do not fit in this file"),
                (words(65537) + bytes(65537 * 5), "damaged: 65537 strings do not fit in this file"),
                (words(2, 0, 3) + b"a\0", "damaged: string 1 begins after the end"),
                (words(1, 0xffffffff) + b"a\0", "damaged: string 0 begins after the end"),
                (words(100) + bytes(400) + b"a" * (1 << 20),
                 "damaged: the strings add up to more than 64 MiB"),
                (bytes((64 << 20) + 1), "larger than 64 MiB")):
            with self.subTest(error=error, size=len(catalogue)):
                result = self.dump(catalogue)
                self.assert_fails(result, "mkcatalogue: cat: " + error)
                self.assertEqual(result.stdout, b"")

    def test_reports_what_the_system_refuses(self):
        Path("in.txt").write_bytes(b"0 a")
        os.mkdir("folder")
        for source, target, error in (
                ("none", "out", "none: No such file or directory"),
                ("folder", "out", "folder: Is a directory"),
                ("in.txt", "none/out", "none/out: No such file or directory"),
                ("in.txt", "folder", "folder: not a regular file"),
                ("in.txt", "/dev/null", "/dev/null: not a regular file"),
                ("in.txt", "./in.txt", "./in.txt: input and output are the same file")):
            with self.subTest(error=error):
                result = self.run_program("--charset", "EUC-JP", source, target)
                self.assert_fails(result, "mkcatalogue: " + error)
                self.assertEqual(sorted(os.listdir()), ["folder", "in.txt"])
        with open("/dev/full", "wb") as full:
            self.assert_fails(self.dump(words(1, 0) + b"a\0", stdout=full),
                              "mkcatalogue: standard output: No space left on device")

    def test_a_write_that_fails_half_way_leaves_the_old_output_alone(self):
        Path("out").write_bytes(b"before")
        result = self.make(b"0 " + b"a" * 5000, preexec_fn=lambda: resource.setrlimit(
            resource.RLIMIT_FSIZE, (4096, 4096)))
        self.assert_fails(result, "mkcatalogue: out: File too large")
        self.assert_output_is_as_before()

    def test_refuses_character_sets_that_cannot_hold_strings_and_wrong_usage(self):
        for charset in ("NONE", "", "EUC-JP//TRANSLIT", "UTF-16"):
            result = self.make(b"0 a", charset)
            self.assertRegex(result.stderr.decode(), rf"^.*character set '{charset}'.*\n$")
            self.assertEqual((result.returncode, os.listdir()), (1, ["in.txt"]))
        for arguments in ("in.txt out", "--charset EUC-JP in.txt", "--wrong", "--charset",
                          "--dump --charset EUC-JP in.txt out", "--header N in.txt out"):
            result = self.run_program(*arguments.split())
            self.assertEqual((result.returncode, result.stderr[:7]), (2, b"usage: "), arguments)
