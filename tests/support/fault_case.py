"""Programs under faults: where they run, what they are given, and that nothing of them is left."""

import glob
import hashlib
import os
import re
import resource
import signal
import subprocess
import sys
import tempfile
import time
import urllib.parse
from pathlib import Path

from console_client import BOUNDARY, Answer, multipart
from support.board_case import BoardCase
from support.board_client import LIMIT
from support.site_case import SANITIZER_REPORTS

BUILD = Path(os.environ["CONSOLE_BUILD"])
SANITIZED = "ORVGUI_SANITIZE:BOOL=ON" in (BUILD / "CMakeCache.txt").read_text(encoding="utf-8")
TIME_LIMIT = 1  # of a page's exchange with the board, in seconds
ERROR_STATUS = 255
NOT_LOADED = (127, -signal.SIGSEGV)  # before a program of ours begins


def take_small_disk():
    """Goes on with 8 MiB of memory as /var/tmp, where this machine lets us mount that."""
    if "SMALL_DISK" not in os.environ:
        command = ["unshare", "--mount", *["--map-root-user"] * (os.geteuid() != 0), "sh", "-c",
                   'mount -t tmpfs -o size=8m tmpfs /var/tmp && exec "$@"', "sh"]
        allowed = subprocess.run([*command, "true"], capture_output=True, check=False)
        os.environ["SMALL_DISK"] = "yes" if allowed.returncode == 0 else ""
        if allowed.returncode == 0:
            os.execvp("unshare", [*command, *sys.orig_argv])
    small = os.environ["SMALL_DISK"] != ""
    print("Full disks are", "small ones of our own" if small else "limits on the size of a file")
    return small


def uploads():
    return set(glob.glob("/var/tmp/tmp_*"))


class Page(Answer):
    """What a page program printed, with its exit status and what it logged."""

    def __init__(self, exit_status, output, log):
        super().__init__(200, {}, output)
        self.exit_status, self.log = exit_status, log.decode("latin-1")


class FaultCase(BoardCase):
    session, daemon = b"", None

    def setUp(self):
        super().setUp()
        self.uploads = uploads()

    def start(self, *options, **limits):
        super().start(*options, **limits)
        self.idle = self.descriptors()

    def tearDown(self):
        self.assertNothingLeft()

    def descriptors(self):
        return sorted(os.listdir(f"/proc/{self.daemon.pid}/fd"))

    def assertNothingLeft(self):
        self.assertEqual(uploads() - self.uploads, set())
        if self.daemon and self.daemon.returncode is None:
            self.waitFor(lambda: self.descriptors() == self.idle)

    def waitFor(self, condition):
        deadline = time.monotonic() + LIMIT
        while not condition():
            self.assertLess(time.monotonic(), deadline)
            time.sleep(0.01)

    def tryDaemon(self, limit=None, kind=None):
        daemon = self.launch(limit=limit, kind=kind)
        ready = daemon.stdout.readline() != ""
        daemon.terminate()
        _, errors = daemon.communicate()
        self.assertIn(daemon.returncode, [0] if ready else [1, *NOT_LOADED], errors)
        self.assertEqual(errors.count("\n"), daemon.returncode > 0, errors)
        return ready

    def start_page(self, path, fields=None, file=None, missing=0, limits=(), **streams):
        """Starts a page as the web server does, whose client keeps back `missing` bytes."""
        if fields and "page_state" in fields:
            token = hashlib.sha256(b"form token of session " + self.session).hexdigest()[:32]
            fields = {**fields, "form_end": token}
        body = urllib.parse.urlencode(fields or {}).encode()
        if file is not None:
            texts = {name.encode(): text.encode() for name, text in (fields or {}).items()}
            body = multipart(texts, b"file.bin", file)
        stdin = self.enterContext(tempfile.TemporaryFile(dir=self.folder))
        stdin.write(body[:len(body) - missing])
        stdin.seek(0)
        path, _, query = path.partition("?")
        environment = {
            "REQUEST_METHOD": "GET" if fields is file is None else "POST", "HTTP_HOST": "board",
            "QUERY_STRING": query,
            "SERVER_PORT": "80", "HTTP_COOKIE": "sid=" + self.session.decode(),
            "CONTENT_LENGTH": str(len(body)), "ORV_IPC_SOCKET": str(self.path),
            "ORV_IPC_TIMEOUT_MS": str(int(TIME_LIMIT * 1000)),
            "CONTENT_TYPE": "multipart/form-data; boundary=" + BOUNDARY if file is not None else ""}
        return subprocess.Popen(
            [BUILD / "site/usr/local/www/htdocs" / path.lstrip("/")], env=environment,
            preexec_fn=lambda: [resource.setrlimit(kind, (most, most)) for kind, most in limits],
            **{"stdin": stdin, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **streams})

    def finish_page(self, process):
        output, log = process.communicate(timeout=3 * LIMIT)
        page = Page(process.returncode, output or b"", log or b"")
        for report in SANITIZER_REPORTS:
            self.assertNotIn(report, page.log)
        redirect = re.match(rb"Status: 303 See Other\nLocation: (.*)\n", page.body)
        return self.page(redirect[1].decode()) if redirect else page

    def page(self, path, fields=None, **options):
        return self.finish_page(self.start_page(path, fields, **options))

    def assertError(self, page, text):
        self.assertEqual(page.exit_status, ERROR_STATUS, page.log)
        self.assertRegex(page.text(), text)
