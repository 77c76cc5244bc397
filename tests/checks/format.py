#!/usr/bin/env python3
"""The layout of the sources is what clang-format makes of them, so that nobody discusses it."""

import re
import subprocess
import sys

import sources

# Another version lays some lines out differently; this is the one of Debian 12.
VERSION = "14"


def main():
    told = subprocess.run(["clang-format", "--version"], capture_output=True, text=True, check=True).stdout
    if not re.search(rf"version {VERSION}\.", told):
        print(f"clang-format {VERSION} is wanted, this is: {told.strip()}")
        sys.exit(77)
    names = [
        str(sources.ROOT / path)
        for path in sources.files(sources.ROOT, ".cpp", ".h")
        if path.parts[0] in ("src", "tests", "bench") and "bad" not in path.parts
    ]
    findings = []
    for name in names:
        result = subprocess.run(["clang-format", "--dry-run", "-Werror", name], capture_output=True, text=True)
        if result.returncode:
            findings.append(result.stderr.splitlines()[0].replace(f"{sources.ROOT}/", ""))
    sources.finish(findings, f"layout of {len(names)} files")


main()
