"""Checks what programs will depend on that were linked with the packed libraries: each library is told to the packages of
its users, the stable ones as any later version, the toolkit as this one.

Usage: checkShlibs.py PACKAGE_FOLDER
"""

import pathlib
import re
import subprocess
import sys

RELATIONS = {"libqvannotationlegacy3": ">=", "libqvannotationtoolkit0": "="}
LIBRARY = re.compile(r"/(lib\w+)\.so\.(\d+)$|/(lib\w+)\.so\.(\d+) ->", re.MULTILINE)


def read(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def problems_of(name, relation, package):
    version = read("dpkg-deb", "--field", package, "Version").strip()
    names = [tuple(filter(None, found)) for found in LIBRARY.findall(read("dpkg-deb", "--contents", package))]
    wanted = sorted(f"{library} {number} {name} ({relation} {version})" for library, number in names)
    told = sorted(read("dpkg-deb", "--info", package, "shlibs").splitlines())
    triggers = read("dpkg-deb", "--info", package, "triggers")
    problems = [] if told == wanted and wanted else [f"{name} tells {told}, not {wanted}"]
    return problems if "ldconfig" in triggers else problems + [f"{name} does not tell the loader"]


def main(folder):
    packages = {path.name.split("_")[0]: path for path in pathlib.Path(folder).glob("*.deb")}
    problems = [problem for name, relation in RELATIONS.items() for problem in problems_of(name, relation, packages[name])]
    print("\n".join(problems) or "what users of the libraries depend on is told")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
