"""Installs the Debian packages into a fresh root, runs the tool from there, and removes them again.

The fresh root's package database is a copy of the machine's, so that the dependencies are checked against packages
that really exist. Installing takes root; without it the packages are only unpacked.
Usage: checkFreshRoot.py PACKAGE_FOLDER DOCUMENT
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

NAMES = ["libqvannotationlegacy3", "libqvannotationtoolkit0", "libqvannotationlegacy-dev", "qvannot"]


def run(*command, **options):
    ran = subprocess.run(command, capture_output=True, text=True, **options)
    if ran.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))} ended with {ran.returncode}:\n{ran.stdout}{ran.stderr}")
    return ran.stdout


def make_root(root):
    for folder in ("var/lib/dpkg/info", "var/lib/dpkg/updates", "var/lib/dpkg/triggers", "etc", "bin"):
        (root / folder).mkdir(parents=True)
    shutil.copy("/var/lib/dpkg/status", root / "var/lib/dpkg/status")
    (root / "var/lib/dpkg/triggers/Lock").touch()
    # The packages' scripts run outside the root; the machine's own library cache is none of their business.
    stub = root / "bin/ldconfig"
    stub.write_text("#!/bin/sh\n", encoding="utf-8")
    stub.chmod(0o755)


def dpkg(root, *arguments):
    path = f"{root}/bin:{os.environ['PATH']}:/usr/sbin:/sbin"
    return run("dpkg", f"--root={root}", f"--log={root}/dpkg.log", "--force-not-root", "--force-script-chrootless",
               *arguments, env={**os.environ, "PATH": path})


def install(root, packages):
    make_root(root)
    dpkg(root, "--install", *packages)
    states = [run("dpkg-query", f"--admindir={root}/var/lib/dpkg", "-W", "-f=${db:Status-Status}", name)
              for name in NAMES]
    return [f"{name} is {state}" for name, state in zip(NAMES, states) if state != "installed"]


def unpack(root, packages):
    for package in packages:
        run("dpkg-deb", "--extract", package, root)
    return []


def use(root, document):
    tool = root / "usr/bin/qvannot"
    environment = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
    run(tool, "migrate", document, "-o", root / "out", env=environment)
    pages = len(list((root / "out").glob("*.svg")))
    own = [line for line in run("ldd", tool, env=environment).splitlines() if "libqv" in line]
    problems = [f"not from the root: {line.strip()}" for line in own if str(root) not in line]
    return problems if pages == 2 and own else problems + [f"{pages} pages written"]


def remove(root):
    dpkg(root, "--purge", *reversed(NAMES))
    return [f"left behind: {path}" for path in root.glob("usr/**/*") if not path.is_dir()]


def main(folder, document):
    packages = sorted(map(str, pathlib.Path(folder).glob("*.deb")))
    is_root = os.geteuid() == 0
    with tempfile.TemporaryDirectory() as name:
        root = pathlib.Path(name)
        problems = install(root, packages) if is_root else unpack(root, packages)
        problems += use(root, document)
        problems += remove(root) if is_root else []
    print("\n".join(problems) or ("installed, used and removed" if is_root else "unpacked and used"))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
