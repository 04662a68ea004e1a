"""Makes the Debian packages twice: there are three, and the second ones are the same bytes.

Usage: makePackages.py CPACK BUILD_FOLDER OUTPUT_FOLDER
"""

import filecmp
import os
import pathlib
import shutil
import subprocess
import sys
import time

WANTED = {"libqvannotationlegacy3", "libqvannotationlegacy-dev", "qvannot"}


def make(cpack, build, folder):
    command = [cpack, "--config", f"{build}/CPackConfig.cmake", "-B", folder]
    environment = {**os.environ, "SOURCE_DATE_EPOCH": "1700000000"}
    made = subprocess.run(command, capture_output=True, text=True, env=environment, cwd=build)
    if made.returncode != 0:
        sys.exit(made.stdout + made.stderr)
    shutil.rmtree(folder / "_CPack_Packages")
    return {path.name.split("_")[0]: path for path in folder.glob("*.deb")}


def main(cpack, build, output):
    folder = pathlib.Path(output)
    shutil.rmtree(folder, ignore_errors=True)
    first = make(cpack, build, folder / "first")
    time.sleep(1.1)  # a time of day would show
    second = make(cpack, build, folder / "second")
    problems = [f"{name} is missing or not wanted" for name in sorted(set(first) ^ WANTED)]
    problems += [f"{name} is another one the second time" for name, path in first.items()
                 if name not in second or not filecmp.cmp(path, second[name], shallow=False)]
    print("\n".join(problems) or "\n".join(map(str, first.values())))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
