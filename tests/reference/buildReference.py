"""Builds the reference pages; any warning is an error.

The one exception: the bundled platform's headers may leave members without a word of their own where the line above or the
name says it all. Usage: buildReference.py DOXYGEN SOURCE_FOLDER VERSION OUTPUT_FOLDER
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys

WARNING = re.compile(r"\b(?:warning|error): ")
UNDESCRIBED_PLATFORM = re.compile(r"/platform/[^:]*:\d+: warning: (?:Member|Compound) .* is not documented\.$")

PAGES = [
    "index.html",
    "classqvLegacy_1_1qvAnnotationMigration.html",
    "classqv_1_1qvGenericTransformation.html",
    "classqvToolkit_1_1OutputSet.html",
]


def build(doxygen, source, version, output):
    """What Doxygen wrote to its standard error."""
    # What was described once and is gone must have no page any more.
    shutil.rmtree(output, ignore_errors=True)
    pathlib.Path(output).mkdir(parents=True)
    environment = os.environ | {"QVA_VERSION": version, "QVA_REFERENCE_DIR": output}
    run = subprocess.run(
        [doxygen, "docs/Doxyfile"], cwd=source, env=environment, capture_output=True, text=True, check=True
    )
    return run.stderr


def problems_in(log):
    return [line for line in log.splitlines() if WARNING.search(line) and not UNDESCRIBED_PLATFORM.search(line)]


def main():
    problems = problems_in(build(*sys.argv[1:]))
    problems += [f"no page {page}" for page in PAGES if not (pathlib.Path(sys.argv[4]) / "html" / page).exists()]
    undescribed = "/include/annotationLegacy/version.h:9: warning: Member IsDev() (function) is not documented."
    if not problems_in(undescribed) or problems_in(undescribed.replace("/include/", "/platform/system/include/")):
        problems.append("the check itself cannot tell whose member is not described")
    print("\n".join(problems) or "every public class and member of library and toolkit is described")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
