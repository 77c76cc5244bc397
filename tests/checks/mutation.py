#!/usr/bin/env python3
"""Whether scripts/mutate tells what it must: `mutation.py --self-test`, on a small project of its own."""

import dataclasses
import pathlib
import sys
import tempfile

import sources

sys.path.insert(0, str(sources.ROOT / "tests" / "mutation"))

import mutate  # noqa: E402
import mutations  # noqa: E402
from tree import DoesNotBuild, TestProgram, Tree  # noqa: E402

# A line, and what must be among its mutations.
MADE = [
    ("if (a < b) return 0;",
     ["if (a <= b) return 0;", "if (false) return 0;", "if (true) return 0;", "if (a < b) return 1;"]),
    ("while (i != n && !done) ++i;",
     ["while (i == n && !done) ++i;", "while (i != n || !done) ++i;", "while (i != n && done) ++i;",
      "while (false) ++i;"]),
    ("if (auto p = find(a); p > 2) count += 2;",
     ["if (auto p = find(a); true) count += 2;", "if (auto p = find(a); p > 3) count += 2;",
      "if (auto p = find(a); p > 2) count -= 2;"]),
    ("move(left - 1, right, 'x');", ["move(left + 1, right, 'x');", "move(right, left - 1, 'x');", ";"]),
    ("width = -height * 0.5;", ["width = height * 0.5;", "width = -height / 0.5;", ";"]),
    ("return wide ? one : two;", ["return wide ? two : one;"]),
]
# Lines that say nothing about behaviour.
LEFT_ALONE = ["#if A < 2", "// if (a < b) return 0;", 'return tell("a < b && c + 1");', "std::vector<int> list;",
              "void move(Point&& to, int* at);", "using Pair = std::array<int, 2>;"]

PROJECT = {
    "CMakeLists.txt": """cmake_minimum_required(VERSION 3.25)
project(small LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
find_package(GTest REQUIRED)
add_executable(velna_small_test src/small/Small.cpp tests/small/SmallTest.cpp)
add_executable(velna_whole_test src/small/Small.cpp tests/small/WholeTest.cpp)
target_link_libraries(velna_small_test GTest::gtest_main)
target_link_libraries(velna_whole_test GTest::gtest_main)
""",
    "src/small/Small.cpp": """int half(int value) {
    if (value < 0) return 0;
    return value / 2;
}
int drained(int value) {
    for (; value > 0; value -= 1) half(value);
    return value;
}
extern "C" int pause();
int awaited(int value) {
    if (value < 0) pause();
    return value;
}
""",
    "tests/small/SmallTest.cpp": """#include <gtest/gtest.h>
int half(int);
int drained(int);
int awaited(int);
TEST(Small, Halves) { EXPECT_EQ(half(6), 3); }
TEST(Small, Drains) { EXPECT_EQ(drained(3), 0); }
TEST(Small, Awaits) { EXPECT_EQ(awaited(3), 3); }
""",
    "tests/small/WholeTest.cpp": """#include <gtest/gtest.h>
int half(int);
TEST(Whole, NothingIsBelowNone) { EXPECT_EQ(half(-4), 0); }
""",
}
# Line of Small.cpp, what replaces what, and what must become of it.
FATES = [
    (3, "value / 2", "value * 2", mutate.KILLED, "Small.Halves"),
    (2, "value < 0", "false", mutate.SURVIVES, ""),
    (2, "value < 0", "value < nothing", mutate.REFUSED, ""),
    (2, "value < 0", "0 > value", mutate.SAME, ""),
    (6, "value -= 1", "value -= 0", mutate.KILLED, "hangs"),
    (11, "value < 0", "value >= 0", mutate.KILLED, "hangs"),
]


def wrong_lines():
    for line, wanted in MADE:
        made = [mutation.after for mutation in mutations.mutations("a.cpp", line)]
        yield from (f"{line}: {after} is not made" for after in wanted if after not in made)
    for line in LEFT_ALONE:
        yield from (f"{line}: becomes {mutation.after}" for mutation in mutations.mutations("a.cpp", line))


def wrong_draw():
    found = mutations.mutations("a.cpp", "\n".join(line for line, _ in MADE))
    orders = [mutations.drawn(found, seed) for seed in ("1", "1", "2")]
    if orders[0] != orders[1]:
        yield "one seed draws two orders"
    if orders[0] == orders[2]:
        yield "two seeds draw one order"
    if set(orders[0]) != set(found):
        yield "a draw loses mutations"


def planted(line, before, after):
    whole = PROJECT["src/small/Small.cpp"].split("\n")[line - 1]
    return mutations.Mutation("src/small/Small.cpp", line, "planted", whole, whole.replace(before, after))


def wrong_fates(tree):
    names = ["velna_small_test", "velna_whole_test"]
    tree.make(names)
    small, whole = (TestProgram(tree, name) for name in names)
    for line, before, after, what, by in FATES:
        mutation = planted(line, before, after)
        found = mutate.fate(tree, [small], mutation)
        if found[0] != what or not found[1].startswith(by):
            yield f"{mutation.after}: {found}"
    survivor = planted(*FATES[1][:3])
    if mutate.fate(tree, [small, whole], survivor) != (mutate.KILLED, "Whole.NothingIsBelowNone"):
        yield "the further program does not kill"
    if survivor.after.strip() not in mutate.table([(survivor, mutate.SURVIVES, "")]):
        yield "the table does not tell the survivor"


def wrong_places(tree):
    stands = planted(*FATES[1][:3])
    moved = dataclasses.replace(stands, line=stands.line + 7)
    gone = dataclasses.replace(stands, before="    if (value < -1) return 0;")
    if mutate.found_again(tree, moved) != stands:
        yield "a survivor whose line has moved is not found"
    if mutate.found_again(tree, gone) is not None:
        yield "a survivor whose line is gone is found"


def wrong_sources(root, tree):
    try:
        with tree.changed("src/small/Small.cpp", "?"):
            raise DoesNotBuild
    except DoesNotBuild:
        pass
    for name, text in PROJECT.items():
        for folder in (root, tree.sources):
            if (folder / name).read_text() != text:
                yield f"{folder / name} is not restored"
    (tree.sources / "src/small/Small.cpp").write_text("what a killed run left")
    tree.copy(root)
    if (tree.sources / "src/small/Small.cpp").read_text() != PROJECT["src/small/Small.cpp"]:
        yield "the next run does not restore what a killed one left"


def self_test():
    wrong = [*wrong_lines(), *wrong_draw()]
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder) / "project"
        for name, text in PROJECT.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text)
        place = pathlib.Path(folder) / "mutants"
        place.mkdir()
        tree = Tree(root, place, ["vector"], 2)
        wrong += [*wrong_fates(tree), *wrong_places(tree), *wrong_sources(root, tree)]
    sources.finish(wrong, "self-test of mutation")


if __name__ == "__main__":
    self_test()
