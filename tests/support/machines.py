"""Two machines that run pages: this one, and the board, emulated."""

import os
import shutil
import subprocess
import tempfile
from pathlib import Path

BOARD_RUNTIME = Path("/usr/powerpc-linux-gnu/lib")
BOARD_LIBRARIES = ("ld.so.1", "libc.so.6", "libm.so.6", "libgcc_s.so.1", "libstdc++.so.6")
LIMIT = 30


class Machine:
    """`root` is the folder that contains the daemon's state and its socket as on a board."""

    def __init__(self, root):
        # A short way to the root: a socket's path is limited.
        self._short = tempfile.TemporaryDirectory(prefix="orv")
        self.root = Path(self._short.name) / "root"
        self.root.symlink_to(root)
        for folder in ("var/run", "var/tmp", "var/lib"):
            (self.root / folder).mkdir(parents=True, exist_ok=True)
        self.state, self.socket = self.root / "var/lib/board.db", self.root / "var/run/daemon.sock"
        self._daemon = None

    def command(self, program):
        """The words that run an installed program."""
        raise NotImplementedError

    def start_daemon(self, *options):
        self._daemon = subprocess.Popen(
            [*self.command("/usr/bin/orvboardd"), "--state", self.state, "--socket", self.socket,
             *options], stdout=subprocess.PIPE)
        if not self._daemon.stdout.readline().startswith(b"orvboardd: ready"):
            raise RuntimeError("orvboardd did not start: it says why above")

    def stop_daemon(self):
        if self._daemon:
            self._daemon.terminate()
            self._daemon.communicate(timeout=LIMIT)
            self._daemon = None

    def close(self):
        self.stop_daemon()
        self._short.cleanup()

    def run_page(self, path, environment, body):
        """Returns a page's output and its log."""
        done = subprocess.run(self.command("/usr/local/www/htdocs" + path), input=body,
                              env={**environment, "ORV_IPC_SOCKET": str(self.socket)},
                              capture_output=True, check=False, timeout=LIMIT)
        return done.stdout, done.stderr


class Host(Machine):
    def __init__(self, build, root):
        super().__init__(root)
        self.build = build

    def command(self, program):
        is_page = program.startswith("/usr/local/")
        return [f"{self.build}/site{program}" if is_page else self.build / "board/orvboardd"]


class Board(Machine):
    """The installed build for the board. The emulator looks for files in the staged root
    first, so that programs use the fixed paths."""

    def __init__(self, build, root, emulator, cmake):
        shutil.rmtree(root, ignore_errors=True)
        subprocess.run([cmake, "--install", build, "--strip"], env={**os.environ, "DESTDIR": root},
                       stdout=subprocess.DEVNULL, check=True)
        (root / "lib").mkdir()
        for library in BOARD_LIBRARIES:
            shutil.copy(BOARD_RUNTIME / library, root / "lib")
        super().__init__(root)
        self._words = [emulator, "-L", root]

    def command(self, program):
        return [*self._words, f"{self.root}{program}"]
