"""Checks that an installed tree holds every public header, and what hosts and users look for.

Usage: checkTree.py TREE SOURCE_FOLDER
"""

import pathlib
import re
import sys

WANTED = ["bin/qvannot", "share/man/man1/qvannot.1.gz", "share/bash-completion/completions/qvannot",
          "share/zsh/vendor-completions/_qvannot", "share/fish/vendor_completions.d/qvannot.fish"]
WANTED_IN_LIBRARIES = [
    "libqvAnnotationLegacy.so", "libqvAnnotationLegacy.so.3", "libqvAnnotationToolkit.so", "libqvAnnotationToolkit.so.0",
    "libqvAnnotation.so.3", "libqvSvg.so.3",
    "libqvSceneGraph.so.3", "libqvSystem.so.3", "libWm4Foundation.so.3",
    "cmake/qvAnnotationLegacy/qvAnnotationLegacyConfig.cmake",
    "cmake/qvAnnotationLegacy/qvAnnotationLegacyConfigVersion.cmake", "cmake/qvPlatform/qvPlatformConfig.cmake",
    "cmake/qvAnnotationToolkit/qvAnnotationToolkitConfig.cmake",
    "cmake/qvAnnotationToolkit/qvAnnotationToolkitConfigVersion.cmake",
    "pkgconfig/qvAnnotationLegacy.pc", "pkgconfig/qvAnnotationToolkit.pc", "pkgconfig/qvPlatform.pc"]


def public_headers(source):
    for folder in [source / "include", source / "toolkit/include", *sorted((source / "platform").glob("*/include"))]:
        for header in sorted(folder.rglob("*.h")):
            yield f"include/{header.relative_to(folder).as_posix()}"


def main(tree, source):
    libraries = next(tree.glob("lib/**/libqvAnnotationLegacy.so.3")).parent.relative_to(tree).as_posix()
    headers = set(public_headers(source))
    wanted = headers | set(WANTED) | {f"{libraries}/{name}" for name in WANTED_IN_LIBRARIES}
    problems = [f"missing: {name}" for name in sorted(wanted) if not (tree / name).exists()]
    installed = {path.relative_to(tree).as_posix() for path in (tree / "include").rglob("*") if path.is_file()}
    problems += [f"no public header: {name}" for name in sorted(installed - headers)]
    sources = re.compile(re.escape(str(source)) + r"(?!\w)")
    for path in tree.rglob("*"):
        if path.suffix in (".cmake", ".pc") and sources.search(path.read_text(encoding="utf-8")):
            problems.append(f"names the source folder: {path}")
    print("\n".join(problems) or f"{len(wanted)} files are there")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*(pathlib.Path(argument) for argument in sys.argv[1:])))
