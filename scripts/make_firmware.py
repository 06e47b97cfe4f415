#!/usr/bin/python3
"""Makes a sample firmware image of SIZE bytes, header included, that calls itself VERSION."""

import argparse
import hashlib

MAGIC = b"ORVFIRM1"
HEADER_SIZE = 64
VERSION_SIZE = 20
BLOCK = bytes(range(256)) * 256


def payload(size):
    for begin in range(0, size, len(BLOCK)):
        yield BLOCK[:size - begin]


def image_size(text):
    size = int(text)
    if not HEADER_SIZE < size < 2 ** 32:
        raise argparse.ArgumentTypeError(f"give a size from {HEADER_SIZE + 1} to {2 ** 32 - 1}")
    return size


def version(text):
    if not (text.isascii() and text.isprintable() and 0 < len(text) <= VERSION_SIZE):
        raise argparse.ArgumentTypeError(f"give 1 to {VERSION_SIZE} printable ASCII characters")
    return text.encode("ascii")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("size", metavar="SIZE", type=image_size)
    parser.add_argument("version", metavar="VERSION", type=version)
    parser.add_argument("file", metavar="FILE", type=argparse.FileType("wb"))
    arguments = parser.parse_args()

    digest = hashlib.sha256()
    for block in payload(arguments.size - HEADER_SIZE):
        digest.update(block)
    with arguments.file as image:
        image.write(MAGIC + arguments.size.to_bytes(4, "big")
                    + arguments.version.ljust(VERSION_SIZE, b"\0") + digest.digest())
        for block in payload(arguments.size - HEADER_SIZE):
            image.write(block)


main()
