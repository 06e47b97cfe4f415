"""How a firmware image comes to the board and is installed."""

import hashlib
import re
import signal
import struct
import time
from pathlib import Path

from support.board_case import BoardCase
from support.board_client import (
    BAD_REQUEST, BOARD_FAILURE, BUSY, DAMAGED, DROP, LOGOUT, NO_ITEM, PRODUCT, PROGRESS,
    STAGE, STAGED, START, WRITE, BoardError, number, record)


def image(payload, version=b"2.0.0"):
    header = struct.pack(">8sI20s", b"ORVFIRM1", 64 + len(payload), version)
    return header + hashlib.sha256(payload).digest() + payload


class FirmwareTest(BoardCase):
    PIECE = 65000

    def stage(self, session, content, size=PIECE):
        for offset in range(0, len(content), size):
            self.put(STAGE, session, number(offset) + content[offset:offset + size])

    def get_progress(self, session):
        return self.rows(PROGRESS, session, 3)[0]

    def test_an_image_is_staged_by_one_session(self):
        admin, staff = self.start_as(b"admin", b"staff")
        content = image(bytes(range(256)) * 600)
        digest = hashlib.sha256(content).hexdigest()
        file = Path(f"{self.state}.firmware")
        self.assertRefused(NO_ITEM, self.get, STAGED, admin)
        self.assertRefused(BAD_REQUEST, self.put, STAGE, admin, number(1) + b"x")
        self.put(STAGE, admin, number(0) + b"given up")
        self.stage(admin, content)
        self.assertEqual((file.read_bytes(), file.stat().st_mode & 0o777), (content, 0o600))
        self.assertEqual(self.rows(STAGED, admin, 3), [(str(len(content)), digest, "2.0.0")])
        self.assertEqual(self.events(admin, 1), [("info", "firmware", "501", "admin", "2.0.0")])
        # A piece that is not the next one, too long or empty changes nothing.
        for offset, piece in ((len(content) - 1, b"x"), (len(content) + 1, b"x"), (-1, b"x"),
                              (len(content), b""), (len(content), bytes(65001))):
            self.assertRefused(BAD_REQUEST, self.put, STAGE, admin, number(offset % 2**32) + piece)
        self.assertRefused(BAD_REQUEST, self.put, STAGE, staff, number(len(content)) + b"x")
        for item, content_of in ((STAGED, None), (START, record(digest))):
            self.assertRefused(NO_ITEM, self.ask, item | (WRITE if content_of else 0), staff,
                               content_of)
        self.put(DROP, staff, record("drop"))
        self.assertEqual(self.rows(STAGED, admin, 3)[0][1], digest)
        self.put(STAGE, staff, number(0) + content[:99])
        self.assertRefused(NO_ITEM, self.get, STAGED, admin)
        self.assertRefused(DAMAGED, self.get, STAGED, staff)
        self.put(DROP, staff, record("drop"))
        self.assertRefused(NO_ITEM, self.get, STAGED, staff)
        self.assertFalse(file.exists())
        for signal_number, is_left in ((signal.SIGKILL, True), (signal.SIGTERM, False)):
            self.stage(admin, content)
            self.end(signal_number)
            self.assertEqual(file.exists(), is_left)
            self.start()
            self.assertFalse(file.exists())
        self.stage(admin, content)
        self.ask(LOGOUT, admin)
        self.assertFalse(file.exists())

    def test_damaged_images_are_not_installed(self):
        admin, = self.start_as(b"admin")
        good = image(b"payload")
        for content in (
                good[:-1], good + b"x", good[:-1] + b"D", good[:64], b"x" + good[1:],
                good[:40] + b"x" + good[41:], image(b""), image(b"x", b""), image(b"x", b"1\0002"),
                image(b"x", b"1\n"), good[:8] + number(len(good) + 1) + good[12:]):
            with self.subTest(content):
                self.stage(admin, content)
                self.assertRefused(DAMAGED, self.get, STAGED, admin)
                self.assertRefused(DAMAGED, self.put, START, admin,
                                   record(hashlib.sha256(content).hexdigest()))
        for size in (1, 63, 64, 65):
            self.stage(admin, good, size)
            self.assertEqual(self.rows(STAGED, admin, 3)[0][2], "2.0.0")
        self.assertRefused(BAD_REQUEST, self.put, START, admin, record("0" * 64))
        self.assertEqual(self.get_progress(admin), ("idle", "0", ""))

    def test_an_image_has_at_most_96_mebibytes(self):
        admin, = self.start_as(b"admin")
        memory = re.compile(r"VmRSS:\s+(\d+)")
        status = Path(f"/proc/{self.daemon.pid}/status")
        before = int(memory.search(status.read_text())[1])
        full, piece = 96 * 2**20, bytes(self.PIECE)
        for offset in range(0, full - self.PIECE, self.PIECE):
            self.put(STAGE, admin, number(offset) + piece)
        offset += self.PIECE
        self.assertRefused(BAD_REQUEST, self.put, STAGE, admin,
                           number(offset) + bytes(full - offset + 1))
        self.put(STAGE, admin, number(offset) + bytes(full - offset))
        self.assertRefused(BAD_REQUEST, self.put, STAGE, admin, number(full) + b"x")
        self.assertLess(int(memory.search(status.read_text())[1]) - before, 32 * 1024)

    def test_an_image_that_cannot_be_kept_is_dropped(self):
        self.start(limit=1024 * 1024)
        admin = self.login().session
        with self.assertRaises(BoardError) as caught:
            self.stage(admin, bytes(2 * 1024 * 1024))
        self.assertEqual((caught.exception.detail, caught.exception.action), (BOARD_FAILURE, 3))
        self.assertRefused(NO_ITEM, self.get, STAGED, admin)
        self.assertFalse(Path(f"{self.state}.firmware").exists())
        self.stage(admin, image(b"smaller"))
        self.get(STAGED, admin)

    def test_an_installation_changes_the_version(self):
        admin, = self.start_as(b"admin")
        name, serial, version = self.rows(PRODUCT, admin, 3)[0]

        def install(version):
            content = image(b"payload", version)
            self.stage(admin, content)
            self.put(START, admin, record(hashlib.sha256(content).hexdigest()))
            self.assertRefused(NO_ITEM, self.get, STAGED, admin)

        install(b"1.9.broken")
        self.assertEqual(self.get_progress(admin)[::2], ("running", "1.9.broken"))
        self.end(signal.SIGKILL)
        for limit in (1, None):  # with a full disk, too
            self.start(limit=limit)
            self.assertEqual(self.get_progress(admin), ("failed", "0", "1.9.broken"))
            self.end()
        self.start()
        self.assertEqual(self.events(admin, 1), [("error", "firmware", "503", "", "1.9.broken")])

        install(b"x" * 20)
        self.stage(admin, image(b"next"))
        self.assertRefused(BUSY, self.put, START, admin,
                           record(hashlib.sha256(image(b"next")).hexdigest()))
        seen = []
        for _ in range(60):
            seen.append(self.get_progress(admin))
            if seen[-1][0] != "running":
                break
            self.assertEqual(self.rows(PRODUCT, admin, 3), [(name, serial, version)])
            time.sleep(0.25)
        percents = [int(percent) for _, percent, _ in seen]
        self.assertEqual(percents, sorted(percents))
        self.assertGreater(len(set(percents)), 20)
        self.end(signal.SIGKILL)
        self.start()
        self.assertEqual(self.get_progress(admin), ("done", "100", "x" * 20))
        self.assertEqual(self.rows(PRODUCT, admin, 3), [(name, serial, "x" * 20)])
        self.assertEqual(self.events(admin, 1)[0][2:], ("502", "admin", "x" * 20))
