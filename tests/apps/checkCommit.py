"""Checks which commit a build names, by building nothing but the header in folders with and without a checkout.

Usage: checkCommit.py CMAKE WRITE_COMMIT_SCRIPT
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

NOBODY = {"GIT_CONFIG_GLOBAL": "/dev/null", "GIT_CONFIG_SYSTEM": "/dev/null", "GIT_AUTHOR_NAME": "a",
          "GIT_AUTHOR_EMAIL": "a@b.invalid", "GIT_COMMITTER_NAME": "a", "GIT_COMMITTER_EMAIL": "a@b.invalid"}


def git(folder, *arguments):
    return subprocess.run(["git", "-C", folder, *arguments], check=True, capture_output=True, text=True,
                          env=os.environ | NOBODY).stdout.strip()


def named(cmake, script, source, header):
    subprocess.run([cmake, f"-DSOURCE={source}", f"-DOUTPUT={header}", "-P", script], check=True)
    return re.search(r'Commit = "(.*)";', header.read_text())[1]


def main(cmake, script):
    with tempfile.TemporaryDirectory() as name:
        root, header = pathlib.Path(name), pathlib.Path(name) / "commit.h"
        checkout, tarball = root / "checkout", root / "checkout/below"
        found = {}

        def look(case, source, expected):
            found[case] = (named(cmake, script, source, header), expected)

        look("without git", root, "unknown")
        tarball.mkdir(parents=True)
        git(checkout, "init", "--quiet")
        look("without a commit", checkout, "unknown")
        (checkout / "file").write_text("one")
        git(checkout, "add", "file")
        git(checkout, "commit", "--quiet", "-m", "one")
        git(checkout, "tag", "-a", "v1", "-m", "one")
        commit = git(checkout, "rev-parse", "HEAD")[:12]
        look("a commit, with a tag", checkout, commit)
        time = header.stat().st_mtime_ns
        look("the same commit again", checkout, commit)
        is_written_anew = header.stat().st_mtime_ns != time
        look("sources in somebody else's checkout", tarball, "unknown")
        (checkout / "file").write_text("two")
        look("altered sources", checkout, f"{commit}-dirty")
        problems = [f"{case}: {text} instead of {expected}" for case, (text, expected) in found.items() if text != expected]
    if is_written_anew:
        problems.append("a header that stays the same is written anew")
    print("\n".join(problems) or f"{len(found)} cases")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
