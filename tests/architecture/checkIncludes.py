"""Checks that include directives follow the arrows of the house.

Dependencies point one way: apps -> toolkit -> library -> platform, and within the platform
annotation -> svg, sceneGraph -> system -> wm4. Readers and migration use the model, never each other. The library
names platform headers in one public header and in its ports only, and nothing third-party at all. The toolkit is a row
of rooms; a room includes only rooms that stand before it.

Usage: checkIncludes.py SOURCE_FOLDER | --self-test
"""

import pathlib
import re
import sys
import tempfile

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)

PLATFORM = {"wm4": "wm4", "qvSystem": "system", "qvSceneGraph": "sceneGraph", "qvSvg": "svg",
            "qvAnnotation": "annotation"}

# What each room may include, by the first folder of the include path. "std" is every header without a folder.
WM4 = {"std", "wm4"}
SYSTEM = WM4 | {"qvSystem"}
SCENE_GRAPH = SYSTEM | {"qvSceneGraph"}
SVG = SYSTEM | {"qvSvg"}
ANNOTATION = SCENE_GRAPH | SVG | {"qvAnnotation"}
PUBLIC = {"annotationLegacy", "transform"}
PORTS = ANNOTATION | PUBLIC | {"ports"}
# What records and migration are, told once: everybody may read it.
RULES = {"std", "rules"}

ROOMS = [
    ("platform/wm4/", WM4),
    ("platform/system/", SYSTEM | {"private"}),
    ("platform/sceneGraph/", SCENE_GRAPH | {"private"}),
    ("platform/svg/", SVG | {"private"}),
    ("platform/annotation/", ANNOTATION | {"private", "third-party"}),
    ("include/annotationLegacy/platform.h", ANNOTATION),
    ("include/annotationLegacy/", {"std"} | PUBLIC),
    ("include/transform/", {"std"} | PUBLIC),
    ("src/ports/", PORTS),
    ("src/rules/", RULES),
    ("src/library/", RULES | {"ports", "library"} | PUBLIC),
    ("src/model/", RULES | {"ports", "model", "library"} | PUBLIC),
    ("src/transform/", {"std"} | PUBLIC | {"private", "src/transform"}),
    ("src/readers/", RULES | {"ports", "readers"} | PUBLIC),
    ("src/migration/", RULES | {"ports", "migration"} | PUBLIC),
    ("toolkit/include/", PORTS - {"ports"} | {"toolkit"}),
    ("toolkit/src/", RULES | PORTS - {"ports"} | {"toolkit", "third-party"}),
    ("apps/", {"std", "toolkit", "private", "third-party"} | PUBLIC | SYSTEM | SCENE_GRAPH),
]

# The rooms of the toolkit, ground first: as they are built, and as its page lists them.
TOOLKIT = pathlib.Path(__file__).resolve().parents[2] / "toolkit"
TOOLKIT_ROOMS = re.search(r"foreach\(room IN ITEMS ([^)]*)\)", (TOOLKIT / "CMakeLists.txt").read_text())[1].split()
LISTED_ROOMS = re.findall(r"^\| \[`(\w+)`\]\(src/\w+/README.md\)", (TOOLKIT / "README.md").read_text(), re.MULTILINE)
TOOLKIT_FILE = re.compile(r"toolkit/(?:src|include/qvToolkit)/(\w+)/\w+\.(?:h|cpp)$")
TOOLKIT_INCLUDE = re.compile(r"(?:qvToolkit/)?(\w+)/\w+\.h$")
# Below all rooms: what marks a declaration as public.
EXPORT = "qvToolkit/export.h"
# What the tool takes of the toolkit beside its public headers.
TOOL_INTERNALS = {"files/standardStreams.h", "files/wholeIo.h"}

THIRD_PARTY = {"hb.h", "hb-ot.h", "fontconfig", "simdjson.h", "nettle", "CLI", "fmt", "fribidi"}
# It takes as long to compile as ten files of ours.
PARSER, PARSERS_FILE = "CLI/CLI.hpp", "apps/qvannot/cli/parser.cpp"


def room_of(path):
    for prefix, allowed in ROOMS:
        if path.startswith(prefix):
            return prefix, allowed
    return None, None


def kind_of(include, path, root):
    """The kind of an include, as the rooms list them."""
    first = include.split("/")[0]
    if first == "qvToolkit" or path.startswith("toolkit/src/") and first in TOOLKIT_ROOMS:
        return "toolkit"
    if path.startswith("apps/") and first in TOOLKIT_ROOMS:
        return "toolkit" if include in TOOL_INTERNALS else "internals of the toolkit"
    if first in THIRD_PARTY:
        return "third-party"
    if "/" in include:
        if first in PLATFORM or first in PUBLIC or first in {"ports", "rules", "readers", "migration", "model",
                                                             "library"}:
            return first
        if first in {"sys", "linux", "bits"}:
            return "std"
        return "private"
    sibling = root / pathlib.Path(path).parent / include if root else None
    return "private" if sibling is not None and sibling.exists() else "std"


def check_toolkit_room(path, include):
    """Why a file of the toolkit may not include what lies in one of its rooms; empty when it may."""
    if include == EXPORT:
        return ""
    room, other = TOOLKIT_FILE.match(path), TOOLKIT_INCLUDE.match(include)
    if room is None or room.group(1) not in TOOLKIT_ROOMS:
        return "the file stands in no room"
    if other is None or other.group(1) not in TOOLKIT_ROOMS:
        return f"'{include}' is in no room"
    if TOOLKIT_ROOMS.index(other.group(1)) > TOOLKIT_ROOMS.index(room.group(1)):
        return f"'{include}' lies above '{room.group(1)}'"
    return ""


def check_file(path, text, root=None):
    prefix, allowed = room_of(path)
    if prefix is None:
        return [f"{path} stands in no room: give it one, with what it may include"]
    problems = []
    for match in INCLUDE.finditer(text):
        include = match.group(2)
        if path.startswith("toolkit/") and kind_of(include, path, root) == "toolkit":
            problem = check_toolkit_room(path, include)
            if problem:
                problems.append(f"{path}:{text.count(chr(10), 0, match.start()) + 1}: {problem}")
                continue
        if include == PARSER and path != PARSERS_FILE:
            line = text.count("\n", 0, match.start()) + 1
            problems.append(f"{path}:{line}: '{include}' may be included from {PARSERS_FILE} only")
            continue
        kind = kind_of(include, path, root)
        if kind == "private" and prefix.startswith("src/"):
            kind = prefix.split("/")[1] if prefix.split("/")[1] in include or "/" not in include else "private"
            allowed = allowed | {prefix.split("/")[1]}
        if kind not in allowed:
            line = text.count("\n", 0, match.start()) + 1
            problems.append(f"{path}:{line}: '{include}' ({kind}) may not be included from {prefix}")
    return problems


def check_tree(root):
    problems = []
    for folder in ("platform", "include", "src", "toolkit", "apps"):
        paths = [path for path in sorted((root / folder).rglob("*"))
                 if path.suffix in (".h", ".cpp") and path.relative_to(root).as_posix() != f"toolkit/include/{EXPORT}"]
        if not paths:
            problems.append(f"no sources below {root / folder}")
        for path in paths:
            problems += check_file(path.relative_to(root).as_posix(), path.read_text(encoding="utf-8"), root)
    if TOOLKIT_ROOMS != LISTED_ROOMS:
        problems.append(f"the rooms that are built, {TOOLKIT_ROOMS}, are not those of toolkit/README.md, {LISTED_ROOMS}")
    return problems


def self_test():
    forbidden = [
        ("src/readers/variant/view.cpp", '#include "migration/frame.h"\n'),
        ("src/migration/text.cpp", '#include "readers/binary/gates.h"\n'),
        ("src/model/text.cpp", "#include <qvSvg/node.h>\n"),
        ("include/annotationLegacy/qvAnnotationView.h", "#include <qvSceneGraph/qvObject.h>\n"),
        ("src/migration/text.cpp", "#include <hb.h>\n"),
        ("platform/svg/src/node.cpp", '#include "qvAnnotation/textArea.h"\n'),
        ("platform/system/src/log.cpp", '#include "annotationLegacy/version.h"\n'),
        ("src/library/library.cpp", '#include "qvToolkit/findings/finding.h"\n'),
        ("toolkit/src/files/inputFile.cpp", '#include "json/jsonReader.h"\n'),
        ("toolkit/src/text/utf8.cpp", '#include "qvToolkit/findings/finding.h"\n'),
        ("toolkit/include/qvToolkit/model/document.h", '#include "qvToolkit/reading/openDocument.h"\n'),
        ("toolkit/include/qvToolkit/model/document.h", '#include "model/annotationWalk.h"\n'),
        ("toolkit/include/qvToolkit/model/document.h", '#include "rules/gates.h"\n'),
        ("toolkit/src/stray.cpp", '#include "text/utf8.h"\n'),
        ("toolkit/src/model/document.cpp", '#include "readers/binary/recordReader.h"\n'),
        ("src/rules/gates.h", '#include "annotationLegacy/platform.h"\n'),
        ("src/rules/gates.h", "#include <wm4/vector2.h>\n"),
        ("include/annotationLegacy/version.h", '#include "rules/gates.h"\n'),
        ("apps/qvannot/cli/option.cpp", "#include <CLI/CLI.hpp>\n"),
        ("apps/qvannot/cli/option.cpp", '#include "text/utf8.h"\n'),
        ("src/newRoom/any.cpp", ""),
    ]
    missed = [entry for entry in forbidden if not check_file(*entry)]
    with tempfile.TemporaryDirectory() as empty:
        if len(check_tree(pathlib.Path(empty))) != 5:
            missed.append("folders without sources")
    allowed = [
        ("src/readers/variant/view.cpp", '#include "ports/variant.h"\n#include <string>\n'),
        ("src/ports/svg.h", "#include <qvSvg/node.h>\n"),
        ("toolkit/src/reading/readAudit.cpp", '#include "rules/fields.h"\n#include "text/countText.h"\n'),
        ("apps/qvannot/cli/parser.cpp", "#include <CLI/CLI.hpp>\n"),
        ("apps/qvannot/worker.cpp", '#include "files/wholeIo.h"\n'),
        ("toolkit/include/qvToolkit/text/textEscape.h", '#include "qvToolkit/export.h"\n'),
        ("toolkit/src/pages/svgPage.cpp", '#include "qvToolkit/migration/migrationSession.h"\n'),
    ]
    wrong = [entry for entry in allowed if check_file(*entry)]
    return [f"not found: {entry}" for entry in missed] + [f"wrongly found: {entry}" for entry in wrong]


def main():
    problems = self_test() if sys.argv[1:] == ["--self-test"] else check_tree(pathlib.Path(sys.argv[1]))
    print("\n".join(problems) or "all includes follow the arrows")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
