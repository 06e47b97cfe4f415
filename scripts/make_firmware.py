#!/usr/bin/python3
"""Makes a sample firmware image of SIZE bytes, header included, with the version VERSION."""

import argparse
import hashlib

MAGIC = b"ORVFIRM1"
HEADER_SIZE = 64
VERSION_SIZE = 20
BLOCK = bytes(range(256)) * 256


def make_image(size: int, version: bytes) -> bytes:
    payload = (BLOCK * (size // len(BLOCK) + 1))[:size - HEADER_SIZE]
    header = MAGIC + size.to_bytes(4, "big") + version.ljust(VERSION_SIZE, b"\0")
    return header + hashlib.sha256(payload).digest() + payload


def image_size(text: str) -> int:
    size = int(text)
    if not HEADER_SIZE < size < 2 ** 32:
        raise argparse.ArgumentTypeError(f"give a size from {HEADER_SIZE + 1} to {2 ** 32 - 1}")
    return size


def image_version(text: str) -> bytes:
    if not (text.isascii() and text.isprintable() and 0 < len(text) <= VERSION_SIZE):
        raise argparse.ArgumentTypeError(f"give 1 to {VERSION_SIZE} printable ASCII characters")
    return text.encode("ascii")


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("size", metavar="SIZE", type=image_size)
    parser.add_argument("version", metavar="VERSION", type=image_version)
    parser.add_argument("file", metavar="FILE", type=argparse.FileType("wb"))
    arguments = parser.parse_args()
    with arguments.file as file:
        file.write(make_image(arguments.size, arguments.version))


if __name__ == "__main__":
    main()
