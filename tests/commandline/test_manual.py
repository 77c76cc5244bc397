#!/usr/bin/env python3
"""The man page, the help's page and `--help` tell the same options, with the same words behind them, and the same kinds.

usage: test_manual.py VELNA ROOT
"""

import re

from calling import ROOT, CommandLine, call, main


def told_by_help():
    """The options with what follows them, and the kinds, as the program tells them."""
    told = call("--help").stdout
    options = dict(re.findall(r"^  (--[a-z]+)(?: (\S+))?(?:  \(.*\))?$", told, re.MULTILINE))
    return options, re.findall(r"^  (\.[a-z0-9]+)  ", told, re.MULTILINE)


class Manual(CommandLine):
    def test_the_man_page_tells_each_option_and_each_kind(self):
        options, kinds = told_by_help()
        self.assertGreater(len(options), 15)
        page = (ROOT / "packaging" / "velna.1.in").read_text(encoding="utf-8")
        told = {f"--{name}": argument for name, argument in re.findall(r"^\.It Fl -([a-z]+)(?: Ar (\S+))?$", page, re.MULTILINE)}
        self.assertEqual({name: argument.lower() for name, argument in told.items()},
                         {name: argument.lower() for name, argument in options.items()})
        self.assertEqual(re.findall(r"^\.It (\.[a-z0-9]+)$", page, re.MULTILINE), kinds)

    def test_the_page_of_the_help_tells_each_option_and_each_kind(self):
        options, kinds = told_by_help()
        page = (ROOT / "docs" / "help" / "command-line.html").read_text(encoding="utf-8")
        told = set(re.findall(r"--[a-z]+", page))
        self.assertEqual(told, set(options) - {"--help", "--version"})
        self.assertEqual(re.findall(r"<tr><td>(\.[a-z0-9]+)</td>", page), kinds)


if __name__ == "__main__":
    main()
