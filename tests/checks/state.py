#!/usr/bin/env python3
"""No variable that can be written lives as long as the program: two projects in a process must not know of each other.

    state.py [--build FOLDER]    names those in the objects of the layers that FOLDER holds; build/golden if not told
    state.py --self-test         whether the check finds what it must

Counted is every object in a section that is written: variables of a namespace, statics of a function with their guards,
static members, and constants that are filled at start. What the loader alone fills, as a table of procedures, is not.
The objects must be those of an optimised build: without optimising, more constants are filled at start.
A table of pointers to members is begun with `std::to_array`: where `std::array` is left to find its type, the compiler
lays the table where it could be written.
"""

import pathlib
import re
import subprocess
import sys
import tempfile

import sources

# The layers without a window, by their folders of src; bitmap and preview both lie in preview.
LAYERS = ("common", "model", "persistence", "editor", "preview", "output", "shell")
# Where a program's written data lies; .data.rel.ro is constant once it is loaded.
WRITTEN = re.compile(r"^(\.data|\.bss|\.tdata|\.tbss)(?!\.rel\.ro)|^COMMON$")
# readelf -sW: Num: Value Size Type Bind Vis Ndx Name
SYMBOL = re.compile(r"^\s*\d+: \S+\s+\S+ (?P<type>\w+)\s+\w+\s+\w+\s+(?P<section>\w+) (?P<name>\S+)")
# readelf -SW: [Nr] Name ...
SECTION = re.compile(r"^\s*\[\s*(?P<number>\d+)\] (?P<name>\S+)")


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def demangled(names):
    told = subprocess.run(["c++filt"], input="\n".join(names), capture_output=True, text=True, check=True)
    return told.stdout.splitlines()


def written_in(path):
    """The names of an object file's written data, as the source has them."""
    sections = {"COM": "COMMON"}
    for found in filter(None, map(SECTION.match, output("readelf", "-SW", path).splitlines())):
        sections[found["number"]] = found["name"]
    names = []
    for found in filter(None, map(SYMBOL.match, output("readelf", "-sW", path).splitlines())):
        of_data = found["type"] in ("OBJECT", "TLS", "COMMON")
        # The compiler's own way to what catches exceptions is no variable of ours.
        ours = not found["name"].startswith("DW.ref.")
        if of_data and ours and WRITTEN.match(sections.get(found["section"], "")):
            names.append(found["name"])
    return sorted(demangled(names))


def objects_of(root, build):
    """The object file of each source of the layers. Those of sources that are gone may still lie in the build."""
    found = {}
    for path in sorted(build.glob("CMakeFiles/velna_*.dir/src/**/*.o")):
        source = pathlib.PurePath(*path.relative_to(build).parts[2:]).with_suffix("")
        if str(source.parent.relative_to("src")) in LAYERS and (root / source).is_file():
            found[source] = path
    return found


def check(root, build):
    objects = objects_of(root, build)
    missing = set(LAYERS) - {str(source.parent.relative_to("src")) for source in objects}
    if missing:
        return [f"{build}: no objects of {', '.join(sorted(missing))}; cmake --build --preset golden makes them"]
    return [f"{source}: {name}" for source, path in sorted(objects.items()) for name in written_in(path)]


# Each name with "written" must be found, and nothing else.
SAMPLE = """
#include <string>
int computed(int);
struct Base { virtual ~Base() = default; virtual int f() { return 1; } };
struct Derived : Base { int f() override { return 2; } static int writtenMember; };
int Derived::writtenMember = 7;
int writtenZero;
int writtenValue = 3;
thread_local int writtenOfThread = 4;
namespace { int writtenHere = 5; }
const int writtenAtStart = computed(1);
const std::string writtenText = "a text too long to lie within the string itself";
constexpr int table[] = {1, 2, 3};
constexpr const char* texts[] = {"a", "b"};
const char* const text = "c";
extern const int constantNumber = 6;
using Call = int (*)(int);
extern const Call calls[] = {computed};
Base* make() { return new Derived; }
int counted() { static int writtenCount = 0; return ++writtenCount + ++writtenHere; }
const std::string& kept() { static const std::string writtenOnce(computed(2), 'x'); return writtenOnce; }
int used(int i) { return table[i] + texts[i][0] + text[i] + constantNumber + calls[i](writtenAtStart); }
int size() { return int(writtenText.size()); }
"""
EXPECTED = ["Derived::writtenMember", "(anonymous namespace)::writtenHere", "counted()::writtenCount",
            "guard variable for kept[abi:cxx11]()::writtenOnce", "kept[abi:cxx11]()::writtenOnce", "writtenAtStart",
            "writtenOfThread", "writtenText", "writtenValue", "writtenZero"]


def compile_sample(root, name, text):
    """A source of the planted tree and its object, where the build would put it."""
    source, made = root / "src" / name, root / "CMakeFiles" / "velna_sample.dir" / "src" / f"{name}.o"
    for path in (source, made):
        path.parent.mkdir(parents=True, exist_ok=True)
    source.write_text(text)
    output("c++", "-std=c++20", "-O2", "-fPIE", "-c", str(source), "-o", str(made))
    return source


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        wrong = [] if check(root, root) else ["a folder without objects passes"]
        for layer in LAYERS:
            compile_sample(root, f"{layer}/sample.cpp", "constexpr int two = 2; int f() { return two; }\n")
        wrong += [f"{name}: found without a reason" for name in check(root, root)]
        compile_sample(root, "common/sample.cpp", SAMPLE)
        compile_sample(root, "shell/qt/sample.cpp", SAMPLE)  # the toolkit's window is no layer of the core
        compile_sample(root, "model/gone.cpp", SAMPLE).unlink()
        found = check(root, root)
    expected = [f"src/common/sample.cpp: {name}" for name in EXPECTED]
    wrong += [f"{name}: not found" for name in sorted(set(expected) - set(found))]
    wrong += [f"{name}: found without a reason" for name in sorted(set(found) - set(expected))]
    sources.finish(wrong, f"self-test of state, {len(expected)} written")


def main(arguments):
    build = sources.ROOT / "build" / "golden"
    if arguments[:1] == ["--build"]:
        build = pathlib.Path(arguments[1]).resolve()
    sources.finish(check(sources.ROOT, build), "state that outlives a project")


if __name__ == "__main__":
    if "--self-test" in sys.argv:
        self_test()
    main(sys.argv[1:])
