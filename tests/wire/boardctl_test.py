"""The daemon as a page author uses it: boardctl, which BOARDCTL names, over a real socket."""

import os
import pty
import subprocess

from support.board_case import EMULATOR, BoardCase

ITEM = "0x02011234"
BOARDCTL = [*EMULATOR, os.environ["BOARDCTL"]]


class Boardctl(BoardCase):
    def setUp(self):
        super().setUp()
        self.start()
        self.environment = {**os.environ, "ORV_IPC_SOCKET": str(self.path)}

    def boardctl(self, *words, typed=None, status=0):
        done = subprocess.run([*BOARDCTL, *words], env=self.environment, input=typed,
                              capture_output=True, text=True, check=False, timeout=60)
        self.assertEqual(done.returncode, status, done.stderr)
        return done.stdout.strip() if status == 0 else done.stderr

    def open(self, user="admin"):
        return self.boardctl("login", user, typed=user + "-pass\n")

    def test_a_session_from_login_to_logout(self):
        session = self.open()
        self.assertRegex(session, r"^[A-Za-z0-9_-]{31}$")
        self.assertEqual(self.boardctl("language"), "1")
        self.assertEqual(self.boardctl("check", session),
                         "refresh: 60 s\nlanguage: 1\nrights: system-administrator")
        self.assertEqual(self.boardctl("user", self.open("part")),
                         "language: 1\nrights: partition-0 partition-3")
        self.assertEqual(self.boardctl("user", self.open("operator")),
                         "language: 0\nrights: operator")
        self.assertEqual(self.boardctl("get", session, "0x02010073"), "000001bb")
        self.assertIn("part\tpartition\t1001000000000000\t1\n", self.boardctl("users", session))
        self.assertRegex(self.boardctl("sessions", session),
                         r"(?m)^operator\toperator\tboardctl\t\d+\t\d+$")
        self.assertRegex(self.boardctl("events", session).splitlines()[0],
                         r"^\d+\t\d+\tinfo\tsecurity\t101\toperator\tboardctl$")
        self.boardctl("logout", session)
        self.assertIn("error 1031", self.boardctl("check", session, status=1))

    def test_refusals_say_why(self):
        self.assertIn("error 1281", self.boardctl("login", "admin", typed="wrong\n", status=1))
        self.assertIn("error 1283", self.boardctl("get", self.open(), ITEM, status=1))
        for words in ((), ("fly",), ("check",), ("get", "s", "12x"), ("get", "s", "0x100000000"),
                      ("set", "s", "1", "0"), ("set", "s", "1", "0g"), ("logout", "s", "t"),
                      ("get", "s", "0x0201800b"), ("set", "s", "0x0201400b", "00"),
                      ("check", "s" * 32), ("login", "u" * 33)):
            self.assertIn("usage: boardctl", self.boardctl(*words, status=2))
        self.boardctl("login", "admin", typed="p" * 33 + "\n", status=2)
        self.end()
        self.assertIn("error 1025", self.boardctl("language", status=1))

    def test_a_typed_password_is_not_shown(self):
        terminal, slave = pty.openpty()
        with subprocess.Popen([*BOARDCTL, "login", "admin"], env=self.environment,
                              stdin=slave, stdout=subprocess.PIPE, stderr=slave) as boardctl:
            shown = os.read(terminal, 100)
            os.write(terminal, b"admin-pass\n")
            session = boardctl.stdout.read()
            shown += os.read(terminal, 100)
        os.close(slave)
        os.close(terminal)
        self.assertEqual(len(session), 32)
        self.assertIn(b"Password: ", shown)
        self.assertNotIn(b"admin-pass", shown)
