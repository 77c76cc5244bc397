#!/usr/bin/env python3
"""Sizes and tests: a file of at most 400 lines, a function of at most 40, and no test without a check.

A reader holds one subject and one procedure in the head at a time. A function may have 60 lines where REASONS tells
why; a reason that nothing needs any more is a finding too. A table may be as long as it needs.

`sizes.py` checks the sources; `sizes.py --self-test` checks that the check finds what it must.
"""

import re
import sys

import sources

FOLDERS = ("src", "tests", "bench", "examples")
FILE_LIMIT = 400
FUNCTION_LIMIT = 40
REASONED_LIMIT = 60
# "file:function" -> why it is longer than 40 lines.
REASONS = {}

SCOPE = re.compile(r"^(inline )?namespace\b|^extern \"C\"")
CLASS = re.compile(r"^(class|struct|union)\b")
TEST_START = re.compile(r"^TEST(_F|_P)?\((\w+), (\w+)\)")
CHECK = re.compile(r"EXPECT_|ASSERT_|FAIL\(|SUCCEED\(|\b(expect|check|compare|require|verify)[A-Z]\w*[(<]")


def functions(text):
    """(first line, its text) of each function of a namespace or a class there, as clang-format lays them out: the head
    begins and the body closes at the column of the scope. What closes with more than a brace is a type or a table."""
    column, head, start = "", None, None
    for number, line in enumerate(text):
        if start is not None:
            if line == column + "}":
                yield start + 1, text[start : number + 1]
            if line.startswith(column + "}"):
                start = None
            continue
        if column and line.startswith("}"):
            column = ""
        if line.startswith(column) and re.match(r"[A-Za-z_~:]", line[len(column) :]):
            head = number
        if head is None or not line.endswith(("{", ";", "}", ":")):
            continue
        first, head = head, None
        if not line.endswith("{") or SCOPE.search(text[first]):
            continue
        if CLASS.search(text[first]):
            column = "    "
        else:
            start = first


def name_of(head):
    """The function's name in the first line of its head."""
    return head.split("(")[0].split(" ")[-1].lstrip("*&")


def check_text(name, text, reasons, needed):
    """What is wrong in one file; the names of the reasons that it needs go into `needed`."""
    findings = []
    if len(text) > FILE_LIMIT:
        findings.append(f"{name}: {len(text)} lines")
    if not name.endswith((".cpp", ".h")):
        return findings
    for first, body in functions(text):
        test = TEST_START.match(body[0])
        if test and not any(CHECK.search(line) for line in body):
            findings.append(f"{name}:{first}: {test.group(2)}.{test.group(3)} checks nothing")
        function = f"{test.group(2)}.{test.group(3)}" if test else name_of(body[0])
        key = f"{name}:{function}"
        reasoned = key in reasons and len(body) > FUNCTION_LIMIT
        if reasoned:
            needed.add(key)
        if len(body) > (REASONED_LIMIT if reasoned else FUNCTION_LIMIT):
            findings.append(f"{name}:{first}: {function}, {len(body)} lines")
    return findings


def check(texts, reasons):
    """The findings in `texts`, a pair of name and lines each."""
    findings, needed = [], set()
    for name, text in texts:
        findings += check_text(name, text, reasons, needed)
    return findings + [f"{key}: a reason that nothing needs" for key in sorted(set(reasons) - needed)]


def ours(root):
    for path in sources.files(root, ".cpp", ".h", ".py"):
        if "bad" not in path.parts and path.parts[0] in FOLDERS:
            yield str(path), sources.lines(root, path)


def function(head, lines, column=""):
    """A function of `lines` lines."""
    return [column + line for line in [*head, *["    g();"] * (lines - len(head) - 1), "}"]]


# What a file holds, by name: its text and how often it must be found.
SAMPLES = {
    "forty.cpp": (function(["void f() {"], 40), 0),
    "forty-one.cpp": (function(["void f() {"], 41), 1),
    "two-heads.cpp": (function(["void f() {"], 41) + [""] + function(["void* g() {"], 41), 2),
    "long-head.cpp": (function(["void A::f(int a,", "          int b) const {"], 41), 1),
    "constructor.cpp": (function(["A::A(int a)", "    : a_(a),", "      b_(0) {"], 41), 1),
    "template.h": (["template <class T>"] + function(["void f() {"], 41), 1),
    "spaces.h": (["namespace velna {", "namespace {", ""] + function(["void f() {"], 41), 1),
    "member.h": (["class A {", "public:", "    int a = 0;"] + function(["int f() {"], 41, "    ") + ["};"], 1),
    "after.h": (["struct A {", "    int a = 0;", "};", ""] + function(["int f() {"], 41), 1),
    "members.h": (["struct A {"] + function(["int f() {"], 30, "    ") + function(["int g() {"], 30, "    ") + ["};"], 0),
    "table.cpp": (["constexpr Row rows[] = {"] + ["    {1, 2},"] * 90 + ["};"], 0),
    "list.cpp": (["const std::map<int, int> rows{"] + ["    {1, 2},"] * 90 + ["};"], 0),
    "reasoned.cpp": (function(["void f() {"], 60), 0),
    "too-long.cpp": (function(["void f() {"], 61), 1),
    "nothing.cpp": (["TEST(A, Nothing) {", "    run();", "}"], 1),
    "something.cpp": (["TEST(A, Something) {", "    EXPECT_EQ(run(), 1);", "}"], 0),
    "long-test.cpp": (function(["TEST_F(A, Long) {", "    EXPECT_TRUE(g());"], 41), 1),
    "file.cpp": (["int a;"] * 401, 1),
    "header.h": (["int a;"] * 401, 1),
    "script.py": (["a = 1"] * 401, 1),
    "file-of-400.h": (["int a;"] * 400, 0),
    "short.cpp": (function(["void f() {"], 40), 1),
}
SAMPLE_REASONS = {f"{name}:f": "tried" for name in ("reasoned.cpp", "too-long.cpp", "short.cpp")}


def self_test():
    wrong = []
    for name, (text, count) in SAMPLES.items():
        reasons = {key: why for key, why in SAMPLE_REASONS.items() if key.startswith(f"{name}:")}
        found = check([(name, text)], reasons)
        if len(found) != count:
            wrong.append(f"{name}: {len(found)} findings, expected {count}: {found}")
    sources.finish(wrong, f"self-test of sizes, {len(SAMPLES)} samples")


if __name__ == "__main__":
    if "--self-test" in sys.argv:
        self_test()
    sources.finish(check(ours(sources.ROOT), REASONS), "sizes")
