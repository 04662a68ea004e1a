"""Holds platform/CONTRACT.md against the library and the contract tests.

Every platform operation that the built library calls is named there, and the tests named there are exactly those
that exist. Usage: checkContract.py LIBRARY CONTRACT_TEST CONTRACT.md
"""

import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "abi"))
import elf  # noqa: E402

TEST_NAME = re.compile(r"`(\w+Contract\.\w+)`")
OPERATION = re.compile(r"^(?:vtable for |typeinfo for |typeinfo name for )?(qv::[\w:~]+)")


def called_operations(library):
    undefined = [symbol.name for symbol in library.dynamic_symbols if symbol.section == elf.SHN_UNDEF]
    matches = (OPERATION.match(name) for name in elf.demangle(undefined))
    # A constructor or destructor is told by its class.
    return sorted({match.group(1).split("::")[-1].lstrip("~") for match in matches if match})


def tests_of(program):
    listing = subprocess.run([program, "--gtest_list_tests"], capture_output=True, text=True, check=True).stdout
    tests, suite = set(), ""
    for line in listing.splitlines():
        if line.startswith("  "):
            tests.add(suite + line.strip())
        elif line.endswith("."):
            suite = line
    return tests


def problems_of(text, operations, tests):
    words, named = set(re.findall(r"\w+", text)), set(TEST_NAME.findall(text))
    return (
        [f"the library calls '{operation}', which is not named" for operation in operations if operation not in words]
        + [f"{name} is named, but there is no such test" for name in sorted(named - tests)]
        + [f"{name} is a test, but is not named" for name in sorted(tests - named)]
    )


def main():
    operations, tests = called_operations(elf.SharedLibrary(sys.argv[1])), tests_of(sys.argv[2])
    problems = problems_of(pathlib.Path(sys.argv[3]).read_text(encoding="utf-8"), operations, tests)
    if len(operations) < 20 or len(tests) < 20:
        problems.append(f"only {len(operations)} operations and {len(tests)} tests found")
    print("\n".join(problems) or f"{len(operations)} operations and {len(tests)} tests are named")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
