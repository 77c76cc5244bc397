#!/usr/bin/env python3
"""Holds the layers apart: an include goes down the list of layers or stays in its folder.

`includes.py` checks the sources; `includes.py --self-test` checks that the check finds what it must, in
the small bad tree beside it.
"""

import pathlib
import re
import sys

import sources

# What a folder may include besides itself and the standard library.
MAY_INCLUDE = {
    "common": [],
    "model": ["common"],
    "preview": ["common", "model"],
    "editor": ["common", "model"],
    # Saving copies the pictures beside the project; sizes and conversions need no GL.
    "persistence": ["common", "model", "preview/PictureCopies.h"],
    # A drawing or a plan is made without a window, so it knows no editor.
    "output": ["common", "model", "preview", "persistence"],
    "shell": ["common", "model", "preview", "editor", "persistence", "output"],
    "shell/qt": ["common", "model", "preview", "editor", "persistence", "output", "shell"],
}
# The core knows no toolkit. C headers of the system are named one by one, each for its reason.
STANDARD = re.compile(r"^[a-z_0-9]+$")
SYSTEM = {
    # a file put in place whole, synced, and locked
    "common": {"dirent.h", "fcntl.h", "unistd.h", "sys/file.h", "sys/stat.h", "sys/types.h"},
    "model": {"polyclipping/clipper.hpp"},  # offsets and differences of outlines
    "output": {"zlib.h"},  # the archive of a 3MF file
    "preview": {"GL/gl.h", "sys/stat.h"},  # which file a picture's path names
}
INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)')
# The part of preview that the core links, so it may not draw.
WITHOUT_GL = {
    "preview/Bitmap.h",
    "preview/Bitmap.cpp",
    "preview/Imaging.h",
    "preview/PictureCopies.h",
    "preview/PictureCopies.cpp",
}


def folder_of(path):
    return str(pathlib.PurePath(path).parent)


def allowed(folder, included):
    if folder_of(included) == folder:
        return True
    for entry in MAY_INCLUDE[folder]:
        if included == entry or folder_of(included) == entry:
            return True
    return False


def check_quoted(src, folder, where, included):
    if not (src / included).is_file() and not included.endswith(".moc"):
        return [f'{where}: "{included}" is no file of src']
    if not included.endswith(".moc") and not allowed(folder, included):
        return [f'{where}: {folder} must not include "{included}"']
    return []


def check_angled(folder, name, where, included):
    if folder == "shell/qt" or STANDARD.match(included):
        return []
    if included in SYSTEM.get(folder, ()) and not (
        included.startswith("GL/") and name in WITHOUT_GL
    ):
        return []
    return [f"{where}: {folder} must not include <{included}>"]


def check_file(src, name):
    folder = folder_of(name)
    if folder not in MAY_INCLUDE:
        return [f"src/{name}: the folder {folder} has no place in the list of layers"]
    findings = []
    text = sources.lines(src, name)
    for number, line in enumerate(text, 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        where = f"src/{name}:{number}"
        if match.group(1):
            findings += check_quoted(src, folder, where, match.group(1))
        else:
            findings += check_angled(folder, name, where, match.group(2))
    if name.endswith(".h") and not any(line == "#pragma once" for line in text):
        findings.append(f"src/{name}: no #pragma once")
    return findings


def check(root):
    src = root / "src"
    findings = []
    for path in sources.files(src, ".h", ".cpp"):
        findings += check_file(src, str(path))
    return findings


def self_test():
    """Every line of the bad tree that says "bad" must be found, and no other."""
    root = pathlib.Path(__file__).resolve().parent / "bad"
    expected = set()
    for path in sources.files(root / "src", ".h", ".cpp"):
        for number, line in enumerate(sources.lines(root / "src", path), 1):
            if "// bad" in line:
                expected.add(f"src/{path}:{number}")
    found = {finding.split(": ")[0] for finding in check(root)}
    wrong = [f"{place}: not found" for place in sorted(expected - found)]
    wrong += [f"{place}: found without a reason" for place in sorted(found - expected)]
    if not expected:
        wrong.append("the bad tree has no bad line")
    sources.finish(wrong, f"self-test of includes, {len(expected)} bad lines")


if __name__ == "__main__":
    if "--self-test" in sys.argv:
        self_test()
    sources.finish(check(sources.ROOT), "includes")
