"""The members of JSON documents: what kinds of objects there are, and whether all of a kind have the same members."""

import re

CAMEL_CASE = re.compile(r"[a-z][a-zA-Z0-9]*")
# Members whose objects are alike in whichever document they stand.
SHARED = ("source", "plane", "findings", "fonts", "missingCharacters")
# Members whose objects are of several kinds, which a member `kind` tells apart.
BY_KIND = {"svg", "children", "segments", "metadata", "value"}
ENDINGS = ("Hex", "Bits", "Number")


def objects(value, kind):
    """All objects within a value, as (kind, object); a kind is what all objects with the same members share."""
    if isinstance(value, list):
        for each in value:
            yield from objects(each, kind)
    elif isinstance(value, dict):
        yield kind + (value.get("kind"),) if kind[1] in BY_KIND else kind, value
        for key, content in value.items():
            yield from objects(content, kind_of(kind, key, value))


def kind_of(around, key, holder):
    """The kind of the objects under a key: by document and key, for counts by what is counted, in metadata by the value."""
    document = "any" if key in SHARED else around[0]
    if key == "value":
        return (document, key, holder["kind"])
    if key == "counts":
        return (document, key, around[1])
    return (document, "svg" if key == "children" else key)


class Members:
    """Learns the members of each kind of object, in their order, and tells of objects that have others."""

    def __init__(self):
        self.known = {}
        self.problems = {}

    def add(self, document, where):
        """All objects of a document, as it was parsed."""
        for kind, value in objects(document, (document.get("format"), "document")):
            members = tuple(value)
            for key in members:
                if not CAMEL_CASE.fullmatch(key):
                    self.report(f"{kind}: {key!r} is not in lowerCamelCase", where)
            if members != self.known.setdefault(kind, members):
                self.report(f"{kind} has {members}, elsewhere {self.known[kind]}", where)

    def report(self, problem, where):
        """Each problem once, where it was met first."""
        self.problems.setdefault(problem, where)

    def names(self, document):
        """The members of the objects of one document, or of "any", without those that only go with another one."""
        keys = {key for kind, members in self.known.items() if kind[0] == document for key in members}
        return {key for key in keys if not any(key.endswith(end) and key[: -len(end)] in keys for end in ENDINGS)}
