"""Random documents of the variant form: sound ones, and ones that are wrong in a place or two.

The same number gives the same document on every machine.
"""

import json
import random

from legacyModel import ANCHORS, ARROWS, HEADS, RUN_TYPES, SHAPES

VERSIONS = [f"6.{minor}" for minor in range(17, 28)]
NAMES = ["Width", "Hole size", "Datum A", "same", "same", "", "Größe <&>\"'", "line\nbreak", "bell\a", "\u05d0\u05d1"]
WORDS = ["A", "120", "±0.2", "2× ⌀11 THRU", "machined all over", "Ra 1.6", "  padded  ", "<&>\"'", "Größe", "Ωμ", "第一",
         "x" * 300]
ODD_WORDS = ["", " ", "   ", "\t", "a\tb\tc", "one\ntwo", "one\r\ntwo\rthree", "\x00", "a\x00b", "\x07\x1b[31m", "\x7f\x85",
             "e\u0301a\u0308\u20dd", "\u0301", "שלום", "abc שלום 123 def", "مرحبا (12) بالعالم", "\u202eabc\u202c",
             "\u200fa\u200e", "\u2067x\u2069", "\u2028\u2029", "\ufeffa\ufeff", "a\u200bb\u200cc\u200dd\u00ade", "\ue000",
             "\ufffe\uffff", "\ufffd?", "\ud800", "\udfff\ud83d", "\U0001f600", "\U0001f468\u200d\U0001f469", "❤\ufe0f",
             "\U0001d54f", "\U0010ffff", "ﬁ ﬂ ﷺ", "கொ", "ก็", "한국", "\u3000", "\u00a0", "y" * 70000]
HEIGHTS = [0.5, 0.7, 1, 1.05, 2.5, 3.5, 0.53, 12.34]
ODD_HEIGHTS = [0, 0.0, -1, 0.004, 0.0049, 0.01, 655.35, 700, 1e39, 1e300, "1.5", "NaN", "-inf", "", None, True, [1], {}]
FONTS = ["Arial", "Times New Roman", "Courier New", "DejaVu Sans", "No Such Font", "", "Arial\x01", 5, None]
COLORS = ["FFFFFF", "000000", "000001", "000002", "010000", "FF8000", "e8f1fa", "808080"]
ODD_COLORS = ["FFFFF", "FFFFFFF", "#FFFFF", "#FFFFFF", "12GGGG", "GGGGGG", "  1234", "-12345", "0x1234", "", 123456, None,
              [255, 0, 0], "00000g", "Ünïcö"]
ODD_NUMBERS = [1e10, -1e10, 1e30, 1e39, -1e300, 1e-300, 1e-39, 0.0, -0.0, 999999999, 1000000064]
ODD_VALUES = [None, True, False, 0, -1, 1.5, "", "text", "NaN", [], [1, 2, 3], {}, {"text": "x"}, 12345678901]
METADATA = ["NOA", "NOA_Hidden Text", "AnnotationGroup", "noa", "x", ""]
RASTERS = ["mark.png", "weld.png", "mark", "weld"]
ODD_RASTERS = ["", "none.png", "../mark.png", "mark.png\x00", "/etc/passwd", 5]
MAX_CHILD_LEVELS = 3


class Generator:
    """Makes one document; `oddness` is the share of fields that are not as they should be."""

    def __init__(self, number):
        self.random = random.Random(number)
        self.oddness = (0.0, 0.01, 0.04, 0.12)[number % 5 % 4]
        self.version = (6, 27)

    def is_odd(self):
        """Whether the next field is to be odd."""
        return self.random.random() < self.oddness

    def chance(self, share):
        """True for this share of the calls."""
        return self.random.random() < share

    def choose(self, sound, odd):
        """A sound value, or an odd one."""
        return self.random.choice(odd if self.is_odd() else sound)

    def number(self, reach=100.0):
        """A coordinate."""
        return self.random.choice(ODD_NUMBERS) if self.is_odd() else round(self.random.uniform(-reach, reach), 3)

    def point(self):
        """Three coordinates, now and then something else."""
        point = [self.number() for _ in range(3)]
        if self.is_odd() and self.chance(0.5):
            return self.random.choice([point[:2], [str(point[0]), 1, 2], point + [1], None, "1 2 3", [None] * 3, {}])
        return point

    def spoil(self, record):
        """The record with a key missing, of another kind, or unknown, now and then."""
        for key in list(record):
            if self.is_odd() and self.chance(0.15):
                del record[key]
            elif self.is_odd() and self.chance(0.15):
                record[key] = self.random.choice(ODD_VALUES)
        if self.is_odd():
            record["unknown"] = self.random.choice(ODD_VALUES)
        return record

    def word(self):
        """The characters of a run."""
        if self.is_odd():
            return self.random.choice(ODD_WORDS + ODD_VALUES)
        return self.random.choice(WORDS) if self.chance(0.9) else self.random.choice(WORDS) + self.random.choice(WORDS)

    def properties(self):
        """Any of the four properties."""
        record = {}
        if self.chance(0.7):
            record["heightem"] = self.choose(HEIGHTS, ODD_HEIGHTS)
        if self.chance(0.3):
            record["bold"] = self.choose([True, False], ODD_VALUES)
        if self.chance(0.3):
            record["italic"] = self.choose([True, False], ODD_VALUES)
        if self.chance(0.5):
            record["font"] = self.choose(FONTS[:4], FONTS)
        return record

    def run(self):
        """A run of a line."""
        record = {"text": self.word()}
        if self.chance(0.25):
            record["type"] = self.choose(RUN_TYPES, ["SUB", "Sup", 1, None])
        if self.chance(0.25):
            record.update(self.properties())
        return self.spoil(record)

    def line(self):
        """A line of runs."""
        return self.random.choice(ODD_VALUES) if self.is_odd() and self.chance(0.3) else [
            self.run() for _ in range(self.random.randint(0 if self.is_odd() else 1, 4))]

    def leader(self):
        """A leader of the version's form."""
        if self.version < (6, 22):
            return self.point()
        record = {"pos": self.point(), "head": self.choose(HEADS, ["Arrow", "star", 3, None])}
        return self.random.choice(ODD_VALUES) if self.is_odd() and self.chance(0.3) else self.spoil(record)

    def measure(self):
        """A measure leader."""
        record = {"A": self.point(), "B": self.point(), "V": self.point(), "arrowdir": self.choose(ARROWS, ["in", 2])}
        if self.is_odd():
            record["V"] = [0, 0, self.number()]
        if self.is_odd():
            record["B"] = record["A"]
        return self.random.choice(ODD_VALUES) if self.is_odd() and self.chance(0.2) else self.spoil(record)

    def annotation(self, level=0, kind=None):
        """A text or raster annotation with what hangs on it."""
        kind = kind or self.random.choices(["text", "raster"], [5, 1])[0]
        record = {"type": self.choose([kind], [kind] * 8 + ["Text", "", "image"]), "name": self.choose(NAMES[:5], NAMES),
                  "color": self.choose(COLORS, ODD_COLORS), "position": self.point(),
                  "frameshape": self.choose(SHAPES, ["blob", "Rectangle", 3, None])}
        record |= self.text() if kind == "text" else self.raster()
        if self.chance(0.4 if level == 0 else 0.1):
            record["leaders"] = [self.leader() for _ in range(self.random.randint(1, 3))]
        if self.chance(0.3 if level == 0 else 0.1):
            record["measures"] = [self.measure() for _ in range(self.random.randint(1, 2))]
        for flag in ("isframelocked", "isscalelocked", "isignoreztest"):
            if self.chance(0.2):
                record[flag] = self.choose([True, False], ODD_VALUES)
        if self.chance(0.1):
            record["metadata"] = {key: 1 for key in self.random.sample(METADATA, self.random.randint(0, 2))}
        if level < MAX_CHILD_LEVELS and self.chance(0.35):
            key = self.choose(["children"], ["childs"])
            record[key] = [self.annotation(level + 1) for _ in range(self.random.randint(1, 3))]
        if level > 0:
            record["anchorloc"] = self.choose(list(ANCHORS), ["xx", "", "RB", None])
        return self.spoil(record)

    def text(self):
        """What a text annotation has of its own."""
        record = {"defaulttextprop": self.properties()}
        if self.chance(0.2):
            return record | {"text": "\r\n".join(str(self.word()) for _ in range(self.random.randint(1, 3)))}
        return record | {"lines": [self.line() for _ in range(self.random.randint(1, 4))]}

    def raster(self):
        """What a raster annotation has of its own."""
        size = [self.choose([4, 10, 25.5], [0, -5, 1e-30, 1e30, "7", "x", None]) for _ in range(2)]
        if self.is_odd() and self.chance(0.3):
            size = self.random.choice([[1], [1, 2, 3], "1 2", None])
        return {"rastername": self.random.choice(ODD_RASTERS) if self.is_odd() and self.chance(0.3) else
                self.random.choice(RASTERS), "sizeem": size}

    def view(self):
        """A view of any version."""
        version = self.choose(VERSIONS, VERSIONS * 3 + ["6.16", "6", "", "7.0", 6.27, None])
        self.version = tuple(map(int, version.split("."))) if version in VERSIONS else (6, 27)
        record = {"ver": version, "name": self.choose(NAMES[:3], NAMES), "origin": self.point(),
                  "normal": self.choose([[0, 0, 1], [0, -1, 0]], [[0, 0, 0], [0, 0, 1e39]]), "axis": [1, 0, 0]}
        if self.version >= (6, 27):
            record["metadata"] = self.random.choice([{}, {}, {"k": 1}])
        count = self.random.randint(1, 5)
        if self.version >= (6, 22):
            return self.spoil(record | {"annotations": [self.annotation() for _ in range(count)]})
        return self.spoil(record | {"textannotations": [self.annotation(kind="text") for _ in range(count)],
                                    "rasterannotations": [self.annotation(kind="raster")]})

    def document(self):
        """The bytes of a document in one of its three forms."""
        views = [self.view() for _ in range(self.random.randint(1, 3))]
        document = self.random.choice([views[0] | {"ver": views[0].get("ver", "6.27")}, views, {"views": views}])
        return json.dumps(document, indent=1).encode("ascii")
