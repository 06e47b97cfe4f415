"""All that `./run --check` does, pages and daemon under valgrind: no error, nothing lost.

What can still be reached when a program ends may stay.
"""

import concurrent.futures
import os
import pathlib
import re
import tempfile
import unittest

from console_check import ALONE, INDEPENDENT
from console_site import ConsoleSite

VALGRIND = "/usr/bin/valgrind"
OPTIONS = ("--leak-check=full", "--show-leak-kinds=definite,indirect,possible", "--vgdb=no",
           "--errors-for-leak-kinds=definite,indirect,possible", "--read-inline-info=no")


class Walk(unittest.TestCase):
    def setUp(self):
        self.run_folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        options = " ".join((*OPTIONS, f"--log-file={self.run_folder}/valgrind.%p"))
        os.environ["VALGRIND_OPTS"] = options
        self.site = ConsoleSite(os.environ["CONSOLE_BUILD"], self.run_folder,
                                environment={"VALGRIND_OPTS": options}, runner=VALGRIND)

    def test_no_program_has_an_error_or_a_leak(self):
        with self.site, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            for done in [pool.submit(check, self.site, *more) for check, *more in INDEPENDENT]:
                done.result()
            for check in ALONE:
                check(self.site)
        pages = self.site.build / "site/usr/local/www/htdocs"
        unseen = {str(page) for page in pages.glob("*/*.cgi")} | {
            str(self.site.build / "board/orvboardd")}
        for report in self.run_folder.glob("valgrind.*"):
            text = report.read_text(encoding="utf-8", errors="replace")
            program = re.search(r" Command: (\S+)", text)[1]
            unseen.discard(program)
            with self.subTest(program=program):
                self.assertTrue("ERROR SUMMARY: 0 errors" in text, text)
        self.assertEqual(unseen, set())
