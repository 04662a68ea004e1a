"""Makes a document that differs smaller, as long as it differs in the same way."""

import json

from damage import containers, parse_tree, slots
from jsonWriter import write_json
from random import Random
from trial import trial

MOST_ROUNDS = 60


def shrink(tool, outcome, rules):
    """The smallest outcome that dropping values of a JSON document leads to; others are returned as they are."""
    try:
        parse_tree(outcome.data)
    except (UnicodeDecodeError, json.JSONDecodeError):
        return outcome
    for _ in range(MOST_ROUNDS):
        smaller = next_smaller(tool, outcome, rules)
        if smaller is None:
            break
        outcome = smaller
    return outcome


def next_smaller(tool, outcome, rules):
    """The smallest of the documents with one value less that differ in the same way, None where there is none."""
    documents = [(outcome.name, data) for data in candidates(outcome.data)]
    same = [
        one
        for one in (trial(tool, documents, rules) if documents else [])
        if one.difference and one.difference.kind() == outcome.difference.kind()
    ]
    return min(same, key=lambda one: len(one.data), default=None)


def candidates(data):
    """The document without one value, for each of its values."""
    count = sum(len(slots(holder)) for holder in containers(parse_tree(data)))
    for number in range(count):
        root = parse_tree(data)
        drop(root, number)
        yield write_json(root, Random(0)).encode("utf-8")


def drop(root, number):
    for holder in containers(root):
        if number < len(slots(holder)):
            del slots(holder)[number]
            return
        number -= len(slots(holder))
