"""Makes the Debian packages twice: there are four, and the second ones, made by somebody who keeps new files to
himself, hold the same bytes. Everybody may enter their folders and read their files.

Usage: makePackages.py CPACK BUILD_FOLDER OUTPUT_FOLDER
"""

import os
import pathlib
import shutil
import subprocess
import sys
import time

WANTED = {"libqvannotationlegacy3", "libqvannotationtoolkit0", "libqvannotationlegacy-dev", "qvannot"}


def make(cpack, build, folder, mask):
    command = [cpack, "--config", f"{build}/CPackConfig.cmake", "-B", folder]
    environment = {**os.environ, "SOURCE_DATE_EPOCH": "1700000000"}
    made = subprocess.run(command, capture_output=True, text=True, env=environment, cwd=build, umask=mask)
    if made.returncode != 0:
        sys.exit(made.stdout + made.stderr)
    shutil.rmtree(folder / "_CPack_Packages")
    return {path.name.split("_")[0]: path for path in folder.glob("*.deb")}


def content(package):
    """All bytes but the modes of the archive's own members, which nobody who installs it gets to see."""
    members = subprocess.run(["ar", "tv", package], check=True, capture_output=True, text=True).stdout.splitlines()
    parts = subprocess.run(["ar", "p", package], check=True, capture_output=True).stdout
    return parts, [member.split(maxsplit=1)[1] for member in members]


def closed_to_others(package):
    listing = subprocess.run(["dpkg-deb", "--contents", package], check=True, capture_output=True, text=True).stdout
    lines = listing.splitlines()
    closed = [line for line in lines if line[0] != "l" and not line[7:10] == ("r-x" if line[0] == "d" else line[4:7])]
    return [f"{package.name}: not for everybody: {line}" for line in closed] if lines else [f"{package.name} is empty"]


def main(cpack, build, output):
    folder = pathlib.Path(output)
    shutil.rmtree(folder, ignore_errors=True)
    first = make(cpack, build, folder / "first", 0o022)
    time.sleep(1.1)  # a time of day would show
    second = make(cpack, build, folder / "second", 0o077)
    problems = [f"{name} is missing or not wanted" for name in sorted(set(first) ^ WANTED)]
    problems += [f"{name} is another one the second time" for name, path in first.items()
                 if name not in second or content(path) != content(second[name])]
    problems += [problem for path in (*first.values(), *second.values()) for problem in closed_to_others(path)]
    print("\n".join(problems) or "\n".join(map(str, first.values())))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
