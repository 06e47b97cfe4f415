#!/usr/bin/env python3
"""Prints a header as Doxygen is to read it: doxygen_filter.py HEADER

In our headers a comment holds for all declarations down to the next blank line, as for the reader
and the setter of one property, and a plain comment behind a member is its documentation. Doxygen
wants a comment before each and its own mark.
"""
import re
import sys

with open(sys.argv[1], encoding="utf-8") as header:
    lines = header.read().split("\n")

comment = []
complete = True  # whether the declaration before has ended
for number, line in enumerate(lines):
    text = line.strip()
    if text.startswith("///"):
        if number == 0 or not lines[number - 1].strip().startswith("///"):
            comment = []
        comment.append(line)
    elif not text or text[0] in "}#" or text.endswith(":"):
        comment = []
        complete = True
    else:
        line = re.sub(r"([;,}]\s+)// ", r"\1///< ", line)
        behind_comment = lines[number - 1].strip().startswith("///")
        if comment and complete and not behind_comment and "///<" not in line:
            print("\n".join(comment))
        complete = re.search(r"[;{}]\s*(///<.*)?$", line) is not None
        if text.endswith("{"):
            comment = []  # a type, whose comment is its own
    # Copies and moves that are written out add nothing to what a reader expects of them.
    is_commented = lines[number - 1].strip().startswith("///")
    if not re.search(r"\) = (default|delete);$", text) or is_commented:
        print(line)
