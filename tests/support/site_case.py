"""The console of CONSOLE_BUILD, served for the tests of one file."""

import contextlib
import glob
import os
import tempfile
import unittest
from pathlib import Path

from console_client import ConsoleClient
from console_site import ConsoleSite

BUILD = Path(os.environ["CONSOLE_BUILD"])
# The way of serving: a web server, the page server or plain CGI, and frames or not.
WAY = {"server": os.environ.get("CONSOLE_SERVER", "lighttpd"),
       "scgi": os.environ.get("CONSOLE_SCGI", "") not in ("", "0"),
       "frames": os.environ.get("CONSOLE_FRAMES", "") not in ("", "0")}
SANITIZER_REPORTS = ("AddressSanitizer", "LeakSanitizer", "runtime error:")


def running_pages():
    site, found = os.fsencode(BUILD / "site"), []
    for path in glob.glob("/proc/[0-9]*/cmdline"):
        with contextlib.suppress(OSError):  # it has just ended
            page_server = Path(path).with_name("comm").read_text(encoding="utf-8") == "orvguid\n"
            found += [path] * (Path(path).read_bytes().startswith(site) and not page_server)
    return found


class SiteCase(unittest.TestCase):
    environment = {}  # of the pages
    tls_port = None

    @classmethod
    def setUpClass(cls):
        cls.run_folder = cls.enterClassContext(tempfile.TemporaryDirectory())
        cls.site = cls.enterClassContext(ConsoleSite(BUILD, cls.run_folder,
                                                     environment=cls.environment,
                                                     tls_port=cls.tls_port, **WAY))
        cls.client = ConsoleClient(cls.site.url)

    def tearDown(self):
        log = self.trace_log()
        for report in SANITIZER_REPORTS:
            self.assertNotIn(report, log)

    def trace_log(self):
        if not self.site.trace_log.exists():
            return ""
        return self.site.trace_log.read_text(encoding="utf-8", errors="replace")
