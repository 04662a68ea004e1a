"""Proves that the oracle can fail: with any entry of its rules altered, some document differs from the tool's answer.

Usage: selfTest.py --tool QVANNOT --examples FOLDER [--documents N] [--seed SEED] [--jobs N]

What an alteration changes is looked for among what the sound rules make of the same documents, which is quick; the tool
is then asked about the one document that was found.
"""

import sys
from concurrent.futures import ProcessPoolExecutor

from alterations import SILENT, alterations, altered
from compare import first_difference
from documents import Source
from edges import edge_documents
from inspection import Teller
from payload import BeyondLimits
from reader import read
from rules import Rules
from runOracle import DEEPEST_RECURSION, all_real, arguments
from tool import ask

CHUNK = 24


def told(data, rules):
    """Everything that a reading with these rules would be compared by, as one text."""
    try:
        document = read(data, rules)
    except BeyondLimits:
        return "beyond limits"
    teller = Teller(rules)
    views = [teller.view(index, view) for index, view in enumerate(document.views)]
    return repr((document.format, document.readable, document.findings, views))


def all_documents(options):
    real = all_real(options.examples)
    source = Source(options.seed, real)
    documents = [*edge_documents(), *real, *map(source.document, range(options.documents))]
    return sorted(documents, key=lambda document: len(document[1]))


def telling_document(rules, pairs):
    """The first document that the altered rules read otherwise, None where there is none.

    It moves to the front of the pairs, since the next alteration is likely one of the same table.
    """
    for index, (document, expected) in enumerate(pairs):
        if differs(document[1], rules, expected):
            pairs.insert(0, pairs.pop(index))
            return document
    return None


def differs(data, rules, expected):
    try:
        return told(data, rules) != expected
    except (KeyError, ValueError, AttributeError):
        return True


def search(documents, sound, names):
    """(name, telling document or None) of the alterations of these names."""
    sys.setrecursionlimit(DEEPEST_RECURSION)
    pairs = list(zip(documents, sound))
    wanted = ((name, change) for name, change in alterations() if name in names)
    return [(name, telling_document(altered(change), pairs)) for name, change in wanted]


def seen_by(answer, data, rules):
    """Whether a comparison with the tool's answer notices the altered rules."""
    try:
        return first_difference(read(data, rules), answer, rules) is not None
    except (BeyondLimits, KeyError, ValueError, AttributeError):
        return True


def unnoticed(tool, found):
    """The names of the alterations that no comparison with the tool notices."""
    telling = [(name, document) for name, document in found if document]
    answers = ask(tool, [document for _, document in telling])
    changes = dict(alterations())
    missed = [name for name, document in found if not document]
    for (name, (_, data)), answer in zip(telling, answers):
        if not seen_by(answer, data, altered(changes[name])):
            missed.append(name)
    return missed


def main():
    sys.setrecursionlimit(DEEPEST_RECURSION)
    options = arguments(__doc__)
    documents = all_documents(options)
    sound = [told(data, Rules()) for _, data in documents]
    every = [name for name, _ in alterations()]
    names = [name for name in every if name not in SILENT]
    with ProcessPoolExecutor(options.jobs) as pool:
        chunks = [set(names[at : at + CHUNK]) for at in range(0, len(names), CHUNK)]
        work = [pool.submit(search, documents, sound, chunk) for chunk in chunks]
        found = [result for one in work for result in one.result()]
    missed = unnoticed(options.tool, found)
    for name in missed:
        print(f"{name}: no document of {len(documents)} shows this alteration")
    unknown = set(SILENT) - set(every)
    for name in sorted(unknown):
        print(f"{name}: is listed as silent, but is no alteration")
    print(f"{len(names)} alterations, {len(missed)} not noticed; {len(SILENT)} more are silent by their nature")
    return 1 if missed or unknown else 0


if __name__ == "__main__":
    sys.exit(main())
