"""Serves the console of a build folder until Ctrl-C, or checks it once."""

import argparse
import pathlib
import shutil
import signal
import sys
import tempfile

from console_site import ConsoleSite
from site_parts import SiteError
from web_servers import WEB_SERVERS

DEFAULT_PORT = 8080
DEFAULT_TLS_PORT = 8443
CHECK_TIME_LIMIT_MS = 1000  # how long pages wait for a board that is told to be silent


def port_number(text):
    if not (text.isascii() and text.isdigit() and 0 < int(text) < 65536):
        raise argparse.ArgumentTypeError(f"{text} is no port: give one from 1 to 65535")
    return int(text)


def parse_arguments():
    parser = argparse.ArgumentParser(prog="./run", description=__doc__)
    parser.add_argument("--port", type=port_number,
                        help=f"port on loopback (default {DEFAULT_PORT}; with --check a free one)")
    parser.add_argument("--tls-port", type=port_number, default=DEFAULT_TLS_PORT,
                        help=f"port of HTTPS on loopback (default {DEFAULT_TLS_PORT})")
    parser.add_argument("--server", choices=WEB_SERVERS, default="lighttpd",
                        help="the web server (default lighttpd)")
    parser.add_argument("--scgi", action="store_true",
                        help="pages run in the page server instead of as CGI programs")
    parser.add_argument("--frames", action="store_true",
                        help="strip, menu and function have frames of their own")
    parser.add_argument("--check", action="store_true",
                        help="use every page, print the results, stop, exit with 0 or 1")
    parser.add_argument("--fault", action="append", default=[], metavar="PROCEDURE:KIND",
                        help="make an operation of the board misbehave; see docs/board.md")
    parser.add_argument("--parse-only", action="store_true", help=argparse.SUPPRESS)
    parser.add_argument("--build", required=True, help=argparse.SUPPRESS)
    return parser.parse_args()


def serve(site):
    print(f"The console is at {site.url}/ and, with a self-signed certificate, at {site.tls_url}/")
    print("Users: admin, operator (Japanese), staff, guest, part.")
    print("Each password is the name and -pass, such as admin-pass.")
    print(f"Query the board: ORV_IPC_SOCKET={site.socket} {site.build}/tools/boardctl --help")
    print(f"Trace log: {site.trace_log}")
    print("Press Ctrl-C to stop.", flush=True)
    ended = site.wait()
    raise SiteError(f"a server ended by itself ({ended}): see the logs in {site.run}")


def check(build, port, faults, way):
    """A check starts from a new board; what somebody set in the console stays."""
    from console_check import run_checks  # needs python3-requests, which serving does not

    environment = {"ORV_IPC_TIMEOUT_MS": CHECK_TIME_LIMIT_MS}
    run = tempfile.mkdtemp(prefix="check-", dir=build)
    with ConsoleSite(build, run, port, environment, faults, **way) as site:
        passed = run_checks(site)
    if passed:
        shutil.rmtree(run)
    else:
        print(f"the logs are in {run}")
    return 0 if passed else 1


def stop(number, _):
    raise Stopped(number)


class Stopped(Exception):
    pass


def main():
    arguments = parse_arguments()
    if arguments.parse_only:
        return 0
    faults = [word for fault in arguments.fault for word in ("--fault", fault)]
    way = {"server": arguments.server, "scgi": arguments.scgi, "frames": arguments.frames}
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, stop)
    try:
        if arguments.check:
            return check(arguments.build, arguments.port or 0, faults, way)
        run = pathlib.Path(arguments.build) / "run"
        with ConsoleSite(arguments.build, run, arguments.port or DEFAULT_PORT,
                         board_options=faults, tls_port=arguments.tls_port, **way) as site:
            serve(site)
    except SiteError as problem:
        print(f"run: {problem}", file=sys.stderr)
        return problem.status
    except Stopped as signal_number:
        print("\nstopped")
        return 128 + signal_number.args[0] if arguments.check else 0


if __name__ == "__main__":
    sys.exit(main())
