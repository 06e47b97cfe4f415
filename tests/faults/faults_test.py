"""Missing, ended, hanging and damaged parts: each leads to the right page or the right error."""

import contextlib
import errno
import fcntl
import hashlib
import http.client
import os
import random
import resource
import signal
import sqlite3
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from console_site import ConsoleSite
from support.board_client import (
    BOARD_FAILURE, CHECK_SESSION, LOGIN, LOGOUT, NO_SESSION, PRODUCT, SOME_ITEM, STAGE,
    SYSTEM_NAMES, WRITE, BoardError, message, number, telegram)
from console_client import BOUNDARY, multipart
from support.fault_case import (
    BUILD, ERROR_STATUS, NOT_LOADED, SANITIZED, FaultCase, take_small_disk, uploads)
from support.site_case import WAY, running_pages

INSPECTOR, NAMES = "/common/request.cgi", "/system/sys_info.cgi"
SEARCH, FIRMWARE = "/system/sel_filtering.cgi", "/maintenance/orv_firmup.cgi"
CHANGED, MEANWHILE = "have been changed", "Somebody else has changed these settings meanwhile"
BROKEN, LATE, GONE = (rf"\(00:0{code}\)" for code in ("402", "405", "40[12]"))
NOTHING_THROWN = "terminate called without an active exception"  # for want of memory to throw it
KIB, MIB = 2**10, 2**20
SMALL_DISK = take_small_disk()


def all_names(name, **more):
    """The form that gives the server's names that name, all of them."""
    return {"page_state": "4", "system_name": name, "asset_tag": name,
            "location": name, "contact": name, **more}


class Limits(FaultCase):
    def exhaust(self):
        """Leaves no room in /var/tmp."""
        filler = Path("/var/tmp/filler")
        self.addCleanup(filler.unlink, missing_ok=True)
        with filler.open("wb", buffering=0) as file, self.assertRaises(OSError):
            while True:
                file.write(bytes(4096))
        return filler

    def firstGood(self, limits, attempt, *arguments, **options):
        """Below some limit an attempt fails as it should, above it none does."""
        done = [attempt(limit, *arguments, **options) for limit in limits]
        self.assertEqual(done, sorted(done))
        return limits[done.index(True)]

    def tryPage(self, limit, kind, right, *request, **options):
        page = self.page(*request, limits=[(kind, limit)], **options)
        ends = NOT_LOADED + (-signal.SIGABRT,) * (NOTHING_THROWN in page.log)
        self.assertIn(page.exit_status, (0, ERROR_STATUS, *ends), (limit, page.log))
        done = (page.exit_status, page.body) == (right.exit_status, right.body)
        self.assertTrue(done or page.log or page.exit_status in ends, limit)
        return done

    def test_an_upload_without_room_is_lost_and_said_to_be(self):
        for size, limit in [(12 * MIB, None)] * SMALL_DISK + [
                (2 * MIB, most) for most in (0, 1, 65535, 65536, MIB + 1, 2 * MIB - 1)]:
            limits = [] if limit is None else [(resource.RLIMIT_FSIZE, limit)]
            page = self.page(INSPECTOR, file=bytes(size), limits=limits)
            self.assertIn("could not be stored", page.text())
            self.assertEqual((page.exit_status, page.rows()), (0, {}))
            self.assertIn(f"errno {errno.EFBIG if limits else errno.ENOSPC}", page.log)
            self.assertNothingLeft()
        self.start()
        self.session = self.login().session
        page = self.page(FIRMWARE, {"page_state": "3"}, file=bytes(MIB),
                         limits=[(resource.RLIMIT_FSIZE, 0)])
        self.assertIn("could not be stored", page.text())
        page = self.page(INSPECTOR, file=bytes(2 * MIB))
        self.assertIn(hashlib.sha256(bytes(2 * MIB)).hexdigest(), page.text())

    @unittest.skipUnless(SMALL_DISK, "no disk of our own here")
    def test_a_full_or_read_only_disk_stops_what_cannot_be_stored_and_nothing_else(self):
        folder = tempfile.TemporaryDirectory(prefix="state-", dir="/var/tmp")
        self.state = Path(self.enterContext(folder)) / "db"
        filler = self.exhaust()
        self.assertRefusesToStart("full")
        filler.unlink()
        self.start()
        session = self.login().session
        with self.assertRaises(BoardError) as caught:
            for offset in range(0, 10 * MIB, 65000):
                self.put(STAGE, session, number(offset) + bytes(65000))
        self.assertEqual((caught.exception.detail, caught.exception.action), (BOARD_FAILURE, 3))
        kept = bytes(60000)
        self.put(SOME_ITEM, session, kept)  # an image leaves room for settings
        filler = self.exhaust()
        with self.assertRaises(BoardError):
            for count in range(1000):
                self.put(SOME_ITEM, session, b"%04d" % count * 15000)
                kept = b"%04d" % count * 15000
        self.assertEqual(self.get(SOME_ITEM, session), kept)
        filler.unlink()
        self.put(SOME_ITEM, session, b"room again")
        self.end(signal.SIGKILL)
        self.start()
        self.assertEqual(self.get(SOME_ITEM, session), b"room again")
        ended = self.login().session
        filler = self.exhaust()
        with self.assertRaises(BoardError):
            for count in range(1000):
                self.put(SOME_ITEM, session, b"%06d" % count * 15 * (1000 - count))
        self.ask(LOGOUT, ended)
        self.end(signal.SIGKILL)
        filler.unlink()
        self.start()
        self.assertRefused(NO_SESSION, self.check, ended)
        self.end()
        self.addCleanup(subprocess.run, ["mount", "-o", "remount,rw", "/var/tmp"], check=True)
        subprocess.run(["mount", "-o", "remount,ro", "/var/tmp"], check=True)
        self.assertRefusesToStart("cannot be opened for writing")

    def test_what_cannot_be_written_is_said_and_a_lost_log_ends_nothing(self):
        self.start()
        self.session = self.login().session
        board, boardctl = [os.environ["ORVBOARDD"]], [BUILD / "tools/boardctl"]
        catalogue = [BUILD / "tools/mkcatalogue", "--charset", "ISO-8859-1", "--dump",
                     BUILD / "site/etc/orv/trace/cgistrj.out"]
        with open("/dev/full", "wb") as full, tempfile.TemporaryFile() as log:
            for command in (board + ["--help"], boardctl + ["--help"], boardctl + ["language"],
                            board + ["--state", self.folder / "x", "--socket", self.folder / "y"],
                            catalogue):
                done = subprocess.run(command, env={"ORV_IPC_SOCKET": self.path}, stdout=full,
                                      stderr=subprocess.PIPE, text=True, check=False)
                self.assertEqual((done.returncode, done.stderr.count("\n")), (1, 1), command)
                self.assertIn("standard output", done.stderr)
            self.assertIn("not be written to its end", self.page(NAMES, stdout=full).log)
            for streams in ({"stderr": full},
                            {"stderr": log, "limits": [(resource.RLIMIT_FSIZE, 0)]}):
                page = self.page(INSPECTOR, {"a": "b"}, missing=1, **streams)
                self.assertError(page, "could not be read")

    @unittest.skipIf(SANITIZED, "a sanitizer needs descriptors of its own")
    def test_few_descriptors(self):
        kind = resource.RLIMIT_NOFILE
        limits = range(1, 24)
        self.firstGood(limits, self.tryDaemon, kind)
        self.start("--client-timeout", "500", limit=15, kind=kind)
        silent = [self.connect() for _ in range(9)]
        self.session = self.login().session
        self.waitFor(lambda: self.descriptors() == self.idle)  # they have been sent away
        for path, file in ((NAMES, None), (INSPECTOR, b"x"), (SEARCH, None)):
            right = self.page(path, file=file)
            self.firstGood(limits, self.tryPage, kind, right, path, file=file)
        self.assertEqual({connection.recv(1) for connection in silent}, {b""})

    @unittest.skipIf(SANITIZED, "a sanitizer's own memory is without measure")
    def test_little_memory(self):
        kind = resource.RLIMIT_DATA
        self.start()
        self.session = self.login().session
        for path, file in ((NAMES, None), (INSPECTOR, bytes(300 * KIB))):
            self.firstGood(range(128 * KIB, MIB, 4 * KIB), self.tryPage, kind,
                           self.page(path, file=file), path, file=file)
        self.end()
        least = self.firstGood(range(256 * KIB, 24 * MIB, 512 * KIB), self.tryDaemon, kind)
        self.start(limit=least + 10 * MIB, kind=kind)
        session = self.login().session
        begun = message(LOGIN, telegram()) + message(LOGIN, bytes(60000))[:-1]
        greedy = [self.connect(begun) for _ in range(100)]
        self.assertRefused(BOARD_FAILURE, self.login)  # and is not said to have the wrong password
        for connection in greedy:
            connection.close()
        self.check(session)

    def test_a_body_is_read_only_of_whom_it_may_be_taken(self):
        self.start()
        admin, guest = (self.login(user).session for user in (b"admin", b"guest"))
        form, file = {"fields": {"a": "x" * 3 * MIB}}, {"file": bytes(3 * MIB)}
        for path, session, body, text in (
                (NAMES, admin, form, "413 Payload Too Large"), (NAMES, admin, file, "413 "),
                (INSPECTOR, b"", form, "413 "), (FIRMWARE, admin, form, "413 "),
                (FIRMWARE, b"nobody", file, "timeout.cgi"), (FIRMWARE, guest, file, r"\(00:0502\)"),
                (FIRMWARE, admin, file, r"\(00:0413\)")):  # is read, and nothing comes
            self.session = session
            self.assertRegex(self.page(path, missing=3 * MIB, **body).body.decode("latin-1"), text)

    @unittest.skipIf(SANITIZED, "a sanitizer's own memory is without measure")
    def test_a_page_that_needs_too_much_ends_in_an_error_page(self):
        fields = {str(number): "" for number in range(700000)}
        page = self.page(INSPECTOR, fields, file=b"x")
        self.assertError(page, "Error")
        self.assertIn("bad_alloc", page.log)
        body = multipart({}, b"file.bin", bytes(3 * MIB))
        reader, writer = os.pipe()
        process = self.start_page(INSPECTOR, file=bytes(3 * MIB), stdin=reader)
        os.close(reader)
        os.write(writer, body[:2 * MIB])
        self.waitFor(lambda: uploads() - self.uploads)
        process.send_signal(signal.SIGXCPU)
        page = self.finish_page(process)
        os.close(writer)
        self.assertIn("too much processor time", page.text())
        self.assertIn("too much processor time", page.log)


class Peers(FaultCase):
    def test_a_daemon_that_dies_or_hangs_leaves_a_change_done_or_not(self):
        self.start()
        self.session = self.login().session
        present = self.page(NAMES)
        for item in (CHECK_SESSION, PRODUCT, SYSTEM_NAMES, SYSTEM_NAMES | WRITE):
            for kind, text in (("silence", LATE), ("stall", LATE), ("crash-before", BROKEN),
                               ("crash-after", BROKEN), ("crash-midway", BROKEN),
                               ("crash-late", GONE)):
                with self.subTest(item=hex(item), kind=kind):
                    self.end(signal.SIGKILL)
                    self.start("--fault", f"{item:x}:{kind}")
                    page = self.page(NAMES, all_names(kind, seen=present.field("seen")))
                    isWritten = item & WRITE and kind not in ("silence", "crash-before")
                    if isWritten and kind == "crash-late":
                        self.assertIn(CHANGED, page.text())
                    else:
                        self.assertError(page, text)
                    self.end(signal.SIGKILL)
                    self.start()
                    before, present = present, self.page(NAMES)
                    name = kind if isWritten else before.field("contact")
                    self.assertEqual(present.field("contact"), name)
                    self.assertNothingLeft()
        self.daemon.send_signal(signal.SIGSTOP)
        self.assertError(self.page(NAMES), LATE)
        self.daemon.send_signal(signal.SIGCONT)
        self.assertEqual(self.page(NAMES).body, present.body)
        self.end(signal.SIGKILL)
        self.assertError(self.page(NAMES), GONE)

    def test_a_client_that_goes_costs_only_its_page(self):
        for missing in (1, 100, 65536, 3 * MIB):
            for size, text in ((MIB, "could not be read"), (3 * MIB, r"\(00:0413\)")):
                page = self.page(INSPECTOR, file=bytes(size), missing=min(missing, size))
                self.assertError(page, text)
                self.assertNothingLeft()
        for taken in (0, 1, 4000, 5000, 20000):
            reader, writer = os.pipe()
            fcntl.fcntl(writer, fcntl.F_SETPIPE_SZ, 4096)
            process = self.start_page(INSPECTOR, {"text": "x" * 30000}, file=bytes(MIB),
                                      stdout=writer)
            os.close(writer)
            with open(reader, "rb", buffering=0) as taker:
                while taken > 0:
                    taken -= len(taker.read(min(taken, 4096)))
            page = self.finish_page(process)
            self.assertEqual(page.exit_status, 0)
            self.assertIn("not be written to its end", page.log)
            self.assertNothingLeft()

    def test_a_web_server_that_ends_takes_its_pages_along(self):
        body = multipart({}, b"file.bin", bytes(6 * MIB))
        for ending in (signal.SIGTERM, signal.SIGKILL):
            for sent, delay in ((len(body) // 2, 0.01), *((len(body), i / 200) for i in range(6))):
                with self.subTest(ending=ending, sent=sent, delay=delay), \
                        ConsoleSite(BUILD, self.folder, **WAY) as site:
                    self.assertFalse([path for path in site.uploads.rglob("*") if path.is_file()])
                    connection = http.client.HTTPConnection("127.0.0.1", site.port)
                    connection.putrequest("POST", INSPECTOR)
                    connection.putheader("Content-Type",
                                         "multipart/form-data; boundary=" + BOUNDARY)
                    connection.putheader("Content-Length", len(body))
                    connection.endheaders(body[:sent])
                    time.sleep(delay)
                    site.server.send_signal(ending)
                    site.server.wait()
                    connection.close()
                    self.waitFor(lambda: not running_pages())
                    self.assertNothingLeft()


class State(FaultCase):
    def test_a_running_daemon_keeps_its_state_and_outlives_its_damage(self):
        self.start()
        session = self.login().session
        with contextlib.closing(sqlite3.connect(self.state, timeout=0)) as other:
            with self.assertRaisesRegex(sqlite3.OperationalError, "locked"):
                other.execute("BEGIN IMMEDIATE")
        self.put(SOME_ITEM, session, bytes(60000))
        for file in (self.state, self.state.with_name("board.db-wal")):
            file.write_bytes(random.Random(5).randbytes(file.stat().st_size))
        for _ in range(20):
            try:
                self.put(SOME_ITEM, session, bytes(60000))
                self.login()
            except BoardError as error:
                self.assertEqual(error.detail, BOARD_FAILURE)
        self.check(session)
        self.end(signal.SIGKILL)
        self.assertRefusesToStart("damaged")

    def test_of_two_administrators_the_second_is_told(self):
        self.start()
        self.session = self.login().session
        seen = self.page(NAMES).field("seen")
        asked = self.page(NAMES, all_names("first", page_state="3", seen=seen))
        done = self.page(NAMES, all_names("first", seen=asked.field("seen")))
        self.assertIn(CHANGED, done.text())
        self.session = self.login().session
        late = self.page(NAMES, all_names("second", seen=seen))
        self.assertIn(MEANWHILE, late.text())
        self.assertEqual(late.field("contact"), "first")
        done = self.page(NAMES, all_names("second", seen=late.field("seen")))
        self.assertIn(CHANGED, done.text())
        for _ in range(20):  # at the same time, the last one counts
            both = [self.start_page(NAMES, all_names(name)) for name in "xy"]
            for page in both:
                self.assertIn(CHANGED, self.finish_page(page).text())
            kept = self.page(NAMES)
            self.assertEqual(kept.field("system_name"), kept.field("contact"))
