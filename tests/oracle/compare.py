"""Compares what the oracle expects of a document with what the tool told of it."""

from dataclasses import dataclass

from inspection import Real, Single, Teller, Text

# Findings on the document itself; the others are about what a reader lost, which the messages and the model show.
READING = ("json.", "stream.", "document.", "input.", "text.repaired", "limit.")


UNKNOWN = -1


@dataclass
class Difference:
    """One place where both differ, as a path into the tool's answer."""

    path: str
    expected: object
    found: object

    def kind(self):
        """The path without its indices: differences of one kind are likely one fault."""
        return "/".join(part for part in self.path.split("/") if not part.isdigit())

    def __str__(self):
        return f"{self.path}: expected {self.expected!r}, found {self.found!r}"


def differences(document, answer, rules):
    """Every difference between a model.Document and the tool's object of the file."""
    if document.readable:
        yield from compare("source/encoding", document.format, answer["source"]["encoding"])
    yield from compare("readable", document.readable, answer.get("readable"))
    teller = Teller(rules)
    expected = [teller.view(index, view) for index, view in enumerate(document.views)]
    yield from compare("views", expected, answer.get("views"))
    yield from compare_findings(document.findings, answer)


def first_difference(document, answer, rules):
    return next(differences(document, answer, rules), None)


def compare_findings(expected, answer):
    """Findings have an order of their own; a place that the oracle does not know is not compared.

    Of a document that is not readable only the errors are: how far it was looked at for less is not told.
    """
    found = sorted(
        (finding["code"], finding["severity"], UNKNOWN if finding["byteOffset"] is None else finding["byteOffset"])
        for finding in answer["findings"]
        if finding["code"].startswith(READING) and counts(finding["severity"], answer)
    )
    wanted = sorted(
        (one.code, one.severity, UNKNOWN if one.offset is None else one.offset)
        for one in expected
        if counts(one.severity, answer)
    )
    same = len(wanted) == len(found) and all(
        one[:2] == other[:2] and one[2] in (UNKNOWN, other[2]) for one, other in zip(wanted, found)
    )
    if not same:
        yield Difference("findings", wanted, found)


def counts(severity, answer):
    return answer["readable"] or severity == "error"


def compare(path, expected, found):
    if isinstance(expected, (Real, Single, Text)):
        if not expected.equals(found):
            yield Difference(path, expected, found)
    elif isinstance(expected, dict) and isinstance(found, dict):
        yield from compare_members(path, expected, found)
    elif isinstance(expected, list) and isinstance(found, list) and len(expected) == len(found):
        for index, pair in enumerate(zip(expected, found)):
            yield from compare(f"{path}/{index}", *pair)
    elif type(expected) is not type(found) or expected != found:
        yield Difference(path, expected, found)


def compare_members(path, expected, found):
    if list(expected) != list(found):
        yield Difference(path, f"the members {list(expected)}", list(found))
    for key in expected:
        if key in found:
            yield from compare(f"{path}/{key}", expected[key], found[key])
