"""Compares classes, enumerations and signatures of the built library with the committed description.

The comparison must see a field that has moved: it sees nothing in a library without debug information.
Usage: checkTypes.py ABIDIFF SUPPRESSIONS DESCRIPTION LIBRARY
"""

import pathlib
import re
import subprocess
import sys
import tempfile

FIELD = re.compile(r"(layout-offset-in-bits=')(\d+)('>\s*<var-decl name='m_position')")


def compare(abidiff, suppressions, description, library):
    """What differs; empty when nothing does."""
    command = [abidiff, "--suppressions", suppressions, "--no-unreferenced-symbols", description, library]
    run = subprocess.run(command, capture_output=True, text=True, check=False)
    return run.stdout + run.stderr if run.returncode != 0 else ""


def with_field_moved(description):
    return FIELD.sub(lambda match: f"{match[1]}{int(match[2]) + 64}{match[3]}", description)


def main(abidiff, suppressions, description, library):
    problems = compare(abidiff, suppressions, description, library)
    with tempfile.NamedTemporaryFile("w", suffix=".abi") as altered:
        altered.write(with_field_moved(pathlib.Path(description).read_text(encoding="utf-8")))
        altered.flush()
        if "m_position" not in compare(abidiff, suppressions, altered.name, library):
            problems += "the comparison itself overlooks a field that has moved\n"
    print(problems or "types and signatures are as described")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
