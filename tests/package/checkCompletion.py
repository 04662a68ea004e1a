"""Checks what a shell offers: the commands, each command's options, the file, the folder or the words that an option takes.

Usage: checkCompletion.py bash|zsh|fish TOOL COMPLETION
"""

import os
import pathlib
import subprocess
import sys
import tempfile

import completingShells
import toolHelp


def expect(problems, what, got, wanted):
    if got != wanted:
        problems.append(f"{what}: offered {sorted(got)}, expected {sorted(wanted)}")


def check_names(problems, offer, tool):
    commands = toolHelp.commands(tool)
    expect(problems, "commands", offer(""), set(commands))
    expect(problems, "a begun command", offer("mig"), {"migrate"})
    expect(problems, "options", offer("-"), toolHelp.options(tool))
    for command in commands:
        expect(problems, f"{command} -", offer(command, "-"), toolHelp.options(tool, command))
    expect(problems, "commands to tell about", offer("help", ""), set(commands))
    expect(problems, "an option of the command, not of the one it names", offer("help", "migrate", "--fo"), set())


def check_values(problems, offer):
    expect(problems, "a document", offer("inspect", "--json", "br"), {"bracket.json"})
    expect(problems, "a folder", offer("migrate", "bracket.json", "-o", ""), {"images"})
    expect(problems, "a folder", offer("migrate", "--rasters", ""), {"images"})
    expect(problems, "a file for a result", offer("encode", "--output", "bra"), {"bracket.json"})
    expect(problems, "a word", offer("migrate", "--text", ""), {"live", "outline", "both"})
    expect(problems, "a word behind a sign", offer("migrate", "--text=o"), {"outline"})
    expect(problems, "a code", offer("explain", "font.n"), {"font.none"})
    expect(problems, "a number", offer("dump", "--at", ""), set())
    expect(problems, "a shell", offer("completion", ""), set(completingShells.SHELLS))


def main(shell, tool, completion):
    problems = []
    checked = subprocess.run([shell, "-n", completion], capture_output=True, text=True)
    if checked.returncode != 0 or checked.stderr:
        problems.append(f"{shell} cannot read it: {checked.stderr}")
    with tempfile.TemporaryDirectory() as folder:
        os.mkdir(pathlib.Path(folder) / "images")
        (pathlib.Path(folder) / "bracket.json").touch()
        offer = completingShells.SHELLS[shell](completion, folder).offer
        check_names(problems, offer, tool)
        check_values(problems, offer)
    print("\n".join(problems) or f"{shell} completes what the help lists")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
