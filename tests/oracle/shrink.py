"""Makes a document that differs smaller, as long as it differs in the same way."""

import json

from damage import containers, parse_tree, slots
from jsonWriter import write_json
from trial import trial

MOST_ROUNDS = 60
MOST_CANDIDATES = 8


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
    """The smallest candidate that differs in the same way, None where there is none."""
    kind = outcome.difference.kind()
    cuts = list(all_cuts(parse_tree(outcome.data)))
    for at in range(0, len(cuts), MOST_CANDIDATES):
        documents = [(outcome.name, without(outcome.data, cut)) for cut in cuts[at : at + MOST_CANDIDATES]]
        same = [one for one in trial(tool, documents, rules) if one.difference and one.difference.kind() == kind]
        if same:
            return min(same, key=lambda one: len(one.data))
    return None


def all_cuts(root):
    """What may be dropped, the most promising first, as (number of the container, first slot, slot behind the last)."""
    for number, holder in enumerate(containers(root)):
        count = len(slots(holder))
        if count > 3:
            yield number, 0, count // 2
            yield number, count // 2, count
    for number, holder in enumerate(containers(root)):
        yield from ((number, at, at + 1) for at in range(len(slots(holder))))


def without(data, cut):
    number, start, end = cut
    root = parse_tree(data)
    del slots(containers(root)[number])[start:end]
    return write_json(root).encode("utf-8")
