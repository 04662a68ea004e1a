"""All documents of a run: the real ones, and any number of random and damaged ones, each told by seed and number."""

import os
from pathlib import Path
from random import Random

from damage import Damage, parse_tree
from jsonWriter import write_json
from streamDocuments import StreamDocuments
from variantDocuments import VariantDocuments

SUFFIXES = (".json", ".qvs")


def real_documents(folders):
    """(name, bytes) of every document in the folders, in the order of their names."""
    paths = [path for folder in folders for path in sorted(Path(folder).iterdir()) if path.suffix in SUFFIXES]
    return [(path.name, path.read_bytes()) for path in paths]


def corpus_folder():
    """The folder of more real documents, None where QVA_CORPUS names none."""
    folder = os.environ.get("QVA_CORPUS", "")
    return Path(folder) if folder else None


class Source:
    """Makes the random documents of a seed; each depends on seed and number alone, and on the real documents."""

    def __init__(self, seed, real):
        self.seed = seed
        self.real = {suffix: [data for name, data in real if name.endswith(suffix)] for suffix in SUFFIXES}
        self.kinds = [
            (30, ".json", self.variant),
            (10, ".json", self.variant_changed),
            (6, ".json", self.variant_damaged),
            (4, ".json", self.real_changed),
            (25, ".qvs", self.stream),
            (20, ".qvs", self.stream_damaged),
            (5, ".qvs", self.real_damaged),
        ]

    def document(self, number):
        """(name, bytes) of one document."""
        random = Random(f"{self.seed}/{number}")
        _, suffix, make = random.choices(self.kinds, [weight for weight, _, _ in self.kinds])[0]
        return f"{self.seed}-{number}{suffix}", make(random)

    def variant(self, random):
        return VariantDocuments(random).document()[1]

    def variant_changed(self, random):
        source = VariantDocuments(random)
        return self.changed(source.document()[0], random, source)

    def real_changed(self, random):
        return self.changed(parse_tree(random.choice(self.real[".json"])), random, VariantDocuments(random))

    @staticmethod
    def changed(root, random, source):
        return write_json(Damage(random).tree(root, source.any), random).encode("utf-8")

    def variant_damaged(self, random):
        return Damage(random).bytes(self.variant(random), self.real[".json"])

    def stream(self, random):
        return StreamDocuments(random).document()

    def stream_damaged(self, random):
        return Damage(random).bytes(self.stream(random), self.real[".qvs"])

    def real_damaged(self, random):
        return Damage(random).bytes(random.choice(self.real[".qvs"]), self.real[".qvs"])
