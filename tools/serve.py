"""Serves the console of a build folder until Ctrl-C, or checks it once."""

import argparse
import pathlib
import shutil
import signal
import sys

from console_check import run_checks
from console_site import ConsoleSite, SiteError

DEFAULT_PORT = 8080
CHECK_TIME_LIMIT_MS = 1000  # how long pages wait for a board that is told to be silent


def port_number(text):
    port = int(text)
    if not 0 < port < 65536:
        raise argparse.ArgumentTypeError(f"{port} is no port: give one from 1 to 65535")
    return port


def parse_arguments():
    parser = argparse.ArgumentParser(prog="./run", description=__doc__)
    parser.add_argument("--port", type=port_number,
                        help=f"port on loopback (default {DEFAULT_PORT}; with --check a free one)")
    parser.add_argument("--check", action="store_true",
                        help="fetch the main pages, print what came, stop, exit 0 or 1")
    parser.add_argument("--fault", action="append", default=[], metavar="PROCEDURE:KIND",
                        help="let the board do an operation wrong; see docs/board.md")
    parser.add_argument("--build", required=True, help=argparse.SUPPRESS)
    return parser.parse_args()


def serve(site):
    print(f"The console is at {site.url}/")
    print("The board's users: admin, operator (Japanese), staff, guest, part;")
    print("each one's password is the name and -pass, such as admin-pass.")
    print(f"Look at the board: ORV_IPC_SOCKET={site.socket} {site.build}/tools/boardctl --help")
    print(f"Trace log: {site.trace_log}")
    print("Ctrl-C stops it.", flush=True)
    ended = site.wait()
    raise SiteError(f"a server ended by itself ({ended}): see the logs in {site.run}")


def main():
    arguments = parse_arguments()
    port = arguments.port or (0 if arguments.check else DEFAULT_PORT)
    # A check starts from a new board; what somebody set in the console stays.
    run = pathlib.Path(arguments.build) / ("check" if arguments.check else "run")
    if arguments.check:
        shutil.rmtree(run, ignore_errors=True)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(0))
    try:
        environment = {"ORV_IPC_TIMEOUT_MS": CHECK_TIME_LIMIT_MS} if arguments.check else {}
        faults = [word for fault in arguments.fault for word in ("--fault", fault)]
        with ConsoleSite(arguments.build, run, port, environment, faults) as site:
            if arguments.check:
                return 0 if run_checks(site) else 1
            serve(site)
    except SiteError as problem:
        print(f"run: {problem}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        print("\nstopped")
    return 0


sys.exit(main())
