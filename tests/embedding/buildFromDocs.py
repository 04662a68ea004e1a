"""Builds a host that docs/embedding.md shows, with the command that it shows for a package, and runs it.

Usage: buildFromDocs.py TREE COMPILER EMBEDDING.md PACKAGE MARKER OUTPUT_FOLDER DOCUMENT EXPECTED
The host is the program that holds MARKER.
"""

import os
import pathlib
import re
import subprocess
import sys

BLOCK = re.compile(r"^```(\w+)\n(.*?)^```", re.MULTILINE | re.DOTALL)


def blocks(text, language):
    return [content for kind, content in BLOCK.findall(text) if kind == language]


def only(candidates, *markers):
    """The one block that holds the markers."""
    found = [block for block in candidates if all(marker in block for marker in markers)]
    if len(found) != 1:
        sys.exit(f"{len(found)} blocks hold {markers}")
    return found[0]


def main():
    tree, compiler, page, package, marker, output, document, expected = sys.argv[1:]
    text = pathlib.Path(page).read_text(encoding="utf-8")
    folder = pathlib.Path(output)
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "host.cpp").write_text(only(blocks(text, "cpp"), "int main", marker), encoding="utf-8")
    command = only(blocks(text, "sh"), "g++ ", f"{package})").replace("g++ ", f"{compiler} -Wall -Wextra -Werror ", 1)

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
