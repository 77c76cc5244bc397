#!/usr/bin/env python3
"""Runs clang-tidy with the list of .clang-tidy; a finding, a source that does not parse, and a clang-tidy that
does not run all fail.

    tidy.py [--build FOLDER] FILE...      those sources
    tidy.py [--build FOLDER] --all        every source of src
    tidy.py [--build FOLDER] --changed    the sources that differ from ten commits ago, at most LIMIT of them
    tidy.py --self-test                   whether the check finds what it must

FOLDER holds compile_commands.json; build/dev if not told.
"""

import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys
import tempfile

import sources

COMMITS = 10
# A source takes seconds: a large merge must not turn every test run into a whole one. The newest changes come first,
# and what is left over is named; the long test looks at all.
LIMIT = 24


def tidy(root, build, name):
    """What clang-tidy says of one source, empty if nothing."""
    command = ["clang-tidy", "-p", str(build), f"--config-file={sources.ROOT}/.clang-tidy", "--quiet", str(root / name)]
    told = subprocess.run(command, capture_output=True, text=True)
    if told.returncode == 0:
        return ""
    return f"{name}: clang-tidy ends with {told.returncode}\n{told.stdout}{told.stderr}"


def findings_in(root, build, names):
    if not (build / "compile_commands.json").is_file():
        return [f"{build}: no compile_commands.json; cmake --preset dev writes it"]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return [told for told in pool.map(lambda name: tidy(root, build, name), names) if told]


def git(root, *arguments):
    """The lines that git answers; None where it fails, as without a history."""
    # Within a hook git names the repository here, and the self-test would write into it.
    surroundings = {name: value for name, value in os.environ.items() if not name.startswith("GIT_")}
    try:
        told = subprocess.run(["git", "-C", str(root), *arguments], capture_output=True, text=True, env=surroundings)
    except FileNotFoundError:
        return None
    return told.stdout.splitlines() if told.returncode == 0 else None


def changed_files(root):
    """The files of src that differ from ten commits ago, the newest change first; all where the history is shorter."""
    def since(commit):
        return git(root, "diff", "--relative", "--name-only", commit, "--", "src")

    differing = since(f"HEAD~{COMMITS}")
    if differing is None:
        return [str(path) for path in sources.files(root, ".cpp", ".h") if path.parts[0] == "src"]
    new = git(root, "ls-files", "--others", "--exclude-standard", "src") or []
    newest_first = new + [name for back in range(COMMITS) for name in since(f"HEAD~{back}") or []]
    return [name for name in dict.fromkeys(newest_first + differing) if name in differing or name in new]


def source_of(root, name):
    """The source that shows a file's findings: itself, a header's namesake, or else one source that includes it."""
    path = pathlib.PurePath(name)
    if path.suffix == ".cpp":
        return name
    namesake = path.with_suffix(".cpp")
    if (root / namesake).is_file():
        return str(namesake)
    line = f'#include "{path.relative_to("src")}"'
    for source in sources.files(root, ".cpp"):
        if source.parts[0] == "src" and line in sources.lines(root, source):
            return str(source)
    return None


def sources_of(root, names):
    """The sources that show what these files hold, each once; a file that is gone or no C++ has none."""
    ours = [name for name in names if (root / name).is_file() and name.endswith((".cpp", ".h"))]
    return [source for source in dict.fromkeys(source_of(root, name) for name in ours) if source]


def limited(names):
    for name in names[LIMIT:]:
        print(f"{name}: left to the long test")
    return names[:LIMIT]


# The planted sources by name: text, and whether clang-tidy must find something.
PLANTED = {
    "src/clean.cpp": ('#include "clean.h"\n#include "other/foreign.h"\nint clean() { return 1; }\n', False),
    "src/finding.cpp": ("double half() { return 1 / 2; }\n", True),
    "src/header.cpp": ('#include "finding.h"\nint header() { return 1; }\n', True),
    "src/unparsable.cpp": ('#include "nowhere.h"\nint f() { return 1; }\n', True),
    "src/absent.cpp": (None, True),
}
PLANTED_HEADERS = {
    "src/clean.h": "int clean();\n",
    "src/finding.h": "inline double half() { return 1 / 2; }\n",
    "other/foreign.h": "inline double half() { return 1 / 2; }\n",
}
# What this project compiles with, and a flag that clang does not know.
FLAGS = ["-Wall", "-Werror", "-Wno-restrict", "-fsanitize=address,undefined,float-cast-overflow", "-std=c++20"]


def write(root, texts):
    for name, text in texts.items():
        (root / name).parent.mkdir(parents=True, exist_ok=True)
        (root / name).write_text(text)


def self_test_findings(root):
    write(root, PLANTED_HEADERS | {name: text for name, (text, _) in PLANTED.items() if text})
    entries = []
    for name in PLANTED:
        arguments = ["c++", *FLAGS, "-I", str(root), "-c", str(root / name)]
        entries.append({"directory": str(root), "file": str(root / name), "arguments": arguments})
    if not findings_in(root, root, ["src/clean.cpp"]):
        yield "no finding without compile commands"
    write(root, {"compile_commands.json": json.dumps(entries)})
    for name, (_, bad) in PLANTED.items():
        found = findings_in(root, root, [name])
        if bad != bool(found):
            yield f"{name}: {'nothing found' if not found else found[0]}"


def commit(root, message):
    git(root, "add", "-A")
    git(root, "-c", "user.name=A", "-c", "user.email=a@b", "commit", "-q", "--allow-empty", "-m", message)


def self_test_changes(root):
    """Which sources count as changed, in a small history of this check's own."""
    def expect(what, wanted):
        found = sources_of(root, changed_files(root))
        return [] if found == wanted else [f"{what}: {found} instead of {wanted}"]

    write(root, {"src/old.cpp": "", "src/gone.cpp": "", "src/a.cpp": "", "src/b.h": "", "src/b.cpp": "",
                 "src/alone.h": "", "src/c.cpp": '#include "alone.h"\n', "tests/t.cpp": ""})
    everything = ["src/a.cpp", "src/c.cpp", "src/b.cpp", "src/gone.cpp", "src/old.cpp"]
    wrong = expect("without a history", everything)
    git(root, "init", "-q")
    commit(root, "first")
    wrong += expect("with a short history", everything)
    for number in range(COMMITS):
        commit(root, str(number))
    wrong += expect("nothing changed", [])
    (root / "src/gone.cpp").unlink()
    write(root, {"src/a.cpp": "int a;\n", "tests/t.cpp": "int t;\n"})
    commit(root, "change")
    write(root, {"src/b.h": "int b;\n", "src/alone.h": "int c;\n"})
    commit(root, "change of headers")
    write(root, {"src/new.cpp": ""})
    wrong += expect("changed", ["src/new.cpp", "src/c.cpp", "src/b.cpp", "src/a.cpp"])
    return wrong


def self_test():
    with tempfile.TemporaryDirectory() as planted, tempfile.TemporaryDirectory() as history:
        wrong = list(self_test_findings(pathlib.Path(planted)))
        wrong += self_test_changes(pathlib.Path(history))
    many = [f"src/{number}.cpp" for number in range(LIMIT + 1)]
    if limited(many) != many[:LIMIT]:
        wrong.append("the limit does not hold")
    sources.finish(wrong, "self-test of tidy")


def main(arguments):
    build = sources.ROOT / "build" / "dev"
    if arguments[:1] == ["--build"]:
        build, arguments = pathlib.Path(arguments[1]), arguments[2:]
    if arguments == ["--changed"]:
        names = limited(sources_of(sources.ROOT, changed_files(sources.ROOT)))
    elif arguments == ["--all"]:
        names = [str(path) for path in sources.files(sources.ROOT, ".cpp") if path.parts[0] == "src"]
    else:
        names = arguments
    sources.finish(findings_in(sources.ROOT, build, names), f"clang-tidy of {len(names)} sources")


if __name__ == "__main__":
    if "--self-test" in sys.argv:
        self_test()
    main(sys.argv[1:])
