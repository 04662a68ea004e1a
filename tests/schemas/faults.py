"""Faults to be planted into JSON documents."""

import copy


def places(value, path=()):
    """The paths of all values within a value; of lists only the first and the last element count."""
    if isinstance(value, dict):
        for key in value:
            yield (*path, key)
            yield from places(value[key], (*path, key))
    elif isinstance(value, list):
        for index in sorted({0, len(value) - 1} & set(range(len(value)))):
            yield (*path, index)
            yield from places(value[index], (*path, index))


def alter(document, path, change):
    """The document with what `change(holder, key)` does to the value at the path."""
    altered = copy.deepcopy(document)
    holder = altered
    for key in path[:-1]:
        holder = holder[key]
    change(holder, path[-1])
    return altered


def remove(holder, key):
    del holder[key]


def replace(holder, key):
    holder[key] = {"another": "kind"}


def add(holder, key):
    holder[key]["aMemberThatNobodyKnows"] = None


def plant(document):
    """Pairs of what was done and the document that it was done to."""
    for path in places(document):
        value = document
        for key in path:
            value = value[key]
        where = "/".join(map(str, path))
        if isinstance(path[-1], str):
            yield f"that {where} is left out", alter(document, path, remove)
        yield f"that {where} is of another kind", alter(document, path, replace)
        if isinstance(value, dict):
            yield f"a member more at {where}", alter(document, path, add)
