"""Audits what `qvannot migrate` writes: each character, leader, image, colour and place of documents must stand on the
pages, or a finding must say that it does not; and no error may be reported where nothing is lost.

Usage: auditPages.py [--rasters DIR] [--random N] [--corpus] TOOL [FILE_OR_FOLDER...]
"""

import argparse
import os
import pathlib
import subprocess
import sys
import tempfile
from concurrent.futures import ProcessPoolExecutor

import findings
import generateStream
import generateVariant
from legacyModel import OPTIONAL, Loss, walk
from migratedGeometry import EXACT, find_refusal
from modelReader import read_inspection
from pageChecks import ViewCheck
from pageReader import Page
from variantReader import read_document

HEAD_SIZE = 3.0
DROPS = ("--drop-view-metadata", "--drop-known-metadata", "--drop-unknown-metadata")
ENDINGS = ("", ".png", ".jpg", ".jpeg", ".gif", ".webp")
SKIPPED = 77
EXIT_DONE, EXIT_FINDINGS, EXIT_NOTHING = 0, 1, 7


class Audit:
    """Audits documents one by one with one tool."""

    def __init__(self, tool, rasters):
        self.tool, self.rasters = tool, rasters

    def raster_bytes(self, name):
        """The image that a raster names; None where the folder has none."""
        if not name or name.startswith("/") or "\0" in name or ".." in name.split("/"):
            return None
        paths = [self.rasters / (name + ending) for ending in ENDINGS]
        return next((path.read_bytes() for path in paths if path.is_file()), None)

    def run(self, *arguments):
        """The tool's run."""
        return subprocess.run([self.tool, *arguments], capture_output=True, text=True, errors="replace", check=False)

    def read(self, path):
        """What the document holds, and what no reader takes from it."""
        if path.suffix == ".qvs":
            return read_inspection(self.run("inspect", "--json", "--full", path).stdout)
        return read_document(path)

    def audit(self, path, options=DROPS, change=lambda page: page, hear=lambda lines: lines):
        """The problems of one document. `change` alters pages, `hear` what is said, to see that it is noticed."""
        views, losses = self.read(path)
        with tempfile.TemporaryDirectory() as folder:
            result = self.run("migrate", path, "-o", folder, "--force", "--rasters", self.rasters, *options)
            pages = {page.address: page for page in
                     (Page(change(file.read_text("utf-8"))) for file in sorted(pathlib.Path(folder).glob("*.svg")))}
        told, others = findings.parse(hear(result.stderr.splitlines()))
        problems = [f"not a finding: {line}" for line in others]
        problems += [f"a page of no view: {address}" for address in pages.keys() - {view.address for view in views}]
        for view in views:
            lost, wrong = self.audit_view(view, pages.get(view.address), options, told)
            losses, problems = losses + lost, problems + wrong
        problems += findings.check(told, losses) + check_exit(result.returncode, told, views)
        return [f"{path.name}: {problem}" for problem in problems]

    def audit_view(self, view, page, options, told):
        """(losses, problems) of one view."""
        if view.refusal is None:
            refusal = find_refusal(view, options, lambda name: self.raster_bytes(name) is not None)
        else:
            refusal = (view.address, view.refusal)
        if refusal is not None:
            return [Loss(view.address, "the view")] + self.name_rasters(view), check_refusal(view, page, refusal, told)
        if page is None and not is_exact(view) and any("perpendicular" in each.text for each in told):
            return [Loss(view.address, "the view")], []
        if page is None:
            return [], [f"{view.address} has no page"]
        check = ViewCheck(view, page, HEAD_SIZE, self.raster_bytes)
        check.check()
        return check.losses, check.problems

    def name_rasters(self, view):
        """Missing images of a refused view may be named one by one."""
        return [Loss(each.address, "the image", OPTIONAL, ("raster.unavailable",))
                for each in walk(view.annotations)
                if each.lines is None and self.raster_bytes(each.raster) is None]


def is_exact(view):
    """Whether no number of measure leaders is too large to tell whether they have a direction."""
    return all(abs(number) < EXACT for each in walk(view.annotations) for measure in each.measures
               for point in (*measure[:3], each.position) for number in point)


def check_refusal(view, page, refusal, told):
    """A refused view has no page, and a finding with the reason and where it lies."""
    address, words = refusal
    problems = [f"{view.address} has a page, but should be refused: {words}"] if page else []
    reasons = [each.text for each in told if each.code == "migration.view-not-migrated" and each.address == view.address]
    if len(reasons) != 1:
        return problems + [f"{view.address} is refused {len(reasons)} times"]
    for part in words.split(" ", 1) + ([address] if address != view.address else []):
        if part not in reasons[0]:
            problems.append(f"wrong reason: '{part}' is not in: {reasons[0]}")
    return problems


def check_exit(code, told, views):
    """Errors, and nothing else, make the exit code 1."""
    is_error = any(each.severity == "error" for each in told)
    expected = EXIT_FINDINGS if is_error else EXIT_DONE
    expected = expected if views else EXIT_NOTHING
    return [] if code == expected else [f"the exit code is {code}, not {expected}"]


def list_documents(places):
    """The documents that are named, and those of folders."""
    for place in map(pathlib.Path, places):
        if place.is_dir():
            yield from sorted(file for ending in ("*.json", "*.qvs") for file in place.rglob(ending))
        else:
            yield place


def write_random(folder, count):
    """Writes random documents, every fourth as a stream, and gives their paths."""
    for number in range(count):
        generator, ending = (generateStream, "qvs") if number % 4 == 3 else (generateVariant, "json")
        path = folder / f"random{number:03}.{ending}"
        path.write_bytes(generator.Generator(number).document())
        yield path


def main():
    """0 when no document has a problem."""
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--rasters", type=pathlib.Path, required=True)
    parser.add_argument("--random", type=int, default=0, help="number of random documents besides")
    parser.add_argument("--corpus", action="store_true", help="the documents of the folder QVA_CORPUS besides")
    parser.add_argument("tool")
    parser.add_argument("places", nargs="*")
    arguments = parser.parse_args()
    if arguments.corpus:
        arguments.places += filter(None, [os.environ.get("QVA_CORPUS")])
    audit = Audit(arguments.tool, arguments.rasters)
    with tempfile.TemporaryDirectory() as folder:
        documents = list(list_documents(arguments.places))
        documents += write_random(pathlib.Path(folder), arguments.random)
        if not documents:
            print("skipped: there are no documents; QVA_CORPUS is to name their folder")
            return SKIPPED
        with ProcessPoolExecutor() as processes:
            problems = [problem for each in processes.map(audit.audit, documents) for problem in each]
    print("\n".join(problems) or f"{len(documents)} documents are on their pages")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
