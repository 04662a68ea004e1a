"""The published schemas, and the strict form in which the tests use them."""

import copy
import json

import jsonschema


def load(folder):
    """All schemas of a folder by their names, such as "outcome"."""
    paths = sorted(folder.glob("*.schema.json"))
    return {path.name.removesuffix(".schema.json"): json.loads(path.read_text(encoding="utf-8")) for path in paths}


def visit(schema):
    """A schema and all schemas within it."""
    if isinstance(schema, dict):
        yield schema
        for inner in schema.values():
            yield from visit(inner)
    elif isinstance(schema, list):
        for inner in schema:
            yield from visit(inner)


def is_object(schema):
    """True for what describes an object, and not for a member that is called "properties"."""
    return isinstance(schema.get("properties"), dict) and schema.get("type") == "object"


def make_strict(schema):
    """The schema without room for members that it does not name: what a tool writes, it must describe."""
    strict = copy.deepcopy(schema)
    for inner in visit(strict):
        if is_object(inner):
            inner["additionalProperties"] = False
    return strict


def make_validator(schema):
    return jsonschema.Draft202012Validator(schema)


def find_problem(validator, document):
    """The first thing that is wrong with a document; empty when nothing is."""
    for error in validator.iter_errors(document):
        return f"{'/'.join(map(str, error.absolute_path))}: {error.message[:300]}"
    return ""
