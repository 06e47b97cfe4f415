"""Two machines that run pages: this one, and the board, emulated in a root of its own."""

import os
import shutil
import socket
import subprocess
import tempfile
import threading
from pathlib import Path

BOARD_RUNTIME = Path("/usr/powerpc-linux-gnu/lib")
BOARD_LIBRARIES = ("ld.so.1", "libc.so.6", "libm.so.6", "libgcc_s.so.1", "libstdc++.so.6")
PATH = "/usr/sbin:/usr/bin:/sbin:/bin"
LIMIT = 30


class Recorder:
    """Stands between pages and the daemon while entered; keeps the bytes of every exchange."""

    def __init__(self, path, daemon):
        self.path, self.daemon, self.exchanges = path, daemon, []

    def __enter__(self):
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(str(self.path))
        self.listener.listen()
        self.thread = threading.Thread(target=self._serve)
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.listener.shutdown(socket.SHUT_RDWR)
        self.thread.join()
        self.listener.close()
        self.path.unlink()

    def _serve(self):
        while True:
            try:
                client, _ = self.listener.accept()
            except OSError:
                return  # the page has ended
            with client, socket.socket(socket.AF_UNIX) as daemon:
                daemon.connect(str(self.daemon))
                response = []
                answering = threading.Thread(
                    target=lambda: response.append(self._pass_on(daemon, client)))
                answering.start()
                request = self._pass_on(client, daemon)
                answering.join()
                self.exchanges.append((request, response[0]))

    @staticmethod
    def _pass_on(source, sink):
        passed = b""
        try:
            while data := source.recv(65536):
                passed += data
                sink.sendall(data)
            sink.shutdown(socket.SHUT_WR)
        except OSError:
            pass  # hung up with something unread, as a page may that does not like the answer
        return passed


class Machine:
    """`root` is the folder in which the daemon's state and the sockets lie as on a board."""

    def __init__(self, root):
        # A short way to the root: a socket's path is limited.
        self._short = tempfile.TemporaryDirectory(prefix="orv")
        self.root = Path(self._short.name) / "root"
        self.root.symlink_to(root)
        for folder in ("var/run", "var/tmp", "var/lib"):
            (self.root / folder).mkdir(parents=True, exist_ok=True)
        self.state = self.root / "var/lib/board.db"
        self._daemon = None

    def start_daemon(self, *options):
        self._daemon = subprocess.Popen(
            self.command("/usr/bin/orvboardd", "--state", self.path("/var/lib/board.db"),
                         "--socket", self.path("/var/run/daemon.sock"), *options),
            env={"PATH": PATH}, stdout=subprocess.PIPE)
        if not self._daemon.stdout.readline().startswith(b"orvboardd: ready"):
            raise RuntimeError("orvboardd did not start: it says why above")

    def stop_daemon(self):
        if self._daemon:
            self._daemon.terminate()
            self._daemon.wait(LIMIT)
            self._daemon.stdout.close()
            self._daemon = None

    def close(self):
        self.stop_daemon()
        self._short.cleanup()

    def run_page(self, path, environment, body):
        """Returns a page's process ID, output, log and exchanges with the daemon."""
        run = self.root / "var/run"
        with Recorder(run / "orvboardd.sock", run / "daemon.sock") as recorder:
            page = subprocess.Popen(
                self.command("/usr/local/www/htdocs" + path),
                env={"PATH": PATH, **environment, **self.environment},
                stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            output, log = page.communicate(body, LIMIT)
        return page.pid, output, log, recorder.exchanges


class Host(Machine):
    name = "host"

    def __init__(self, build, root):
        super().__init__(root)
        self.build = build
        self.environment = {"ORV_IPC_SOCKET": self.path("/var/run/orvboardd.sock")}

    def path(self, path):
        return str(self.root) + path

    def command(self, program, *arguments):
        folder = self.build / "board" if program.startswith("/usr/bin/") else self.build / "site"
        name = Path(program).name if program.startswith("/usr/bin/") else program[1:]
        return [folder / name, *arguments]


class Board(Machine):
    """What is installed from a build for the board, at the true fixed paths.

    With the right to change the root, as root or in a user namespace, a program sees nothing but
    the staged root. Without it the emulator looks for files in the staged root first, and the
    sockets are named to the programs. `way` says which.
    """

    name = "board"
    EMULATOR = "/usr/bin/qemu-ppc-static"

    def __init__(self, build, root, emulator, cmake):
        shutil.rmtree(root, ignore_errors=True)
        subprocess.run([cmake, "--install", build, "--strip"], env={**os.environ, "DESTDIR": root},
                       stdout=subprocess.DEVNULL, check=True)
        (root / "lib").mkdir()
        for library in BOARD_LIBRARIES:
            shutil.copy(BOARD_RUNTIME / library, root / "lib")
        shutil.copy(shutil.which(emulator), str(root) + self.EMULATOR)
        super().__init__(root)
        self.environment = {}
        for self.way in ("chroot", "unshare -r chroot"):
            self._words = [*self.way.split(), root, self.EMULATOR]
            if subprocess.run([*self._words, "--version"], env={"PATH": PATH},
                              capture_output=True, check=False).returncode == 0:
                self.path = str
                return
        self.way = "no right to chroot: the emulator puts the staged root before this machine's"
        self._words = [emulator, "-L", root]
        self.path = lambda path: str(self.root) + path
        self.environment = {"ORV_IPC_SOCKET": self.path("/var/run/orvboardd.sock")}

    def command(self, program, *arguments):
        return [*self._words, self.path(program), *arguments]
