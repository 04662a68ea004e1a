"""Compiles what the reference pages show behind #include, as a host writes it. Usage: compileIncludes.py COMPILER
REFERENCE_FOLDER INCLUDE_FOLDER...
"""

import html
import pathlib
import re
import subprocess
import sys

# The name of the header is a link to its source, or plain text.
SHOWN = re.compile(r"#include\s+(&lt;|&quot;)(?:<a [^>]*>)?([^<&]+)(?:</a>)?(?:&gt;|&quot;)")


def shown_includes(folder):
    """The lines of the pages that describe classes, structures, namespaces and files' own headers."""
    lines = set()
    for page in pathlib.Path(folder, "html").glob("*.html"):
        if page.name.endswith("_source.html") or page.name.endswith("_8h.html"):
            continue
        for opening, header in SHOWN.findall(page.read_text()):
            closing = ">" if opening == "&lt;" else '"'
            lines.add(f"#include {html.unescape(opening)}{header.strip()}{closing}")
    return sorted(lines)


def problem_of(compiler, folders, line):
    command = [compiler, "-std=c++20", "-fsyntax-only", "-xc++", "-"] + [f"-I{folder}" for folder in folders]
    run = subprocess.run(command, input=line + "\n", capture_output=True, text=True)
    return "" if run.returncode == 0 else f"{line} does not compile: {run.stderr.splitlines()[0]}"


def main():
    compiler, reference, *folders = sys.argv[1:]
    lines = shown_includes(reference)
    whole = problem_of(compiler, folders, "\n".join(lines))
    problems = [problem for line in lines if (problem := problem_of(compiler, folders, line))] if whole else []
    for expected in ["<annotationLegacy/qvAnnotationMigration.h>", "<transform/qvGenericTransformation.h>", "<qvToolkit/files/outputSet.h>"]:
        if f"#include {expected}" not in lines:
            problems.append(f"no page shows #include {expected}")
    if not problem_of(compiler, folders, "#include <qvAnnotationMigration.h>"):
        problems.append("the check itself compiles an include that no host can write")
    print("\n".join(problems) or f"{len(lines)} includes compile")
    return 1 if problems or whole else 0


if __name__ == "__main__":
    sys.exit(main())
