#!/usr/bin/env python3
"""Every check that .clang-tidy names is one that clang-tidy knows and runs.

A misspelt name or a lost comma switches a check off without a word.
"""

import fnmatch
import re
import subprocess

import sources


def named():
    """The names in the list of .clang-tidy, without comments and the first "-*"."""
    text = sources.lines(sources.ROOT, ".clang-tidy")
    start = text.index("Checks: >") + 1
    names = []
    for line in text[start:]:
        if not line.startswith("  "):
            break
        names += [name for name in re.split(r"[,\s]+", line.strip()) if name and name != "-*"]
    return names


def active():
    told = subprocess.run(
        ["clang-tidy", "--list-checks"], capture_output=True, text=True, check=True, cwd=sources.ROOT
    ).stdout
    return [line.strip() for line in told.splitlines()[1:] if line.strip()]


def main():
    wanted, runs = set(named()), set(active())
    findings = [f"{name}: named, but never runs" for name in sorted(wanted) if not fnmatch.filter(runs, name)]
    for name in sorted(runs):
        if not any(fnmatch.fnmatch(name, pattern) for pattern in wanted):
            findings.append(f"{name}: runs, but is not named")
    if not wanted:
        findings.append("no check is named")
    sources.finish(findings, f"lint, {len(wanted)} checks")


main()
