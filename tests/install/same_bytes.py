#!/usr/bin/env python3
"""The package has the same bytes when the same sources are built in another folder: same_bytes.py SOURCE_FOLDER"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile


def package(source, target, **variables):
    told = subprocess.run([source / "scripts/package", target], env=dict(os.environ, **variables), stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, text=True, check=True)
    return pathlib.Path(told.stdout.splitlines()[-1])


def tree(package_file, folder):
    """What is in a package, to be compared file by file where the packages differ."""
    subprocess.run(["dpkg-deb", "-R", package_file, folder], check=True)
    return {path.relative_to(folder): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def main():
    source = pathlib.Path(sys.argv[1])
    with tempfile.TemporaryDirectory(prefix="velna-elsewhere-") as name:
        folder = pathlib.Path(name)
        other = folder / "another place/sources"
        shutil.copytree(source, other, symlinks=True,
                        ignore=shutil.ignore_patterns("build", "out", ".git", ".cache", "node_modules", "__pycache__"))
        # Files that come as other files go: nothing may depend on their times.
        for path in other.rglob("*"):
            os.utime(path, (10**9, 10**9), follow_symlinks=False)
        here = package(source, folder / "here")
        there = package(other, folder / "there", CCACHE_DISABLE="1", TZ="Asia/Tokyo", LC_ALL="C.UTF-8")
        if here.name == there.name and here.read_bytes() == there.read_bytes():
            print(f"{here.name}: the same {here.stat().st_size} bytes")
            return 0
        one, two = tree(here, folder / "one"), tree(there, folder / "two")
        for path in sorted(one.keys() | two.keys()):
            if one.get(path) != two.get(path):
                print(f"{path} differs")
        return 1


sys.exit(main())
