"""Checks every JSON document that the tool makes of the examples, and of documents that are broken or odd.

Members are named alike and never left out; without --pretty each document, or each entry of a list, is one line; with it the
content is the same; and the pages that describe the documents name every member.

Usage: checkDocuments.py TOOL EXAMPLES DOCS
"""

import json
import pathlib
import subprocess
import sys
import tempfile

from members import Members

VIEW = {"ver": "6.27", "name": "v", "metadata": {}, "annotations": []}
TEXT = {"type": "text", "name": "t", "lines": [[{"text": "A"}]]}
NAN = {"position": ["NaN", 0, 0]}
# Documents of which each has something that the examples have not.
ODD = {
    "broken.json": b"{",
    "empty.json": b"",
    "noView.json": b"[]",
    "refused.json": json.dumps([VIEW | {"ver": "6.1"}, VIEW]).encode(),
    "bytes.json": json.dumps([VIEW | {"annotations": [TEXT | {"name": "n\udc80", "lines": [[{"text": "\ud800"}]]}]}]).encode(),
    "values.json": json.dumps([VIEW | {
        "metadata": {"null": None, "integer": 1, "real": 0.5, "string": "s", "bool": True, "map": {"k": 1}, "list": [1, "x"]},
        "annotations": [TEXT | NAN | {"color": 1, "metadata": {"k": 1e300}}, TEXT | {"lines": [[{"text": "\U0010fffd"}]]}],
    }]).encode(),
    "lost.json": json.dumps([VIEW | {"annotations": [{"type": "raster", "rastername": "no such image"}]}]).encode(),
}
LISTS = (("inspect", "--json"), ("inspect", "--json", "--full"), ("fonts", "--json"))
DROPS = ("--drop-view-metadata", "--drop-known-metadata", "--drop-unknown-metadata")
# The pages that describe the members of a document, and those that several documents share.
PAGES = {
    "qvannot.inspect": ("inspect-json.md",),
    "qvannot.inspect-full": ("inspect-json.md",),
    "qvannot.fonts": ("inspect-json.md", "fonts-json.md"),
    "qvannot.migrated": ("inspect-json.md", "migrated-json.md"),
    "any": ("inspect-json.md", "fonts-json.md"),
}


def run(*arguments):
    """What the tool printed."""
    return subprocess.run(arguments, capture_output=True, check=False).stdout.decode("utf-8")


def parse_lines(lines):
    """The entries of a list, one a line between the lines of the list itself; None where they are not."""
    try:
        head = json.loads(lines[0] + lines[-1])
        return [json.loads(line.removesuffix(",")) for line in lines[1:-1]] if head["files"] == [] else None
    except ValueError:
        return None


def check_lines(text):
    """Why the lines of a document are not as they should be; None when they are."""
    lines = text.splitlines()
    if '"files":[' not in text:
        return None if len(lines) == 1 else f"{len(lines)} lines instead of one"
    return None if parse_lines(lines) == json.loads(text)["files"] else "an entry is not one line"


def signed(text):
    """A document's content in which -0.0 and 0 differ, as they do not for Python."""
    return json.loads(text, parse_float=lambda digits: ("real", digits))


def check_texts(what, plain, pretty, members):
    """The problems of one document in both styles."""
    problems = []
    fault = check_lines(plain)
    if fault:
        problems.append(f"{what}: {fault}")
    if "\n  " not in pretty or signed(plain) != signed(pretty):
        problems.append(f"{what}: it is not the same with --pretty, indented")
    members.add(json.loads(plain), what)
    return problems


def migrate(tool, files, rasters, folder, *options):
    """The migrated models by their names."""
    run(tool, "migrate", *files, "-o", folder, "--rasters", rasters, "--font-map", "Old=DejaVu Sans", *options)
    return {path.name: path.read_text("utf-8") for path in sorted(pathlib.Path(folder).glob("*.json"))}


def check_pages(docs, members):
    """Members that no page of their document names."""
    for document, pages in PAGES.items():
        text = "".join((docs / page).read_text("utf-8") for page in pages)
        names = members.names(document)
        yield from (f"{document}: no page describes `{name}`" for name in sorted(names) if f"`{name}`" not in text)
        if not names:
            yield f"{document}: there is none"


def main(tool, examples, docs):
    """0 when every document is as promised."""
    examples, members, problems = pathlib.Path(examples), Members(), []
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        for name, content in ODD.items():
            (folder / name).write_bytes(content)
        files = sorted(examples.rglob("*.json")) + sorted(examples.rglob("*.qvs")) + sorted(folder.glob("*.json"))
        files.append(folder / "is not there.json")
        for command in LISTS:
            texts = [run(tool, *command, *style, *files) for style in ((), ("--pretty",))]
            problems += check_texts(" ".join(command), *texts, members)
            if len(json.loads(texts[0])["files"]) != len(files):
                problems.append(f"{command}: not all files have an entry")
        for number, options in enumerate(((), DROPS)):
            plain, pretty = (migrate(tool, files, examples / "rasters", folder / f"out{number}{len(style)}", *options, *style)
                             for style in ((), ("--pretty",)))
            for name in plain:
                problems += check_texts(name, plain[name], pretty[name], members)
    problems += [f"{where}: {problem}" for problem, where in members.problems.items()]
    problems += check_pages(pathlib.Path(docs), members)
    print("\n".join(problems) or f"{len(members.known)} kinds of objects have their members everywhere")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
