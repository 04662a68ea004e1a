"""Checks that the check of documents notices what is planted: members left out, added, misnamed, moved; lines and styles."""

import json
import sys

from checkDocuments import check_texts
from members import Members

FINDING = {"code": "c", "address": None}
SOUND = {
    "format": "f",
    "views": [{"name": "a", "nameHex": None, "svg": {"kind": "group", "children": [{"kind": "rect", "size": [1, 2]}]}}],
    "findings": [FINDING, FINDING | {"address": "view/0"}],
}
HEAD = '{"format":"f","files":['


def told(*documents):
    """How many problems the members of documents have."""
    members = Members()
    for document in documents:
        members.add(document, "here")
    return members.problems


def altered(change):
    """The sound document, changed."""
    document = json.loads(json.dumps(SOUND))
    change(document)
    return document


CHANGES = {
    "a member left out": lambda document: document["views"][0].pop("nameHex"),
    "a member of one of two": lambda document: document["findings"][1].pop("address"),
    "a member added": lambda document: document["views"][0].update(more=1),
    "a member moved": lambda document: document["views"][0].update(name=document["views"][0].pop("name")),
    "a name of another form": lambda document: document.update(own_properties=1),
    "a member of an item left out": lambda document: document["views"][0]["svg"]["children"][0].pop("size"),
}


def check(plain, pretty):
    """How many problems the texts of a document have."""
    return check_texts("here", plain, pretty, Members())


def main():
    """0 when everything planted is noticed, and nothing else."""
    missed = [what for what, change in CHANGES.items() if not told(SOUND, altered(change))]
    plain, pretty = '{"a":[1,-0.0]}\n', '{\n  "a": [1, -0.0]\n}\n'
    plain_list, pretty_list = HEAD + '\n{"a":1},\n{"a":2}\n]}\n', '{\n  "format": "f",\n  "files": [{"a": 1}, {"a": 2}]\n}\n'
    texts = {
        "two lines": (plain.replace("[", "[\n"), pretty),
        "a sign of zero lost": (plain, pretty.replace("-0.0", "0.0")),
        "a value changed": (plain, pretty.replace("1", "2")),
        "no indentation": (plain, plain),
        "two entries on a line": (plain_list.replace(",\n", ","), pretty_list),
        "an entry on two lines": (plain_list.replace(":1", ":\n1"), pretty_list),
        "an end of its own": (plain_list.replace("]}", "]\n}"), pretty_list),
    }
    missed += [what for what, (one, other) in texts.items() if not check(one, other)]
    if told(SOUND, SOUND) or check(plain, pretty) or check(plain_list, pretty_list):
        missed.append("a sound document is no problem")
    print("\n".join(missed) or f"{len(CHANGES) + len(texts)} planted faults are noticed")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
