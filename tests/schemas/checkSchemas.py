"""Checks the published schemas with a schema library: that they are sound, that they describe every member of what the tool and
the toolkit write, and that they notice what is planted into such documents.

Usage: checkSchemas.py TOOL OUTCOME_SAMPLES SOURCE_FOLDER
"""

import json
import pathlib
import sys
import tempfile

import jsonschema

from checkDocuments import DROPS, LISTS, ODD, migrate, run
from faults import plant
from schemas import find_problem, load, make_strict, make_validator

# Of the documents that hold what others do not, as few as the time of the check allows.
EXAMPLES = "*_6.27.*"
NAMES = {"qvannot.inspect": "inspect", "qvannot.inspect-full": "inspect-full", "qvannot.fonts": "fonts",
         "qvannot.migrated": "migrated"}


def check_soundness(schemas):
    """Problems of the schemas themselves: a definition says the same wherever it stands."""
    known = {}
    for name, schema in schemas.items():
        try:
            jsonschema.Draft202012Validator.check_schema(schema)
        except jsonschema.SchemaError as error:
            yield f"{name}: {error.message}"
        for key, definition in schema.get("$defs", {}).items():
            if known.setdefault(key, definition) != definition:
                yield f"{name}: '{key}' is another one elsewhere"


def check_tool(tool, folder, schemas):
    """Whether the tool lists and prints the schemas as they are published."""
    if sorted(run(tool, "schema").split()) != sorted(schemas):
        yield "'qvannot schema' does not list the schemas that are published"
    for name in schemas:
        if run(tool, "schema", name) != (folder / f"{name}.schema.json").read_text(encoding="utf-8"):
            yield f"'qvannot schema {name}' prints something else"


def write_documents(tool, samples, source):
    """Pairs of a schema's name and a document."""
    examples = source / "examples"
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        for name, content in ODD.items():
            (folder / name).write_bytes(content)
        files = sorted(examples.rglob(EXAMPLES)) + sorted(folder.glob("*.json")) + [folder / "is not there.json"]
        reports = [run(tool, *command, file) for command in LISTS for file in files]
        reports += migrate(tool, files, examples / "rasters", folder / "out", *DROPS).values()
        for line in run(samples, *files).splitlines():
            name, text = line.split(" ", 1)
            yield name, json.loads(text)
    for text in reports:
        document = json.loads(text)
        yield NAMES[document["format"]], document


def main(tool, samples, source):
    """0 when the schemas describe what is written, and nothing else."""
    source = pathlib.Path(source)
    folder = source / "docs" / "schemas"
    schemas = load(folder)
    problems = [*check_soundness(schemas), *check_tool(tool, folder, schemas)]
    validators = {name: make_validator(make_strict(schema)) for name, schema in schemas.items()}
    smallest, count = {}, 0
    for name, document in write_documents(tool, samples, source):
        count += 1
        problem = find_problem(validators[name], document)
        if problem:
            problems.append(f"{name}: {problem}")
        size = len(json.dumps(document))
        # The largest of the small ones has most to plant faults in.
        if size < 12_000 and size > smallest.get(name, (0, None))[0]:
            smallest[name] = size, document
    problems += [f"{name}: no document was written" for name in schemas if name not in smallest]
    planted = 0
    for name, (_, document) in smallest.items():
        for what, faulty in plant(document):
            planted += 1
            if not find_problem(validators[name], faulty):
                problems.append(f"{name}: nobody notices {what}")
    print("\n".join(problems[:50]) or f"{count} documents are as described, {planted} planted faults are noticed")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
