"""Measures every row against its peers and prints one table: measure.py [--row NAME] [--json]"""

import argparse
import contextlib
import dataclasses
import datetime
import http.client
import json
import os
import pathlib
import platform
import re
import subprocess
import sys
import tempfile

from console_site import ConsoleSite
from site_parts import SiteError
from costs import BenchError, Meter, Program, Spread, growth
from work import MIB, Work, body_of, contents, require_same

PROJECT = pathlib.Path(__file__).resolve().parent.parent
LINEAR = 1.1  # the largest exponent that counts as linear, and as n log n at these sizes
PASSES = 32
BUDGETS = {"the page": 265000, "the session page": 280000, "a field": 1500, "an option": 1150}
BARE = {"bare_static": "bare C++, static", "bare": "bare C++", "bare_c": "bare C"}


@dataclasses.dataclass
class Line:
    """One line of the table."""

    row: str
    peer: str
    ours: str
    theirs: str
    ratio: Spread = None
    instructions: tuple = ()
    target: str = ""
    met: bool = None

    def cells(self):
        ratio = self.ratio
        shown = f"{ratio.median:.3f} ({ratio.low:.3f}–{ratio.high:.3f})" if ratio else "–"
        counts = " / ".join(f"{count:,}" for count in self.instructions) or "–"
        met = {None: "–", True: "yes", False: "**no**"}[self.met]
        return [self.row, self.peer, self.ours, self.theirs, shown, counts, self.target, met]


@dataclasses.dataclass
class Load:
    """What a number of clients got of a web server: requests a second, milliseconds."""

    rate: float
    median: float
    slowest: float  # of 99 of 100 requests


def median_rate(loads):
    return f"{Spread.of([load.rate for load in loads]).median:.0f} requests/s"


def latency(loads):
    median, slowest = (Spread.of([getattr(load, name) for load in loads]).median
                       for name in ("median", "slowest"))
    return f"p50 {median:.0f} ms, p99 {slowest:.0f} ms"


def microseconds(costs, cost="wall"):
    return f"{Spread.of([getattr(each, cost) for each in costs]).median / 1000:.2f} ms"


class Rows:
    """The rows, each a method that returns its lines."""

    def __init__(self, build, folder, site, open_sites):
        self.meter = Meter(build)
        self.work = Work(build, folder)
        self.site = site
        self.open_sites = open_sites
        self._served = None

    def against(self, row, ours, peer_name, peer, rounds, cost="wall", target=None, count=True):
        """The line of a pair that must not cost more than `target` of the peer."""
        mine, theirs = self.meter.alternate([ours, peer], rounds)
        ratio = Spread.of_ratios(mine, theirs, cost)
        counts = ()
        if count:
            counts = (self.meter.instructions(ours), self.meter.instructions(peer))
        limit, word = target if target else (None, "")
        return Line(row, peer_name, microseconds(mine, cost), microseconds(theirs, cost), ratio,
                    counts, word, None if limit is None else ratio.median <= limit)

    def page(self):
        ours, shared = self.work.ours("page"), self.work.ours("page", folder="shared")
        peers = {name: self.work.bare(name) for name in ("bare_static", "bare", "bare_c")}
        for program in (ours, shared, *peers.values()):
            require_same(program, self.work.page, whole=True)
        lines = [self.against("page", ours, BARE[name], peers[name], 1000,
                              target=(limit, f"≤ {limit} wall"))
                 for name, limit in (("bare_static", 1.12), ("bare", 0.5), ("bare_c", 1))]
        most = 220000
        lines[0].target += f", ≤ {most:,} instructions"
        lines[0].met = lines[0].met and lines[0].instructions[0] <= most
        lines += [self.against("page, CPU", ours, BARE["bare_static"], peers["bare_static"], 500,
                               cost="cpu", count=False),
                  self.against("page, shared library", shared, BARE["bare"], peers["bare"], 1000,
                               target=(1.15, "≤ 1.15 wall"))]
        return lines

    def session_page(self):
        session = self.work.session(self.site)
        lines = []
        for folder, row, peer, limit in (
                ("bench", "session page", "bare_static", 1.45),
                ("shared", "session page, shared library", "bare", 1.35)):
            ours = self.work.ours("session_page", environment=session, folder=folder)
            require_same(ours, self.work.page, whole=True)
            lines.append(self.against(row, ours, BARE[peer], self.work.bare(peer), 1000,
                                      target=(limit, f"≤ {limit} wall")))
        ours = self.work.ours("session_page", environment=session)
        for kind, limit in (("PHP", 0.04), ("Perl CGI", 0.02)):
            peer = self.work.peer(kind, "session_page", session)
            if peer is not None:
                require_same(peer, body_of(self.work.page))
                lines.append(self.against("session page", ours, kind, peer, 60,
                                          target=(limit, f"≤ {limit} wall")))
        return lines

    def served(self):
        """Requests over 4 connections, as the pages and the bare programs take turns."""
        ways = {"ours": (self.site, "/bench/session_page.cgi"),
                "shared": (self.site, "/shared/session_page.cgi"),
                "server": (self.served_site(), "/bench/session_page.cgi"),
                **{name: (self.site, f"/peers/{name}.cgi") for name in ("bare_static", "bare")}}
        rates = self._rates(ways, 4, 16)
        lines = []
        for row, ours, peer, name, least in (
                ("served", "ours", "bare_static", BARE["bare_static"], 0.9),
                ("served", "ours", "bare", BARE["bare"], 3),
                ("served, page server", "server", "shared", "CGI, shared library", 3)):
            ratio = Spread.of([a.rate / b.rate for a, b in zip(rates[ours], rates[peer])])
            lines.append(Line(row, name, median_rate(rates[ours]), median_rate(rates[peer]), ratio,
                              (), f"≥ {least}", ratio.median >= least))
        return lines

    def served_clients(self):
        """The page server against CGI, both with the static console, by the number of clients."""
        ways = {"CGI": (self.site, "/bench/session_page.cgi"),
                "server": (self.served_site(), "/bench/session_page.cgi")}
        lines = []
        for clients in (1, 4, 16, 64):
            rates = self._rates(ways, clients, 8)
            ratio = Spread.of([a.rate / b.rate for a, b in zip(rates["server"], rates["CGI"])])
            lines.append(Line(f"page server, {clients} clients", "CGI, static",
                              *(f"{median_rate(rates[way])}, {latency(rates[way])}"
                                for way in ("server", "CGI")), ratio, (), "≥ 1",
                              ratio.median >= 1))
        return lines

    def served_site(self):
        """The same site through the page server, started when it is first needed."""
        if self._served is None:
            run = pathlib.Path(self.work.folder) / "served"
            self._served = self.open_sites.enter_context(
                ConsoleSite(self.site.build, run, environment={"ORV_IPC_SOCKET": self.site.socket},
                            scgi=True))
        return self._served

    def _rates(self, ways, clients, rounds):
        """For each way to serve a page the loads of all rounds, without one to warm up."""
        session = self.work.session(self.site)["HTTP_COOKIE"]
        for site, path in ways.values():
            connection = http.client.HTTPConnection("127.0.0.1", site.port)
            connection.request("GET", path, headers={"Cookie": session})
            if connection.getresponse().read() != body_of(self.work.page):
                raise BenchError(f"{path} is served otherwise than it should be")
            connection.close()
        rates = {way: [] for way in ways}
        for _ in range(rounds):
            for way, (site, path) in ways.items():
                rates[way].append(self._load(site.url + path, session, clients))
        return {way: loads[1:] for way, loads in rates.items()}

    @staticmethod
    def _load(url, cookie, clients):
        said = Program(["/usr/bin/ab", "-q", "-n", "400", "-c", clients, "-H", "Cookie: " + cookie,
                        url]).output().decode()
        if not re.search(r"^Failed requests: +0$", said, re.MULTILINE) or "Non-2xx" in said:
            raise BenchError(f"requests for {url} failed:\n{said}")
        found = [re.search(pattern, said, re.MULTILINE).group(1) for pattern in
                 (r"^Requests per second: +([0-9.]+)", r"^ +50% +(\d+)", r"^ +99% +(\d+)")]
        return Load(*map(float, found))

    def size(self):
        program = self.work.pages.parent / "orvguid"
        with tempfile.TemporaryDirectory() as folder:
            stripped = pathlib.Path(folder) / "stripped"
            subprocess.run(["strip", "-o", stripped, program], check=True)
            size = stripped.stat().st_size / MIB
        costs = self.meter.alternate([self.work.ours("page")], 5)[0]
        resident = max(cost.resident for cost in costs) / 1024
        return [Line("size, all pages, stripped", "–", f"{size:.2f} MiB", "–", target="≤ 3.5 MiB",
                     met=size <= 3.5),
                Line("page, resident", "–", f"{resident:.2f} MiB", "–", target="≤ 1.5 MiB",
                     met=resident <= 1.5)]

    def upload(self):
        lines = []
        for name, content in contents(64 * MIB).items():
            environment, body = self.work.upload(content)
            ours = self.work.ours("upload", environment=environment, source=body)
            copy = self.work.bare("copy", environment, body)
            self.work.require_kept(ours, content)
            self.work.require_kept(copy, body.read_bytes())
            limit = {"random": 1.1, "CR LF": 1.2, "near-markers": 1.05}[name]
            row = f"upload, {name}"
            lines.append(self.against(row, ours, "64 KiB copy", copy, 15, "cpu",
                                      (limit, f"≤ {limit} CPU")))
            for kind in ("cgicc", "PHP", "Perl CGI"):
                peer = self.work.peer(kind, "upload", environment, body)
                if peer is not None:
                    self.work.require_kept(peer, content)
                    require_same(peer, body_of(ours.output()))
                    lines.append(self.against(row, ours, kind, peer, 5, "cpu", (1, "< 1 CPU"),
                                              count=False))
        return lines

    def upload_memory(self):
        sizes, resident = (1, 16, 90), []
        for size in sizes:
            content = contents(size * MIB)["random"]
            environment, body = self.work.upload(content)
            ours = self.work.ours("upload", environment=environment, source=body)
            self.work.require_kept(ours, content)
            resident.append(max(cost.resident for cost in self.meter.alternate([ours], 5)[0]))
        # A few pages more or less are the kernel's choice of what it maps around a fault.
        met = max(resident) <= 6 * 1024 and max(resident) - min(resident) <= 256
        return [Line("upload memory", "–", ", ".join(f"{size} MiB: {kib} KiB"
                                                     for size, kib in zip(sizes, resident)),
                     "–", target="≤ 6144 KiB, the same", met=met)]

    def fields(self):
        environment, body = self.work.form(100000)
        ours = self.work.ours("fields", environment=environment, source=body)
        lines = []
        peer = self.work.peer("cgicc", "fields", environment, body)
        if peer is not None:
            require_same(peer, body_of(ours.output()))
            lines.append(self.against("fields", ours, "cgicc", peer, 15,
                                      target=(0.5, "≤ 0.5 wall")))
        counts = []
        for count in (10000, 20000, 40000, 80000):
            environment, body = self.work.form(count)
            counts.append(self.meter.instructions(
                self.work.ours("fields", environment=environment, source=body)))
        lines.append(self._growth_line("fields, 10 to 80 thousand", counts, 80000, 40000,
                                       "a field"))
        return lines

    @staticmethod
    def _growth_line(row, counts, largest, middle, unit):
        exponent = growth(counts[-3:])
        each = (counts[-1] - counts[-2]) / (largest - middle)
        ours = f"grows as n^{exponent:.3f}, {each:,.1f} instructions {unit}"
        return Line(row, "–", ours, "–",
                    instructions=(counts[-1],), target=f"≤ n^{LINEAR}", met=exponent <= LINEAR)

    def escape(self):
        return [line for operation in ("html", "url", "str") for line in self._escape(operation)]

    def _escape(self, operation):
        row = {"html": "convertHTML", "url": "encodeURL", "str": "convertStr"}[operation]
        once, often = (self.work.ours("escape", operation, "plain", 16, passes)
                       for passes in (1, 1 + PASSES))
        if once.output() != often.output():
            raise BenchError(f"{row} changes a text that needs no change")
        costs = self.meter.alternate([once, often], 15)
        rate = Spread.of([PASSES * 16 * MIB / 1000 / (b.wall - a.wall) for a, b in zip(*costs)])
        yield Line(f"escape, {row}, plain", "–",
                   f"{rate.median:.2f} GB/s ({rate.low:.2f}–{rate.high:.2f})", "–",
                   instructions=(self.meter.instructions(once),), target="≥ 1 GB/s",
                   met=rate.median >= 1)
        counts = [self.meter.instructions(self.work.ours("escape", operation, "special", mib, 1))
                  for mib in (4, 8, 16)]
        yield self._growth_line(f"escape, {row}, all special", counts, 16 * MIB, 8 * MIB, "a byte")

    def big_page(self):
        lines = []
        for name, largest, unit, make in (
                ("5,000-option menu", 5000, "an option",
                 lambda count: self.work.ours("big_page", "menu", count)),
                ("2 MiB skeleton", 2 * MIB, "a byte", self._skeleton_page),
                ("10,000 markers", 10000, "a component", self._marker_page)):
            pages = [make(largest // part) for part in (4, 2, 1)]
            costs = self.meter.alternate(pages[1:], 25)
            each = Spread.of([(b.wall - a.wall) / (largest - largest // 2) * 1000
                              for a, b in zip(*costs)])
            line = self._growth_line(f"big page, {name}", [self.meter.instructions(page)
                                                           for page in pages],
                                     largest, largest // 2, unit)
            line.ours += f", {each.median:,.2f} ns"
            lines.append(line)
        return lines

    def _skeleton_page(self, size):
        text = "<tr><td>A line of a long page, as it stands in its skeleton.</td></tr>\n"
        skeleton = self.work.skeleton(f"text{size}", (text * (size // len(text) + 1))[:size])
        page = self.work.ours("big_page", "markers", 0, skeleton)
        require_same(page, skeleton.read_bytes(), whole=True)
        return page

    def _marker_page(self, count):
        skeleton = self.work.skeleton(f"markers{count}",
                                      "".join(f"$m{i}$\n" for i in range(count)))
        page = self.work.ours("big_page", "markers", count, skeleton)
        require_same(page, "".join(f"Unit&nbsp;{i}\n" for i in range(count)).encode(), whole=True)
        return page

    def budgets(self):
        """Instructions, which repeat exactly on one kind of processor."""
        session = self.work.session(self.site)
        fields = []
        for count in (40000, 80000):
            environment, body = self.work.form(count)
            fields.append(self.work.ours("fields", environment=environment, source=body))
        options = [self.work.ours("big_page", "menu", count) for count in (2500, 5000)]
        counts = {"the page": self.meter.instructions(self.work.ours("page")),
                  "the session page": self.meter.instructions(
                      self.work.ours("session_page", environment=session)),
                  "a field": self._each(fields, 40000), "an option": self._each(options, 2500)}
        return [Line(f"budget of {what}", "–", f"{count:,.0f} instructions", "–",
                     target=f"≤ {BUDGETS[what]:,}", met=count <= BUDGETS[what])
                for what, count in counts.items()]

    def _each(self, programs, more):
        """What one more unit costs, from two programs the second of which has `more` of them."""
        fewer, most = map(self.meter.instructions, programs)
        return (most - fewer) / more

    def start_up(self):
        lines = []
        for folder, row, name in (("bench", "start-up", "bare_static"),
                                  ("shared", "start-up, shared library", "bare")):
            ours, bare = (self.meter.instructions(program, before_main=True) for program in
                          (self.work.ours("page", folder=folder), self.work.bare(name)))
            lines.append(Line(row, BARE[name], f"{ours:,} before main", f"{bare:,}",
                              Spread(*[ours / bare] * 3), (ours, bare), "≤ 1.2",
                              ours / bare <= 1.2))
        return lines


ROWS = {"page": Rows.page, "session page": Rows.session_page, "served": Rows.served,
        "clients": Rows.served_clients, "size": Rows.size,
        "upload": Rows.upload, "upload memory": Rows.upload_memory, "fields": Rows.fields,
        "escape": Rows.escape, "big page": Rows.big_page, "start-up": Rows.start_up,
        "budgets": Rows.budgets}


def machine():
    """Where this was measured, in one line."""
    model = re.search(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text("utf-8"),
                      re.MULTILINE)
    compiler = subprocess.run(["g++", "--version"], capture_output=True, text=True,
                              check=True).stdout.split("\n")[0]
    load = os.getloadavg()[0]
    return (f"{model.group(1) if model else platform.machine()}, {os.cpu_count()} processors, "
            f"Linux {platform.release().partition('-')[0]}, {' '.join(platform.libc_ver())}, "
            f"{compiler}, load {load:.1f} at the start, {datetime.date.today()}")


def print_table(lines, where):
    print("| Row | Peer | Ours | Peer's | Ratio (quartiles) | Instructions | Target | Met |")
    print("|---|---|---|---|---|---|---|---|")
    for line in lines:
        print("| " + " | ".join(line.cells()) + " |")
    print(f"\nMachine: {where}.")


def main():
    parser = argparse.ArgumentParser(prog="bench/run", description=__doc__.split(":")[0])
    parser.add_argument("--row", choices=ROWS, help="this one only")
    parser.add_argument("--json", action="store_true", help="for programs, not for people")
    parser.add_argument("--build", default=PROJECT / "build" / "bench", help=argparse.SUPPRESS)
    parser.add_argument("--parse-only", action="store_true", help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.parse_only:
        return
    where, lines = machine(), []
    with contextlib.ExitStack() as sites:
        folder = sites.enter_context(tempfile.TemporaryDirectory())
        site = sites.enter_context(ConsoleSite(options.build, folder))
        rows = Rows(options.build, folder, site, sites)
        for name in [options.row] if options.row else ROWS:
            print(f"Measuring {name}", file=sys.stderr)
            lines += ROWS[name](rows)
    if options.json:
        print(json.dumps({"machine": where, "lines": [dataclasses.asdict(line) for line in lines]},
                         indent=1, ensure_ascii=False))
    else:
        print_table(lines, where)
    if any(line.row.startswith("budget") and not line.met for line in lines):
        raise BenchError("a budget is exceeded: find the cause, or justify a new one in the change")


if __name__ == "__main__":
    try:
        main()
    except (BenchError, SiteError) as failure:
        sys.exit(f"bench/run: {failure}")
