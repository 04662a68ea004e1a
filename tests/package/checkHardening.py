"""Reads from the installed binaries that they are hardened.

Compiler options leave their traces in the debug information, where there is any: every unit must have been compiled
with all of them. Without it the code and the symbols are looked at.

Usage: checkHardening.py TREE
"""

import pathlib
import re
import subprocess
import sys

OPTIONS = ["-fstack-protector-strong", "-fstack-clash-protection", "-fcf-protection"]


def read(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True, env={"LC_ALL": "C"}).stdout


def layout_problems(path, is_tool):
    segments = read("readelf", "-W", "--file-header", "--segments", path)
    dynamic = read("readelf", "-W", "--dynamic", path)
    stack = re.search(r"GNU_STACK(.*)", segments)
    checks = {
        "is no position-independent file": re.search(r"Type:\s+DYN", segments),
        "is no position-independent program": not is_tool or re.search(r"FLAGS_1.*\bPIE\b", dynamic),
        "has no RELRO segment": "GNU_RELRO" in segments,
        "binds symbols late": re.search(r"FLAGS_1.*\bNOW\b", dynamic),
        "has an executable stack": stack and not re.search(r"\bR?W?E\b", stack.group(1)),
    }
    return [text for text, holds in checks.items() if not holds]


def code_problems(path, is_tool):
    symbols = read("readelf", "-W", "--dyn-syms", path)
    units = re.findall(r"DW_AT_producer.*", read("readelf", "-W", "--debug-dump=info", "--dwarf-depth=1", path))
    units = [unit for unit in units if "GNU C++" in unit]
    problems = [f"has units without {option}" for option in OPTIONS if any(option not in unit for unit in units)]
    # The geometry library has no array on the stack; the tool is what prints formatted text.
    if "Wm4Foundation" not in path.name and "__stack_chk_fail" not in symbols:
        problems.append("checks no stack")
    if is_tool and not re.search(r"__\w*printf_chk", symbols):
        problems.append("calls unfortified functions")
    if "endbr64" not in read("objdump", "--disassemble", "--section=.text", "--no-show-raw-insn", path):
        problems.append("marks no targets of indirect branches")
    return problems


def main(tree):
    tool = tree / "bin/qvannot"
    binaries = [tool, *(path for path in sorted(tree.glob("lib/**/*.so.*")) if not path.is_symlink())]
    problems = [f"{path.name} {problem}" for path in binaries
                for problem in layout_problems(path, path == tool) + code_problems(path, path == tool)]
    print("\n".join(problems) or f"{len(binaries)} binaries are hardened")
    return 1 if problems or len(binaries) < 8 else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
