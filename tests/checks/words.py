#!/usr/bin/env python3
"""Finds words that tell of a place of work instead of the program, and notes left for later.

The words are put together from pieces here, so that this file passes its own check.
"""

import re
import sys

import sources


def pattern(*pieces, flags=re.IGNORECASE):
    return re.compile("".join(pieces), flags)


FORBIDDEN = [
    # A box of the equipment has a field of the short name, so quoted it is one of ours.
    (pattern(r"(?<![\"\w.])sp", r"ecs?\b(?!\")"), "say the reason itself, not where it was written down"),
    (pattern(r"\bsp", r"ecifications?\b"), "say the reason itself, not where it was written down"),
    (pattern(r"\bPar", r"ts? \d+\.\d+", flags=0), "say the reason itself, not where it was written down"),
    (pattern(r"\.\./", r"shared\b"), "a path of one machine"),
    (pattern(r"(?<![\w.<])/wo", r"rk\b"), "a path of one machine"),
    (pattern(r"(?<![\w.])/ho", r"me/\w"), "a path of one machine"),
    (pattern(r"\bses", r"sions?\b"), "the repository speaks of the program alone"),
    (pattern(r"\bhel", r"pers?\b", flags=0), "name what the code does"),
    (pattern(r"\bTO", r"DO\b", flags=0), "do it, or leave it"),
    (pattern(r"\bFIX", r"ME\b", flags=0), "fix it, or leave it"),
    (pattern(r"regis", r"try\.npm|\bpy", r"pi\.org|\bde", r"b\.debian\.org"), "the host is the system's choice"),
]


def findings_in(text):
    """(line number, reason) of each forbidden word."""
    for number, line in enumerate(text, 1):
        for forbidden, reason in FORBIDDEN:
            if forbidden.search(line):
                yield number, reason


def check(root):
    findings = []
    for path in sources.files(root):
        for number, reason in findings_in(sources.lines(root, path)):
            findings.append(f"{path}:{number}: {reason}")
        for _, reason in findings_in([str(path).replace("/", " ")]):
            findings.append(f"{path}: the name: {reason}")
    return findings


def self_test():
    bad = ["as told in the sp" + "ec", "see Par" + "t 3.2", "cp ../" + "shared/a b", "TO" + "DO: later",
           "in this ses" + "sion", "a hel" + "per"]
    good = ["a special part 3 of the inspector", "Helper.h", "home / work", "part 4 follows", "specular",
            'data["sp' + 'ec"] = nullptr']
    wrong = [f"not found: {line}" for line in bad if not list(findings_in([line]))]
    wrong += [f"found without a reason: {line}" for line in good if list(findings_in([line]))]
    sources.finish(wrong, "self-test of words")


if __name__ == "__main__":
    if "--self-test" in sys.argv:
        self_test()
    sources.finish(check(sources.ROOT), "words")
