"""Checks that the manual page names the commands and options that the tool's help lists, no more and no less.

Usage: checkManual.py TOOL PAGE.1.gz
"""

import gzip
import re
import sys

import toolHelp

OPTION = re.compile(r"(?<![\w-])--?[a-zA-Z][\w-]*")
EVERYWHERE = {"-h", "--help"}


def plain(text):
    """The page's words: without macros and font changes, with hyphens as they are typed."""
    return re.sub(r"\\f[A-Z]", "", text.replace("\\-", "-"))


def headed(text, macro):
    """The parts behind each heading of a kind, by the heading."""
    parts = re.split(rf"^\.{macro} (.*)$", text, flags=re.MULTILINE)
    return dict(zip(parts[1::2], parts[2::2]))


def described(part):
    """The options that have an entry of their own: those in the line behind each `.TP`."""
    return {option for line in re.findall(r"^\.TP\n(.*)$", part, re.MULTILINE) for option in OPTION.findall(line)}


def differences(place, page, tool):
    return ([f"{place}: the page lacks {option}" for option in sorted(tool - page)] +
            [f"{place}: the tool has no {option}" for option in sorted(page - tool)])


def main(tool, path):
    with gzip.open(path, "rt", encoding="utf-8") as file:
        sections = headed(plain(file.read()), "SH")
    parts = headed(sections["COMMANDS"], "SS")
    commands = toolHelp.commands(tool)
    problems = differences("qvannot", described(sections["OPTIONS"]), toolHelp.options(tool))
    problems += differences("commands", set(parts), set(commands))
    for command in commands:
        page = described(parts.get(command, ""))
        problems += differences(command, page | EVERYWHERE, toolHelp.options(tool, command))
    print("\n".join(problems) or f"{len(commands)} commands agree")
    return 1 if problems or not commands else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
