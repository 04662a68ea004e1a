"""Moves a copy of an installed tree elsewhere and runs its tool: every library must come from there, and so must those
that the toolkit for hosts loads.

Usage: checkMovedTree.py TREE DOCUMENT
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

OWN = ("libqv", "libWm4")


def run(*command):
    environment = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
    return subprocess.run(command, check=True, capture_output=True, text=True, env=environment).stdout


def main(tree, document):
    with tempfile.TemporaryDirectory() as folder:
        moved = pathlib.Path(folder).resolve() / "elsewhere"
        shutil.copytree(tree, moved, symlinks=True)
        tool = moved / "bin/qvannot"
        toolkit = next(moved.glob("lib/**/libqvAnnotationToolkit.so.0"))
        loaded = run("ldd", tool).splitlines() + run("ldd", toolkit).splitlines()
        own = [line.strip() for line in loaded if line.strip().startswith(OWN)]
        strangers = [line for line in own if f"=> {moved}/" not in line.replace("bin/../", "")]
        output = run(tool, "inspect", document)
    print("\n".join(strangers) or output)
    return 0 if own and not strangers and "2 views" in output else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
