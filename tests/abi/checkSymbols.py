"""Compares what the built library exports with the committed list, and its name with what hosts link to.

Usage: checkSymbols.py LIBRARY LIST [--update]
"""

import sys

import elf

SONAME = "libqvAnnotationLegacy.so.3"

# Whatever the list says: names of these are the library's own, all others belong to somebody else.
OWN = ("qv::initializeQvAnnotationLegacyLibrary()", "qv::terminateQvAnnotationLegacyLibrary()", "qv::qvLogObject::",
       "qv::qvGenericTransformation<float>::", "qv::qvGenericTransformation<double>::",
       "qvAnnotationLegacy::Version::", "qvLegacy::")
PREFIXES = ("vtable for ", "typeinfo for ", "typeinfo name for ")


def owned(demangled):
    for prefix in PREFIXES:
        demangled = demangled.removeprefix(prefix)
    return demangled.startswith(OWN)


def name_problems(library):
    names = library.dynamic_strings(elf.DT_SONAME)
    return [] if names == [SONAME] else [f"the library's name is {names}, not {SONAME}"]


def foreign_problems(names):
    return [f"exported without being the library's own: {d}" for d in elf.demangle(names) if not owned(d)]


def list_problems(names, listed):
    def report(what, some):
        return [f"{what}: {readable}  ({name})" for name, readable in zip(some, elf.demangle(some))]

    return report("no longer exported", sorted(listed - names)) + report("exported but not listed", sorted(names - listed))


def main():
    library = elf.SharedLibrary(sys.argv[1])
    names = {symbol.name for symbol in library.exported()}
    if sys.argv[3:] == ["--update"]:
        with open(sys.argv[2], "w", encoding="utf-8") as file:
            file.write("\n".join(sorted(names)) + "\n")
    with open(sys.argv[2], encoding="utf-8") as file:
        listed = set(file.read().split())
    problems = name_problems(library) + foreign_problems(sorted(names)) + list_problems(names, listed)
    if not names:
        problems.append("nothing is exported")
    if not foreign_problems(["_ZNSt6vectorIiSaIiEE5clearEv"]) or not list_problems(names, listed | {"_Z4gonev"}):
        problems.append("the check itself does not see a foreign or a missing symbol")
    print("\n".join(problems) or f"{SONAME} exports its {len(names)} symbols and nothing else")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
