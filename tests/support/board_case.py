"""A daemon for one test and a client of it.

ORVBOARDD names the program, EMULATOR the words before it when it is for another machine.
"""

import contextlib
import os
import resource
import signal
import sqlite3
import subprocess
import tempfile
import unittest
from pathlib import Path

from support.board_client import LIMIT, BoardClient, BoardError


EMULATOR = os.environ.get("EMULATOR", "").split()


class BoardCase(BoardClient, unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.state, self.path = self.folder / "board.db", self.folder / "board.sock"

    def launch(self, *options, limit=None, kind=resource.RLIMIT_FSIZE):
        def restrict():
            resource.setrlimit(kind, (limit, limit))

        return subprocess.Popen(
            [*EMULATOR, os.environ["ORVBOARDD"],
             "--state", self.state, "--socket", self.path, *options],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
            preexec_fn=restrict if limit else None)

    def start(self, *options, **limits):
        self.daemon = self.launch(*options, **limits)
        self.addCleanup(self.end, signal.SIGKILL)
        ready = self.daemon.stdout.readline()
        self.assertEqual(ready, f"orvboardd: ready on {self.path}\n",
                         ready or self.daemon.stderr.read())

    def end(self, signal_number=signal.SIGTERM):
        """Ends the daemon; returns its exit status, what it printed and what it complained of."""
        if self.daemon.returncode is None:
            self.daemon.send_signal(signal_number)
        output, errors = self.daemon.communicate(timeout=LIMIT)
        return self.daemon.returncode, output, errors

    def start_as(self, *users):
        """Starts the daemon; returns a session for each of the users."""
        self.start()
        return [self.login(user).session for user in users]

    def execute(self, *statements):
        """Reads or changes the state of a daemon that has ended; returns the last rows."""
        with contextlib.closing(sqlite3.connect(self.state)) as database, database:
            return [database.execute(statement).fetchall() for statement in statements][-1]

    def connect(self, data=b""):
        connection = super().connect(data)
        self.addCleanup(connection.close)
        return connection

    def assertRefused(self, detail, operation, *arguments):
        with self.assertRaises(BoardError) as caught:
            operation(*arguments)
        self.assertEqual(caught.exception.detail, detail)

    def assertRefusesToStart(self, text, *arguments, status=1):
        daemon = self.launch(*arguments)
        output, errors = daemon.communicate(timeout=LIMIT)
        self.assertEqual((daemon.returncode, output), (status, ""))
        self.assertRegex(errors, r"^orvboardd: [^\n]*" + text + r"[^\n]*\n$")
