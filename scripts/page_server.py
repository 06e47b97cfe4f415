"""Keeps the page server of a console running (docs/page-server.md)."""

import signal
import subprocess
import threading
import time

from site_parts import PRIVATE, SiteError, listen

QUEUE = 128
CHILDREN = 256  # more than the places for pages, so that a page refuses what is too much
END_LIMIT_SECONDS = 10
SHORT_LIFE_SECONDS = 1
SHORT_LIVES = 10  # one after the other, after which the server is not started again

# The listening socket, this shell's input, becomes descriptor 3 of the program.
PASS_SOCKET = 'LISTEN_FDS=1 LISTEN_PID=$$ exec "$@" 3<&0 </dev/null'


class PageServer:
    """Holds the socket and starts the server again when it ends: requests wait meanwhile.

    `ready` is set when it runs for the first time. `failure` is None, or the reason why it is not
    started again.
    """

    trace_log_signal = signal.SIGHUP  # it opens the log again, and is executed anew

    def __init__(self, site):
        self.program = site.build / "site/usr/local/www/orvguid"
        if not self.program.exists():
            raise SiteError(f"{self.program} does not exist: build it with ORVGUI_PAGES=multicall")
        self.ready = threading.Event()
        self.failure = None
        self.process = None
        self._site = site
        self._listener = listen(site.run / "pages.sock", QUEUE)
        self._lock = threading.Lock()  # of _stopped and process
        self._stopped = False
        # The server ends with the thread that started it.
        self._keeper = threading.Thread(target=self._keep, daemon=True)
        self._keeper.start()

    def stop(self):
        with self._lock:
            self._stopped = True
            if self.process:
                self.process.terminate()
        self._keeper.join(END_LIMIT_SECONDS)
        if self._keeper.is_alive():
            self.process.kill()
            self._keeper.join()

    def _keep(self):
        with self._listener:
            short_lives = 0
            while not self.failure and self._start():
                begun = time.monotonic()
                with self.process.stdout as printed:
                    if printed.readline():
                        self.ready.set()
                status = self.process.wait()
                if time.monotonic() - begun > SHORT_LIFE_SECONDS:
                    short_lives = 0
                    continue
                short_lives += 1
                if status > 0 or short_lives == SHORT_LIVES:
                    self.failure = (f"{self.program.name} does not run (exit status {status}):"
                                    f" see {self._site.trace_log}")

    def _start(self):
        with self._lock:
            if not self._stopped:
                self.process = subprocess.Popen(
                    ["setpriv", "--pdeathsig", "TERM", "sh", "-c", PASS_SOCKET, "sh", self.program,
                     "--children", str(CHILDREN), "--log", self._site.trace_log],
                    stdin=self._listener, stdout=subprocess.PIPE, umask=PRIVATE,
                    env=self._site.page_environment())
            return not self._stopped
