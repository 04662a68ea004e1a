"""Compiles each public header alone, and checks that it names nothing but the project's and standard headers.

Usage: checkHeaders.py COMPILER CHECKED_FOLDER... [-- INCLUDE_FOLDER...]
"""

import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

FLAGS = "-std=c++20 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -fsyntax-only -x c++".split()

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)
STANDARD = set(
    """algorithm any array atomic barrier bit bitset charconv chrono compare complex concepts condition_variable
    coroutine deque exception filesystem format forward_list fstream functional future initializer_list iomanip ios
    iosfwd iostream istream iterator latch limits list locale map memory memory_resource mutex new numbers numeric
    optional ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span
    sstream stack stdexcept stop_token streambuf string string_view syncstream system_error thread tuple type_traits
    typeindex typeinfo unordered_map unordered_set utility valarray variant vector version cassert cctype cerrno cfenv
    cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar
    cwchar cwctype""".split()
)


def headers_in(folders):
    return [
        path.relative_to(folder).as_posix()
        for folder in folders
        for path in sorted(pathlib.Path(folder).rglob("*.h"))
    ]


def folder_problems(folders):
    """A folder that is not there would be checked without a complaint."""
    return [f"'{folder}' is no folder with headers in it" for folder in folders if not headers_in([folder])]


def foreign_includes(text, public):
    return [include for include in INCLUDE.findall(text) if include not in STANDARD and include not in public]


def compile_alone(compiler, source, folders):
    """The compiler's complaints about a source text; empty when there are none."""
    command = [compiler, *FLAGS, *(f"-I{folder}" for folder in folders), "-"]
    run = subprocess.run(command, input=source, capture_output=True, text=True, check=False)
    return run.stderr + run.stdout if run.returncode != 0 or run.stderr else ""


def check_header(compiler, header, folders, public):
    text = next(path for folder in folders if (path := pathlib.Path(folder) / header).exists()).read_text("utf-8")
    problems = [f"{header} includes '{include}', no public header" for include in foreign_includes(text, public)]
    if "#pragma once" not in text:
        problems.append(f"{header} has no '#pragma once'")
    complaints = compile_alone(compiler, f'#include "{header}"\n', folders)
    return problems + ([f"{header} does not compile alone:\n{complaints}"] if complaints else [])


def self_check(compiler):
    problems = []
    if not foreign_includes("#include <hb.h>\n", set()):
        problems.append("the check itself overlooks a third-party header")
    if not compile_alone(compiler, "inline int cut(long value) { return value; }\n", []):
        problems.append("the check itself overlooks a warning")
    with tempfile.TemporaryDirectory() as empty:
        if len(folder_problems([empty, f"{empty}/missing"])) != 2:
            problems.append("the check itself overlooks a folder without headers")
    return problems


def main():
    arguments = sys.argv[2:] + ([] if "--" in sys.argv else ["--"])
    compiler, split = sys.argv[1], arguments.index("--")
    checked, folders = arguments[:split], arguments[:split] + arguments[split + 1 :]
    headers, public = headers_in(checked), set(headers_in(folders))
    problems = self_check(compiler) + folder_problems(folders)
    if not checked:
        problems.append("no folder to check")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for found in pool.map(lambda header: check_header(compiler, header, folders, public), headers):
            problems += found
    print("\n".join(problems) or f"{len(headers)} headers compile alone")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
