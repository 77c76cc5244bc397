#!/usr/bin/env python3
"""Sizes and tests: a file of at most 400 lines, a function of at most 60, and no test without a check.

A reader holds one subject and one procedure in the head at a time. What is longer for a reason stands
in LONGER with it. Functions above 40 lines are listed, so that one sees where the code grows.
"""

import re
import sys

import sources

FILE_LIMIT = 400
FUNCTION_LIMIT = 60
FUNCTION_NOTICE = 40
# "file" or "file:function" -> why it may be longer. A table may be as long as it needs.
LONGER = {}

FUNCTION_START = re.compile(r"^[A-Za-z_].*\{$|^    .*\) (const )?\{$")
NOT_A_FUNCTION = re.compile(r"^(namespace|struct|class|enum|union|extern|inline constexpr|constexpr|static const)\b|=\s*\{$")
TEST_START = re.compile(r"^TEST(_F|_P)?\((\w+), (\w+)\)")
CHECK = re.compile(r"EXPECT_|ASSERT_|FAIL\(|SUCCEED\(|\b(expect|check|compare|require|verify)[A-Z]\w*[(<]|\bcompareGolden")


def functions(text):
    """(first line, length, its text) of each function at namespace level; clang-format closes them at column 1."""
    start = None
    for number, line in enumerate(text):
        if line == "}" and start is not None:
            yield start + 1, number - start + 1, text[start : number + 1]
            start = None
        elif line in ("};", "}  // namespace velna") or NOT_A_FUNCTION.search(line) and not line.startswith(" "):
            start = None
        elif start is None and line.endswith("{") and re.match(r"^[A-Za-z_~:]", line):
            start = number
        elif start is None and line.endswith("{") and line.startswith("    ") and number and not text[number - 1].endswith(
            ("{", ";", "}")
        ):
            start = number - 1  # the head took two lines


def check_text(name, text):
    findings, notices = [], []
    if name.endswith(".cpp") and len(text) > FILE_LIMIT and name not in LONGER:
        findings.append(f"{name}: {len(text)} lines")
    for first, length, body in functions(text):
        head = body[0].split("(")[0].split(" ")[-1]
        test = TEST_START.match(body[0])
        if test and not any(CHECK.search(line) for line in body):
            findings.append(f"{name}:{first}: {test.group(2)}.{test.group(3)} checks nothing")
        if length > FUNCTION_LIMIT and f"{name}:{head}" not in LONGER:
            findings.append(f"{name}:{first}: {head}, {length} lines")
        elif length > FUNCTION_NOTICE:
            notices.append(f"{name}:{first}: {head}, {length} lines (a notice)")
    return findings, notices


def check(root):
    findings = []
    for path in sources.files(root, ".cpp", ".h"):
        if "bad" in path.parts or path.parts[0] not in ("src", "tests", "bench"):
            continue
        found, notices = check_text(str(path), sources.lines(root, path))
        findings += found
        for notice in notices:
            print(notice)
    return findings


def self_test():
    long_function = ["void f() {"] + ["    g();"] * 70 + ["}"]
    long_table = ["constexpr Row rows[] = {"] + ["    {1, 2},"] * 90 + ["};"]
    empty_test = ["TEST(A, Nothing) {", "    run();", "}"]
    full_test = ["TEST(A, Something) {", "    EXPECT_EQ(run(), 1);", "}"]
    wrong = []
    for name, text, count in [("f", long_function, 1), ("table", long_table, 0), ("empty test", empty_test, 1),
                              ("test", full_test, 0), ("file", ["int a;"] * 401, 1)]:
        found = check_text("x.cpp", text)[0]
        if len(found) != count:
            wrong.append(f"{name}: {len(found)} findings, expected {count}: {found}")
    sources.finish(wrong, "self-test of sizes")


if __name__ == "__main__":
    if "--self-test" in sys.argv:
        self_test()
    sources.finish(check(sources.ROOT), "sizes")
