"""Compares what the shared toolkit exports with what its public headers mark, and what it loads with what a host may be
made to load.

Usage: checkExports.py LIBRARY HEADER_FOLDER VERSION
       checkExports.py --self-test
"""

import collections
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "abi"))
import elf  # noqa: E402

SONAME = "libqvAnnotationToolkit.so.0"
# Each of them is loaded by every host. What needs more stands elsewhere.
MAY_LOAD = re.compile(r"lib(qvAnnotationLegacy|qvAnnotation|qvSvg|qvSceneGraph|qvSystem|simdjson|nettle|stdc\+\+|m|gcc_s|c)"
                      r"\.so\.")

IGNORED = re.compile(r"//.*|^#.*", re.MULTILINE)
MARKED_CLASS = re.compile(r"^class QVT_EXPORT (\w+)", re.MULTILINE)
MARKED_FUNCTION = re.compile(r"\bQVT_EXPORT [^;{}()]*?\b(\w+)\(")
# House style: what begins in the first column is declared at the namespace's scope.
BARE_CLASS = re.compile(r"^class (?!QVT_EXPORT )\w+[^;{]*\{", re.MULTILINE)
BARE_FUNCTION = re.compile(r"^(?!(?:inline|constexpr|template|using|struct|class|enum)\b)(?!.*\bQVT_EXPORT\b)"
                           r"\w[\w:<>, \[\]&*]*[ &*]\w+\(", re.MULTILINE)
TEMPLATE = re.compile(r"^template <[^\n]*>\n.*", re.MULTILINE)

OWN = re.compile(r"^(?:vtable for |typeinfo for |typeinfo name for )?qvToolkit::(\w+)(::)?")


def declarations(text):
    """Classes and functions that are marked, and what is not though hosts would miss it."""
    body = TEMPLATE.sub("", IGNORED.sub("", text))
    bare = [found[0] for pattern in (BARE_CLASS, BARE_FUNCTION) for found in pattern.finditer(body)]
    return set(MARKED_CLASS.findall(body)), collections.Counter(MARKED_FUNCTION.findall(body)), bare


def header_problems(headers):
    classes, functions, problems = set(), collections.Counter(), []
    for header in headers:
        found_classes, found_functions, bare = declarations(header.read_text(encoding="utf-8"))
        classes |= found_classes
        functions += found_functions
        problems += [f"{header.name} declares without QVT_EXPORT: {' '.join(text.split())}" for text in bare]
    return classes, functions, problems


def export_problems(demangled, classes, functions):
    """`demangled` are the names of the exported symbols, one for each that a host can bind to."""
    seen, exported, problems = set(), collections.Counter(), []
    for name in demangled:
        own = OWN.match(name)
        if own and own[1] in classes:
            seen.add(own[1])
        elif own and own[1] in functions and not own[2]:
            exported[own[1]] += 1
        else:
            problems.append(f"exported, but no public header marks it: {name}")
    problems += [f"nothing is exported of the class {name}" for name in sorted(classes - seen)]
    problems += [f"{name} is marked {functions[name]} times and exported {exported[name]} times"
                 for name in sorted(functions) if functions[name] != exported[name]]
    return problems


def library_problems(library, version):
    names, loaded = library.dynamic_strings(elf.DT_SONAME), library.dynamic_strings(elf.DT_NEEDED)
    problems = [] if names == [SONAME] else [f"the library's name is {names}, not {SONAME}"]
    problems += [f"every host would load {name}" for name in loaded if not MAY_LOAD.match(name)]
    node = f"QVT_{version}"
    if node not in {symbol.name for symbol in library.exported()}:
        problems.append(f"the symbols do not carry the version {node}")
    return problems


SAMPLE = """
#define QVT_EXPORT __attribute__((none))
class QVT_EXPORT Sink {
  void write();
};
class Sink;
struct Row {
  int getSize() const { return 1; }
};
template <class Visit>
void walk(Visit visit) {
}
QVT_EXPORT std::string const& name(int number);
[[nodiscard]] QVT_EXPORT bool name(std::vector<int> const& numbers,
                                   int number = f(1));
inline int getTwo() { return getOne() + 1; }
/// class Told {
"""
BARE = "class Bare {\n};\nstd::string_view const& bare(int number);\n"


def self_test():
    classes, functions, bare = declarations(SAMPLE)
    problems = []
    if (classes, functions, bare) != ({"Sink"}, {"name": 2}, []):
        problems.append(f"read {classes}, {functions}, {bare}")
    if len(declarations(SAMPLE + BARE)[2]) != 2:
        problems.append("a class or a function that is not marked is not seen")
    good = ["qvToolkit::Sink::write()", "vtable for qvToolkit::Sink", "qvToolkit::name[abi:cxx11](int)",
            "qvToolkit::name(bool)"]
    if export_problems(good, classes, functions):
        problems.append("what is right is a problem")
    for bad in (good[2:], good[:3], good + ["qvToolkit::hidden(int)"], good + ["std::vector<int>::clear()"],
                good + ["qvToolkit::name(int)::helper"]):
        if not export_problems(bad, classes, functions):
            problems.append(f"no problem is seen in {bad}")
    return problems


def main():
    if sys.argv[1] == "--self-test":
        problems, told = self_test(), "the check sees what it is for"
    else:
        library, headers = elf.SharedLibrary(sys.argv[1]), sorted(pathlib.Path(sys.argv[2]).rglob("*.h"))
        classes, functions, problems = header_problems(headers)
        names = {symbol.name for symbol in library.exported() if not symbol.name.startswith("QVT_")}
        complete = sorted(name for name in names if not re.search(r"[CD]2E", name))
        problems += library_problems(library, sys.argv[3]) + export_problems(elf.demangle(complete), classes, functions)
        if not classes or not functions:
            problems.append("the headers mark nothing: is this the folder of the public headers?")
        told = f"{SONAME} exports the {len(classes)} classes and {functions.total()} functions of {len(headers)} headers"
    print("\n".join(problems) or told)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
