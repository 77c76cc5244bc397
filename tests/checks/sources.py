"""What the checks of the sources share: which files there are, and how a finding is told."""

import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
NOT_OURS = {"build", "out", ".git", ".cache", "node_modules", "__pycache__"}


def files(root, *suffixes):
    """Every file under `root` that is ours, by path relative to it; all kinds if no suffix is named."""
    found = []
    for path in sorted(root.rglob("*")):
        relative = path.relative_to(root)
        if NOT_OURS & set(relative.parts) or not path.is_file() or path.is_symlink():
            continue
        if not suffixes or path.suffix in suffixes:
            found.append(relative)
    return found


def lines(root, relative):
    """The file's lines; a file that is no text has none."""
    data = (root / relative).read_bytes()
    if b"\0" in data:
        return []
    return data.decode("utf-8", "replace").splitlines()


def finish(findings, what):
    """Prints each finding and ends with 1 if there is any."""
    for finding in findings:
        print(finding)
    print(f"{what}: {len(findings)} findings")
    sys.exit(1 if findings else 0)
