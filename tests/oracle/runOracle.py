"""Compares `qvannot inspect --json --full` with the oracle over real, random and damaged documents.

Usage: runOracle.py --tool QVANNOT --examples FOLDER [--documents N] [--seed SEED] [--jobs N] [--keep FOLDER]
           [--alter NAME]

Every difference is a fault: of the tool, of the oracle, or of docs/formats, which is all that the oracle was written
from.
"""

import argparse
import sys
from concurrent.futures import ProcessPoolExecutor
from pathlib import Path

from alterations import alterations, altered
from documents import Source, corpus_folder, real_documents
from edges import edge_documents
from rules import Rules
from shrink import shrink
from trial import trial

BATCH = 200
DEEPEST_RECURSION = 20_000
MOST_BYTES_SHOWN = 1500


def arguments(description):
    parser = argparse.ArgumentParser(description=description, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--tool", required=True, help="the program qvannot")
    parser.add_argument("--examples", required=True, type=Path, help="folder of the example documents")
    parser.add_argument("--documents", type=int, default=2000, help="how many random and damaged documents")
    parser.add_argument("--seed", default="1", help="another seed makes other documents")
    parser.add_argument("--jobs", type=int, default=2, help="processes that work side by side")
    parser.add_argument("--keep", type=Path, help="folder for the documents that differ")
    parser.add_argument("--alter", default="", help="an alteration of the tables, to see a difference")
    return parser.parse_args()


def all_real(examples):
    corpus = corpus_folder()
    if corpus is None:
        print("QVA_CORPUS is not set: real documents beyond the examples are skipped")
    return real_documents([examples, examples / "binary"] + ([corpus] if corpus else []))


def rules_of(options):
    return altered(dict(alterations())[options.alter]) if options.alter else Rules()


def run_batch(options, real, numbers):
    """The outcomes that differ, and how many documents were compared; `numbers` None stands for the fixed ones."""
    sys.setrecursionlimit(DEEPEST_RECURSION)
    source = Source(options.seed, real)
    documents = [*edge_documents(), *real] if numbers is None else [source.document(number) for number in numbers]
    outcomes = trial(options.tool, documents, rules_of(options))
    return [outcome for outcome in outcomes if outcome.difference], len(outcomes)


def run(options, real):
    batches = [None] + [range(at, min(at + BATCH, options.documents)) for at in range(0, options.documents, BATCH)]
    with ProcessPoolExecutor(options.jobs) as pool:
        work = [pool.submit(run_batch, options, real, numbers) for numbers in batches]
        results = [one.result() for one in work]
    return [outcome for differing, _ in results for outcome in differing], sum(count for _, count in results)


def report(outcomes, options):
    """Tells the smallest document that differs in each way, made as small as it goes."""
    smallest = {}
    for outcome in sorted(outcomes, key=lambda one: len(one.data)):
        smallest.setdefault(outcome.difference.kind(), outcome)
    for outcome in smallest.values():
        print(f"\n{outcome.name} (seed {options.seed}): {outcome.difference}")
        small = shrink(options.tool, outcome, rules_of(options))
        if small is not outcome:
            print(f"smaller, with {small.difference}")
        print(shown(small))
    if options.keep:
        options.keep.mkdir(parents=True, exist_ok=True)
        for outcome in outcomes:
            (options.keep / outcome.name).write_bytes(outcome.data)


def shown(outcome):
    data = outcome.data[:MOST_BYTES_SHOWN]
    return data.decode("utf-8", "backslashreplace") if outcome.name.endswith(".json") else data.hex(" ", 4)


def main():
    sys.setrecursionlimit(DEEPEST_RECURSION)
    options = arguments(__doc__)
    outcomes, compared = run(options, all_real(options.examples))
    report(outcomes, options)
    print(f"{compared} documents compared, {len(outcomes)} differ")
    return 1 if outcomes else 0


if __name__ == "__main__":
    sys.exit(main())
