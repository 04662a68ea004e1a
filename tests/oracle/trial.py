"""Puts documents to both readers and says where they differ."""

from dataclasses import dataclass

from compare import Difference, first_difference
from payload import TooLong, TooManyShortReads
from reader import read
from tool import MOST_MEMORY, ToolFailed, ask


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
    expectations = [(one, expected(one[1], rules)) for one in documents]
    return outcomes(tool, [(one, model) for one, model in expectations if model is not None], rules)


def outcomes(tool, cases, rules):
    """The outcomes of (document, model); where the tool fails, half of them each until it is known with which."""
    try:
        answers = ask(tool, [document for document, _ in cases]) if cases else []
    except ToolFailed as failure:
        if len(cases) == 1:
            return [Outcome(*cases[0][0], Difference("tool", "an answer", str(failure)))]
        middle = len(cases) // 2
        return outcomes(tool, cases[:middle], rules) + outcomes(tool, cases[middle:], rules)
    return [Outcome(*document, difference(model, answer, rules)) for (document, model), answer in zip(cases, answers)]
