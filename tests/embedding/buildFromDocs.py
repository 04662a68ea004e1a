"""Builds the host that docs/embedding.md shows, with the command that it shows, and runs it.

Usage: buildFromDocs.py TREE COMPILER EMBEDDING.md OUTPUT_FOLDER DOCUMENT EXPECTED
"""

import os
import pathlib
import re
import subprocess
import sys

BLOCK = re.compile(r"^```(\w+)\n(.*?)^```", re.MULTILINE | re.DOTALL)


def blocks(text, language):
    return [content for kind, content in BLOCK.findall(text) if kind == language]


def only(candidates, marker):
    """The one block that holds the marker."""
    found = [block for block in candidates if marker in block]
    if len(found) != 1:
        sys.exit(f"{len(found)} blocks hold '{marker}'")
    return found[0]


def main():
    tree, compiler, page, output, document, expected = sys.argv[1:]
    text = pathlib.Path(page).read_text(encoding="utf-8")
    folder = pathlib.Path(output)
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "host.cpp").write_text(only(blocks(text, "cpp"), "int main"), encoding="utf-8")
    command = only(blocks(text, "sh"), "g++ ").replace("g++ ", f"{compiler} -Wall -Wextra -Werror ", 1)

    libraries = next(pathlib.Path(tree).rglob("libqvAnnotationLegacy.so")).parent
    environment = os.environ | {"PKG_CONFIG_PATH": str(libraries / "pkgconfig"), "LD_LIBRARY_PATH": str(libraries)}
    subprocess.run(["sh", "-ec", command], cwd=folder, env=environment, check=True)
    run = subprocess.run(
        [folder / "host", pathlib.Path(document).resolve()], cwd=folder, env=environment, check=True, capture_output=True, text=True
    )
    print(run.stdout, end="")
    return 0 if run.stdout == pathlib.Path(expected).read_text(encoding="utf-8") else "another output was expected"


if __name__ == "__main__":
    sys.exit(main())
