"""The one-line mutations of a C++ source, found in its text as clang-format lays it out."""

import dataclasses
import random
import re

# A line that begins so declares, and a change of it says nothing about behaviour.
DECLARES = re.compile(r"\s*(#|using\b|namespace\b|template\b|static_assert\b|friend\b|class\b|struct\b|enum\b|\[\[)")
# The quotes of a character literal do not follow a digit, as those that part a long number do.
COMMENT_OR_TEXT = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\((?:.*?)\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])+\'', re.S)
# What looks like a call and is none.
NO_CALLS = {"if", "for", "while", "switch", "return", "catch", "sizeof", "decltype", "static_assert"}
PARAMETER = re.compile(r"(const )?[\w:<>, ]+[&*]* [&*]*\w+( = .*)?$|const\b")
ARGUMENT = re.compile(r"[\w.:()\[\]*&!+/<> -]+$")
# An assignment or a call that stands alone: whatever is declared has a type, and so a blank, before it.
STATEMENT = re.compile(
    r"(?!return\b|case\b|default\b|delete\b|throw\b|else\b|if\b|for\b|while\b)"
    r"((\*|\+\+|--)?[\w:][\w:.\->\[\]*]*(\(.*\)|\[.*\])?( ?[-+*/|&%]?= .*|\(.*\)|\+\+|--)?|continue|break|return);$")
NOT_DROPPED = re.compile(r"= (default|delete|0);$|^\w+;$")

# Kind of mutation -> (pattern, what comes in its place); a blank round an operator tells it from a template's bracket,
# a pointer or a reference.
OPERATORS = {
    "comparison": [(r" <(?= |$)", " <="), (r" <=(?= |$)", " <"), (r" >(?= |$)", " >="), (r" >=(?= |$)", " >"),
                   (r" ==(?= |$)", " !="), (r" !=(?= |$)", " =="), (r"\bstd::min\b", "std::max"),
                   (r"\bstd::max\b", "std::min")],
    "logic": [(r" &&(?= |$)", " ||"), (r" \|\|(?= |$)", " &&"), (r"!(?=[\w(:])", "")],
    "sign": [(r" \+(?= |$)", " -"), (r" -(?= |$)", " +"), (r" \*(?= |$)", " /"), (r" /(?= |$)", " *"),
             (r" %(?= |$)", " *"), (r" \+=(?= )", " -="), (r" -=(?= )", " +="), (r" \*=(?= )", " /="),
             (r" /=(?= )", " *="), (r"(?<=[(\[{])-(?=[\w(])", ""), (r"(?<=[,=?:] )-(?=[\w(])", ""),
             (r"(?<=return )-(?=[\w(])", ""), (r"\+\+", "--"), (r"--", "++")],
}
NUMBER = re.compile(r"(?<![\w.'])(0|[1-9]\d*)(\.\d*)?(?![\w.'])")
CHOICE = re.compile(r" \? ((?:[^?:();,{}]|::|\([^()]*\))+) : ((?:[^?:();,{}]|::|\([^()]*\))+)")


@dataclasses.dataclass(frozen=True)
class Mutation:
    """`after` in place of `before` in the line of that number, counted from 1, of `file`."""

    file: str
    line: int
    kind: str
    before: str
    after: str


def masked(text):
    """`text` with every character of its comments, texts and character literals made a blank or an 'S', line ends kept,
    so that a place in it is one in `text`."""
    def blank(match):
        sign = " " if match[0].startswith("/") else "S"
        return re.sub(r"[^\n]", sign, match[0])

    return COMMENT_OR_TEXT.sub(blank, text)


def closing(code, opening):
    """Where the bracket at `opening` closes in this line; None if it does not."""
    depth = 0
    for place in range(opening, len(code)):
        depth += (code[place] in "([{") - (code[place] in ")]}")
        if depth == 0:
            return place
    return None


def split(code, start, end):
    """The places (start, end) of what commas part in code[start:end], brackets and templates apart."""
    parts, depth, first = [], 0, start
    for place in range(start, end):
        depth += (code[place] in "([{") - (code[place] in ")]}")
        if code[place] == "," and depth == 0:
            parts.append((first, place))
            first = place + 1
    parts.append((first, end))
    return [(a + len(code[a:b]) - len(code[a:b].lstrip()), b) for a, b in parts]


def guards(code):
    """Conditions made true or false. A loop is never made endless."""
    for match in re.finditer(r"\b(if|while) \(", code):
        end = closing(code, match.end() - 1)
        if end is None:
            continue
        start = match.end() + (code[match.end() : end].rfind(";") + 1)
        for word in ("true", "false") if match[1] == "if" else ("false",):
            yield start, end, " " + word if start != match.end() else word


def swaps(code):
    """Two neighbouring arguments of a call, or of a list in braces, in the other order; two branches of a choice."""
    for match in re.finditer(r"(\b\w+)?[({]", code):
        end = closing(code, match.end() - 1)
        if end is None or match[1] in NO_CALLS:
            continue
        parts = split(code, match.end(), end)
        for (a, b), (c, d) in zip(parts, parts[1:]):
            one, other = code[a:b], code[c:d]
            if one == other or not (ARGUMENT.match(one) and ARGUMENT.match(other)):
                continue
            if not (PARAMETER.match(one) or PARAMETER.match(other)):
                yield a, d, (c, d, a, b)
    for match in CHOICE.finditer(code):
        first = match.start(1), match.start(1) + len(match[1].rstrip())
        second = match.start(2), match.start(2) + len(match[2].rstrip())
        yield first[0], second[1], (*second, *first)


def constants(code):
    for match in NUMBER.finditer(code):
        whole, rest = int(match[1]), match[2] or ""
        yield match.start(), match.end(), f"{whole + 1}{rest}"
        if whole > 0:
            yield match.start(), match.end(), f"{whole - 1}{rest}"
    for word, other in (("true", "false"), ("false", "true")):
        for match in re.finditer(rf"\b{word}\b", code):
            yield match.start(), match.end(), other


def operators(kind, code):
    for pattern, other in OPERATORS[kind]:
        for match in re.finditer(pattern, code):
            # A loop that steps backwards only hangs.
            if not (match[0] in ("++", "--") and re.match(r"\s*for \(", code)):
                yield match.start(), match.end(), other


def dropped(code, previous):
    text = code.strip()
    begins = previous.rstrip().endswith((";", "{", "}", ")", ":", "else")) or not previous.strip()
    if begins and STATEMENT.match(text) and not NOT_DROPPED.search(text) or text in ("continue;", "break;", "return;"):
        yield len(code) - len(code.lstrip()), len(code.rstrip()), ";"


def in_line(code, previous):
    """(kind, start, end, what comes there) of each mutation of a masked line."""
    for kind in OPERATORS:
        yield from ((kind, *found) for found in operators(kind, code))
    yield from (("guard", *found) for found in guards(code))
    yield from (("swap", *found) for found in swaps(code))
    yield from (("constant", *found) for found in constants(code))
    yield from (("dropped", *found) for found in dropped(code, previous))


def mutations(name, text):
    """Every mutation of the source `text`, which is the file `name`."""
    lines, code = text.split("\n"), masked(text).split("\n")
    found, previous = [], ""
    for number, (line, bare) in enumerate(zip(lines, code), 1):
        if not DECLARES.match(bare) and bare.strip():
            for kind, start, end, other in in_line(bare, previous):
                if not isinstance(other, str):
                    a, b, c, d = other
                    other = line[a:b] + line[d:a] + line[c:d]
                found.append(Mutation(name, number, kind, line, line[:start] + other + line[end:]))
        if bare.strip():
            previous = bare
    return found


def drawn(found, seed):
    """All of `found` in an order that `seed` decides: the kinds take turns, and no line comes again before all came."""
    chance = random.Random(seed)
    kinds = {}
    for mutation in found:
        kinds.setdefault(mutation.kind, []).append(mutation)
    for of_kind in kinds.values():
        chance.shuffle(of_kind)
    order, later, seen = [], [], set()
    while any(kinds.values()):
        for kind in sorted(kinds):
            if kinds[kind]:
                mutation = kinds[kind].pop()
                place = (mutation.file, mutation.line)
                (later if place in seen else order).append(mutation)
                seen.add(place)
    return order + later


def applied(text, mutation):
    """The source with that mutation in it."""
    lines = text.split("\n")
    assert lines[mutation.line - 1] == mutation.before, mutation
    lines[mutation.line - 1] = mutation.after
    return "\n".join(lines)
