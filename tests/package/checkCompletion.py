"""Checks what bash is offered: the commands, each command's options, the folder or the words that an option takes.

Usage: checkCompletion.py TOOL COMPLETION
"""

import os
import pathlib
import subprocess
import sys
import tempfile

import toolHelp

SCRIPT = """
source "$1"; tool=$2; shift 2
COMP_WORDS=(qvannot "$@"); COMP_CWORD=$#
_qvannot "$tool"
printf '%s\\n' "${COMPREPLY[@]}"
"""


def make_complete(tool, completion, folder):
    def complete(*words):
        command = ["bash", "--norc", "-c", SCRIPT, "bash", completion, tool, *words]
        output = subprocess.run(command, check=True, capture_output=True, text=True, cwd=folder).stdout
        return set(output.split())
    return complete


def expect(problems, what, got, wanted):
    if got != wanted:
        problems.append(f"{what}: offered {sorted(got)}, expected {sorted(wanted)}")


def main(tool, completion):
    problems = []
    with tempfile.TemporaryDirectory() as folder:
        os.mkdir(pathlib.Path(folder) / "images")
        (pathlib.Path(folder) / "bracket.json").touch()
        complete = make_complete(tool, completion, folder)
        commands = toolHelp.commands(tool)
        expect(problems, "commands", complete(""), set(commands))
        expect(problems, "a begun command", complete("mig"), {"migrate"})
        expect(problems, "options", complete("-"), toolHelp.options(tool))
        for command in commands:
            expect(problems, f"{command} -", complete(command, "-"), toolHelp.options(tool, command))
        expect(problems, "a document", complete("inspect", "--json", "br"), {"bracket.json"})
        expect(problems, "a folder", complete("migrate", "bracket.json", "-o", ""), {"images"})
        expect(problems, "a folder", complete("migrate", "--rasters", ""), {"images"})
        expect(problems, "a code", complete("explain", "font.n"), {"font.none"})
        expect(problems, "an offset", complete("dump", "--at", ""), {"images", "bracket.json"})
    print("\n".join(problems) or f"{len(commands)} commands are completed")
    return 1 if problems or not commands else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
