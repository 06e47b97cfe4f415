"""Feeds each harness hostile input for some seconds, from its kept corpus on."""

import argparse
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys

PROJECT = pathlib.Path(__file__).resolve().parent.parent
KEPT = PROJECT / "fuzz" / "corpus"
HARNESSES = sorted(folder.name for folder in KEPT.iterdir())
LONGEST = 999_999  # seconds
ROW = "{:12} {:>12} {:>8} {:>7}  {}"


def parse_arguments():
    parser = argparse.ArgumentParser(prog="fuzz/run", description=__doc__,
                                     usage="fuzz/run [SECONDS] [HARNESS...]",
                                     epilog="harnesses: " + " ".join(HARNESSES))
    parser.add_argument("harness", nargs="*",
                        help="for how long (default 60 seconds each), and which (default all)")
    parser.add_argument("--parse-only", action="store_true", help=argparse.SUPPRESS)
    parser.add_argument("--build", type=pathlib.Path, help=argparse.SUPPRESS)
    arguments = parser.parse_args()
    arguments.seconds = 60
    if arguments.harness and arguments.harness[0][:1].isdigit():
        text = arguments.harness.pop(0)
        if not (text.isascii() and text.isdigit() and 0 < int(text) <= LONGEST):
            parser.error(f"'{text}' is no number of seconds from 1 to {LONGEST}")
        arguments.seconds = int(text)
    for name in arguments.harness:
        if name not in HARNESSES:
            parser.error(f"there is no harness '{name}': there are {' '.join(HARNESSES)}")
    return arguments


class Harness:
    def __init__(self, build, name):
        self.build, self.name = build, name
        self.program = build / "fuzz" / f"fuzz_{name}"
        self.found, self.findings = build / "corpus" / name, build / "findings" / name
        self.log = build / f"{name}.log"

    def run(self, limit):
        """Returns true when nothing was found."""
        for folder in (self.found, self.findings):
            folder.mkdir(parents=True, exist_ok=True)
        dictionary = PROJECT / "fuzz" / "dictionaries" / f"{self.name}.dict"
        options = (self.build / "fuzz" / f"{self.name}.options").read_text("ascii").split()
        options += [f"-dict={dictionary}"] if dictionary.exists() else []
        with self.log.open("wb") as log:
            ended = subprocess.run(
                [self.program, *options, f"-max_total_time={limit}", "-timeout=10",
                 "-rss_limit_mb=2048", "-print_final_stats=1",
                 f"-artifact_prefix={self.findings}/", self.found, KEPT / self.name],
                stdout=log, stderr=log, check=False,
                env={**os.environ, "UBSAN_OPTIONS": "print_stacktrace=1"})
        return ended.returncode == 0

    def report(self, is_clean):
        """A row of the table, and what to do about a finding."""
        text = self.log.read_text("utf-8", "replace")
        figures = dict(re.findall(r"^stat::(\w+): *(\d+)", text, re.MULTILINE))
        inputs = sum(len(list(folder.iterdir())) for folder in (self.found, KEPT / self.name))
        print(ROW.format(self.name, figures.get("number_of_executed_units", ""),
                         figures.get("average_exec_per_sec", ""), inputs,
                         "clean" if is_clean else "FINDING"))
        if not is_clean:
            written = re.findall(r"Test unit written to (.*)", text)
            fault = re.search(r".*(?:ERROR:|runtime error:).*", text)
            print(f"    {fault[0] if fault else 'it ended by itself'}\n    log: {self.log};"
                  f" replay: {self.program} {(written or [f'{KEPT / self.name}/*'])[-1]}")


def main():
    arguments = parse_arguments()
    if arguments.parse_only:
        return 0
    harnesses = [Harness(arguments.build, name) for name in arguments.harness or HARNESSES]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        clean = list(pool.map(lambda harness: harness.run(arguments.seconds), harnesses))
    print(ROW.format("harness", "executions", "1/s", "corpus", "result"))
    for harness, is_clean in zip(harnesses, clean):
        harness.report(is_clean)
    return 0 if all(clean) else 1


if __name__ == "__main__":
    sys.exit(main())
