"""The examples of use in the comments of the toolkit's public headers, from @code to @endcode.

Usage: usageExamples.py --write OUTPUT.cpp FOLDER   writes a test program of all of them
       usageExamples.py --check FOLDER              tells what has none: each class, and each header that is not one enumeration
       usageExamples.py --self-test
"""

import pathlib
import re
import sys
import tempfile

COMMENT = re.compile(r"(?:^[ ]*///.*\n)+", re.MULTILINE)
CODE = re.compile(r"^[ ]*/// @code\n((?:[ ]*///.*\n)*?)[ ]*/// @endcode\n", re.MULTILINE)
SLASHES = re.compile(r"^[ ]*/// ?", re.MULTILINE)
CLASS = re.compile(r"(?:template <[^>]*>\s*)?class (?:QVT_EXPORT )?(\w+)[^;{]*\{")
DECLARATION = re.compile(r"^(?:inline |constexpr |using |struct \w+[^;{]*\{|\w[\w:<>, ]*[ &*]\w+\()", re.MULTILINE)


def headers_in(folder):
    return sorted(pathlib.Path(folder).rglob("*.h"))


def examples_in(text):
    """The code of each example, and the line that it begins in."""
    return [(SLASHES.sub("", found[1]), text.count("\n", 0, found.start(1)) + 1) for found in CODE.finditer(text)]


def without_example(text):
    """The names of the header's classes without an example; "the header" when it has none at all."""
    commented = {found.end(): CODE.search(found[0]) for found in COMMENT.finditer(text)}
    classes = [found[1] for found in CLASS.finditer(text) if found.start() == text.rfind("\n", 0, found.start()) + 1
               and not commented.get(found.start())]
    body = COMMENT.sub("", text)
    return classes or (["the header"] if DECLARATION.search(body) and not examples_in(text) else [])


def format_test(folder, header, number, code, line):
    name = header.stem[0].upper() + header.stem[1:] + (str(number) if number > 1 else "")
    return f'TEST_F(UsageExample, {name}) {{\n#line {line} "{header.relative_to(folder)}"\n{code}}}\n'


def write(output, folder):
    headers = headers_in(folder)
    lines = ['#include "usageExample.h"\n'] + [f'#include "{header.relative_to(folder)}"' for header in headers]
    lines += ["\nusing namespace qvToolkit;\n"]
    for header in headers:
        examples = examples_in(header.read_text(encoding="utf-8"))
        lines += [format_test(folder, header, i, code, line) for i, (code, line) in enumerate(examples, 1)]
    pathlib.Path(output).write_text("\n".join(lines), encoding="utf-8")


def check(folder):
    """The number of examples, and what has none."""
    count, problems = 0, []
    for header in headers_in(folder):
        text = header.read_text(encoding="utf-8")
        count += len(examples_in(text))
        problems += [f"{header.relative_to(folder)}: {name} has no example of use" for name in without_example(text)]
    return count, problems


SHOWN = "/// Counts.\n/// @code\n/// Tally tally;\n/// tally.add(1);\n/// @endcode\n"
SAMPLES = {
    "shown.h": f"{SHOWN}class Tally {{\n  class Inner {{}};\n}};\n",
    "bare.h": f"{SHOWN}int count();\n\n/// Counts.\nclass QVT_EXPORT Tally : public Sink {{\n}};\n",
    "group.h": "class Tally;\n/// Counts.\nstd::vector<int> count(int a,\n                       int b);\n",
    "numbers.h": "class Tally;\n/// Numbers.\nenum class Number : int { One };\n",
}


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        for name, text in SAMPLES.items():
            (pathlib.Path(folder) / name).write_text(text)
        found = check(folder)
        write(pathlib.Path(folder) / "out.cpp", folder)
        written = (pathlib.Path(folder) / "out.cpp").read_text()
    expected = (2, ["bare.h: Tally has no example of use", "group.h: the header has no example of use"])
    problems = [] if found == expected else [f"found {found}"]
    if 'TEST_F(UsageExample, Shown) {\n#line 3 "shown.h"\nTally tally;\ntally.add(1);\n}' not in written:
        problems.append(f"wrote {written}")
    return problems


def main():
    if sys.argv[1] == "--write":
        return write(*sys.argv[2:])
    if sys.argv[1] == "--self-test":
        count, problems = 1, self_test()
    else:
        count, problems = check(sys.argv[2])
    if count == 0:
        problems.append("there is no example at all: is this the folder of the public headers?")
    print("\n".join(problems) or "every public class shows how it is used")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
