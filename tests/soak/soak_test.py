"""The console under mixed load while its daemon is stopped, killed and started again.

SOAK_REQUESTS says how many requests.
"""

import concurrent.futures
import contextlib
import hashlib
import os
import random
import re
import socket
import sqlite3
import time
from pathlib import Path

from console_client import ConsoleClient
from support.board_client import USER_ADD, record
from support.fault_case import SANITIZED, take_small_disk, uploads
from support.site_case import SiteCase

REQUESTS = int(os.environ.get("SOAK_REQUESTS", "1000" if SANITIZED else "10000"))
CONNECTIONS, LIFE_SECONDS, UPLOAD_BYTES = 8, 2, 300000
# The peak may grow when the server holds the uploads of all users at once for the first time.
GROWTH_KIB = (8192 if SANITIZED else 2048) + CONNECTIONS * UPLOAD_BYTES // 1024
# A board that was away has lost what a form was about to lead to.
AWAY = re.compile(r"\(00:040[12]\)|board cannot be reached|This confirmation is over")
INSPECTOR, REFRESH = "/common/request.cgi", "/network/orv_refresh_set.cgi"
PAGES = (("/system/sys_status.cgi", "31 C"), ("/user/who.cgi", "soak"),
         ("/user/ch_passwd.cgi", "New password"), ("/common/menu.cgi", "Change password"),
         ("/common/frame.cgi", "/system/sys_status.cgi"),
         ("/common/nothing.cgi", "There is no such page."))
MALFORMED = (b"GARBAGE\r\n\r\n", b"GET / HTTP/1.1\r\n\r\n",
             b"GET /../../etc/passwd HTTP/1.0\r\n\r\n",
             b"POST /common/request.cgi HTTP/1.0\r\nContent-Length: -1\r\n\r\n",
             b"POST /common/request.cgi HTTP/1.0\r\nContent-Length: 9000\r\n\r\ncut off")
take_small_disk()


class User:
    """Does at random what users do, and knows what every answer must be."""

    def __init__(self, soak, name):
        self.soak, self.name, self.random = soak, name, random.Random(name)
        self.client, self.kept, self.asked = ConsoleClient(soak.site.url), {"0"}, 0

    def work(self, requests):
        reading = (*[self.see] * 6, *[self.read_back] * 2, *[self.upload] * 2, self.send_nonsense)
        last = self.asked + requests
        while self.asked < last:
            if not self.client.session:
                self.log_in()
            elif self.client.token():
                self.random.choice((*reading, *[self.write] * 4, self.log_out))()
            else:  # it was asked for while the board was away
                self.random.choice(reading)()

    def ask(self, text, method, *arguments):
        """Returns the answer, which must be the page with `text`; None while the board is away."""
        begin = time.monotonic()
        self.asked += 1
        answer = method(*arguments)
        whole = answer.body.rstrip().endswith(b"</html>")
        if whole and (text in answer.text() or text.encode() in answer.body):
            return answer
        if not whole or not AWAY.search(answer.text()) or self.soak.outage_end < begin:
            raise AssertionError(f"{self.name}: {method} {arguments} lacks {text}: {answer}")
        self.soak.away.append(begin)
        return None

    def log_in(self):
        if not self.asked:  # more of them would slow down the user's own log-ins
            self.ask("password is wrong", self.client.login, self.name, "guess")
        self.ask("31 C", self.client.login, self.name, "soak-pass")

    def see(self):
        path, text = self.random.choice(PAGES)
        self.ask(text, self.client.get, path)

    def write(self):
        wanted = str(self.random.randrange(4801))
        right = int(wanted) <= 3600
        self.kept |= {wanted} if right else set()
        if self.ask("have been changed" if right else "from 0 to 3600", self.client.submit, REFRESH,
                    {"page_state": "4", "interval": wanted}) and right:
            self.kept = {wanted}

    def read_back(self):
        if answer := self.ask("Refresh interval", self.client.get, REFRESH):
            if answer.field("interval") not in self.kept:
                raise AssertionError(f"{self.name}: {answer.field('interval')} of {self.kept}")
            self.kept = {answer.field("interval")}

    def upload(self):
        content = self.random.randbytes(self.random.randrange(UPLOAD_BYTES))
        self.ask(hashlib.sha256(content).hexdigest(), self.client.upload, INSPECTOR, {}, b"x",
                 content)

    def send_nonsense(self):
        self.ask("could not be read", self.client.request, "POST", INSPECTOR, "x=%4")
        with socket.create_connection(("127.0.0.1", self.soak.site.port), 20) as connection:
            connection.sendall(self.random.choice(MALFORMED))
            connection.shutdown(socket.SHUT_WR)
            answer = b"".join(iter(lambda: connection.recv(4096), b""))
        if not re.match(rb"HTTP/1\.\d 4\d\d |$", answer):
            raise AssertionError(answer)

    def log_out(self):
        session = self.client.session
        if self.ask("You are logged out.", self.client.logout):
            self.client.session = session
            self.ask("/common/timeout.cgi", self.client.get, REFRESH)
        self.client.session = None


class Soak(SiteCase):
    def make_users(self):
        session = self.site.boardctl("login", "admin", typed="admin-pass\n")
        users = [User(self, f"soak{number}") for number in range(CONNECTIONS)]
        for user, role in zip(users, ("administrator", "operator", "staff", "guest") * 2):
            account = record(user.name, "soak-pass", role, "0" * 16, 1)
            self.site.boardctl("set", session, f"{USER_ADD:#x}", account.hex())
        return users

    def restart(self, kill):
        self.outage_end = float("inf")
        if kill:
            self.site.board.kill()
        self.site.restart_board()
        self.outage_end = time.monotonic()

    def let_work(self, users, requests, meanwhile=lambda: None):
        with concurrent.futures.ThreadPoolExecutor(CONNECTIONS) as pool:
            working = [pool.submit(user.work, -(-requests // CONNECTIONS)) for user in users]
            while concurrent.futures.wait(working, LIFE_SECONDS).not_done:
                meanwhile()
        for work in working:
            work.result()  # raises what went wrong

    def measure(self):
        """The peak in KiB and the descriptors of daemon and web server, which do nothing now."""
        time.sleep(1.5)
        found = []
        for process in (self.site.board.pid, self.site.server.pid):
            status = Path(f"/proc/{process}/status").read_text("ascii")
            children = Path(f"/proc/{process}/task/{process}/children").read_text("ascii")
            self.assertEqual(children, "")
            found.append((int(re.search(r"VmHWM:\s+(\d+)", status)[1]),
                          len(os.listdir(f"/proc/{process}/fd"))))
        return found

    def test_soak(self):
        self.outage_end, self.away, kills = 0, [], []
        users, begin = self.make_users(), time.monotonic()
        self.let_work(users, REQUESTS * 3 // 4,
                      lambda: kills.append(self.restart(len(kills) % 2 == 1)))
        self.let_work(users, REQUESTS // 20)
        before = self.measure()
        self.let_work(users, REQUESTS // 5)
        after = self.measure()
        print(f"{sum(user.asked for user in users)} requests in {time.monotonic() - begin:.0f} s,"
              f" {len(self.away)} of them while the board was away, which was {len(kills)} times;"
              f" KiB and descriptors of daemon and server: {before}, then {after}")
        for (memory, descriptors), (memory_then, descriptors_then) in zip(before, after):
            self.assertEqual(descriptors_then, descriptors)
            self.assertLess(memory_then - memory, GROWTH_KIB)
        self.assertEqual(uploads(), set())
        self.site.stop_board()
        with contextlib.closing(sqlite3.connect(self.site.run / "board.db")) as state:
            self.assertEqual(state.execute("PRAGMA integrity_check").fetchall(), [("ok",)])
            kept = dict(state.execute("SELECT name, refresh_interval FROM users"))
        self.assertEqual([user.name for user in users if str(kept[user.name]) not in user.kept], [])
