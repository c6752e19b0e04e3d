#!/usr/bin/python3
"""Prints the version resource of Windows binaries, one line each:
    scripts/pe-version.py FILE...
as "FILE FILEVERSION PRODUCTVERSION", e.g. "corvid.exe 1.0.0.0 1.0.0": the fixed file
version (the numbers Explorer and installers compare) and the ProductVersion string. A file
without a version resource prints "FILE none none" and makes the exit status 1."""
import re
import struct
import sys

SIGNATURE = struct.pack("<I", 0xFEEF04BD)  # starts VS_FIXEDFILEINFO


def version_of(data):
    at = data.find(SIGNATURE)
    if at < 0:
        return None
    # dwSignature, dwStrucVersion, dwFileVersionMS, dwFileVersionLS
    _, _, high, low = struct.unpack_from("<IIII", data, at)
    fixed = f"{high >> 16}.{high & 0xFFFF}.{low >> 16}.{low & 0xFFFF}"
    # The strings follow the fixed part in UTF-16, each key padded to 32 bits before its value.
    text = data[at:at + 4096].decode("utf-16-le", errors="replace")
    product = re.search("ProductVersion\0+([^\0]*)", text)
    return fixed, product.group(1) if product else "none"


def main(files):
    status = 0
    for name in files:
        with open(name, "rb") as f:
            found = version_of(f.read())
        if found is None:
            status = 1
            found = ("none", "none")
        print(name, *found)
    return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
