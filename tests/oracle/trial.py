"""Puts documents to both readers and says where they differ."""

from dataclasses import dataclass

from compare import Difference, first_difference
from payload import TooLong, TooManyShortReads
from reader import read
from tool import MOST_MEMORY, ask

@dataclass
class Outcome:
    """What became of one document: `difference` is None where both readers agree."""

    name: str
    data: bytes
    difference: Difference | None


class Unread:
    """A document that the oracle does not read to its end, since it announces too much: the tool has to refuse it."""


def expected(data, rules):
    """The model of a document, Unread, or None where nothing is to be compared.

    A text longer than the tool's memory makes it give up; with a shorter one there is too much to compare.
    """
    try:
        return read(data, rules)
    except TooManyShortReads:
        return Unread()
    except TooLong as error:
        return Unread() if error.announced > MOST_MEMORY else None


def difference(expectation, answer, rules):
    if not isinstance(expectation, Unread):
        return first_difference(expectation, answer, rules)
    codes = [finding["code"] for finding in answer["findings"]]
    if not answer["readable"] and any(code.startswith("limit.") for code in codes):
        return None
    return Difference("findings", "a limit that was reached", codes)


def trial(tool, documents, rules):
    """The outcomes of those of the documents that can be compared."""
    expectations = [expected(data, rules) for _, data in documents]
    chosen = [(one, model) for one, model in zip(documents, expectations) if model is not None]
    answers = ask(tool, [one for one, _ in chosen])
    return [
        Outcome(name, data, difference(model, answer, rules)) for ((name, data), model), answer in zip(chosen, answers)
    ]
