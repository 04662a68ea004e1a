"""Random object streams, with what only they can hold: numbers that are not finite, values beyond the tables, children
that are none, bytes that are no text, and versions before those of the variant form.

The same number gives the same document on every machine.
"""

import math
import random
import struct

TEXT, RASTER = 1, 2
ODD_BYTES = [b"\xff\xfe", b"a\x00b", b"\xc3", b"\xed\xa0\x80", b"\xf0\x9f\x98", b"\xe2\x8c\x80\x80", b"\x1b[0m", b""]
WORDS = ["A", "120", "±0.2", "2× ⌀11", "machined all over", "  padded  ", "   ", "<&>", "שלום 12"]
ODD_REALS = [math.nan, math.inf, -math.inf, 3e38, -1e10, 1e-40, -0.0, 1e9]


def counted(data):
    """A counted string."""
    return struct.pack("<i", len(data)) + data


class Generator:
    """Makes one stream; `oddness` is the share of fields that are not as they should be."""

    def __init__(self, number):
        self.random = random.Random(number)
        self.minor = self.random.choice([13, 14, 15, 16, 17, 21, 22, 26, 27, 27])
        self.oddness = (0.0, 0.01, 0.03, 0.08)[number % 5 % 4]

    def is_odd(self):
        """Whether the next field is to be odd."""
        return self.random.random() < self.oddness

    def count(self, *weights):
        """A number of things; the weights are those of 0, 1, ..."""
        return self.random.choices(range(len(weights)), weights)[0]

    def byte(self, known, odd):
        """A value of a closed set, or one beyond it."""
        return bytes([self.random.choice(odd) if self.is_odd() else self.random.randrange(known)])

    def reals(self, number, low=-100.0, high=100.0):
        """Coordinates."""
        return b"".join(struct.pack("<f", self.random.choice(ODD_REALS) if self.is_odd() else
                                    self.random.uniform(low, high)) for _ in range(number))

    def word(self):
        """The bytes of a text."""
        return self.random.choice(ODD_BYTES) if self.is_odd() else self.random.choice(WORDS).encode()

    def records(self, number, write):
        """A count and that many records."""
        return struct.pack("<I", number) + b"".join(write() for _ in range(number))

    def leader(self):
        """A leader."""
        return self.reals(3) + (self.byte(7, [7, 200]) if self.minor >= 22 else b"")

    def measure(self):
        """A measure leader."""
        return self.reals(9) + (self.byte(4, [4, 255]) if self.minor >= 22 else b"")

    def metadata(self):
        """A map that is mostly empty."""
        keys = [b"NOA"] if self.random.random() < 0.05 else []
        return struct.pack("<I", len(keys)) + b"".join(counted(key) + bytes([4, 1]) for key in keys)

    def color_and_style(self):
        """Three bytes, and the byte of shape and flags."""
        color = bytes(self.random.choice([(255, 255, 255), (0, 0, 0), (0, 0, 2), (232, 241, 250), (255, 128, 0)]))
        style = self.byte(15, [15])[0] | self.random.choice([0, 0x20, 0x40, 0x80])
        return color + bytes([style])

    def child(self, level):
        """A child with its anchor, or the place of none."""
        anchor = self.byte(13, [13, 99])
        if self.is_odd():
            return anchor + bytes([0])
        kind = self.random.choice([TEXT, TEXT, RASTER])
        return anchor + bytes([kind]) + (self.text(level) if kind == TEXT else self.raster(level))

    def shared(self, level):
        """What texts and rasters have in common, since 6.15."""
        record = counted(self.word()) + self.records(self.count(6, 2, 1) if level == 0 else self.count(12, 1), self.leader)
        if self.minor >= 17:
            record += self.records(self.count(6, 2, 1) if level == 0 else self.count(12, 1), self.measure)
        record += self.reals(3) + self.color_and_style()
        if self.minor >= 22:
            record += self.records(self.count(6, 2, 1) if level < 3 else 0, lambda: self.child(level + 1))
            record += self.metadata()
        return record

    def properties(self):
        """Font, height, bold and italic."""
        height = self.random.choice([0, 1, 65535]) if self.is_odd() else self.random.choice([70, 100, 105, 350])
        font = self.random.choice([b"", b"\xff", b"No Such Font"]) if self.is_odd() else b"Arial"
        return counted(font) + struct.pack("<HH", height, self.random.randrange(4))

    def run(self):
        """A run of a line."""
        text = self.word()
        own = self.properties() if self.random.random() < 0.2 else None
        record = struct.pack("<H", len(text)) + text + self.byte(3, [3, 7, 255]) if self.minor >= 17 else counted(text)
        return record + bytes([own is not None]) + (own or b"")

    def lines(self):
        """Lines of runs."""
        return self.records(self.random.randint(1, 3), lambda: self.records(self.count(1, 5, 2), self.run))

    def text(self, level=0):
        """A text annotation, in the order of its version."""
        if self.minor >= 15:
            return self.shared(level) + self.properties() + self.lines()
        name = counted(self.word()) if self.minor >= 14 else b""
        return (name + self.properties() + self.records(self.count(3, 1), self.leader) + self.lines() + self.reals(3) +
                self.color_and_style())

    def raster(self, level=0):
        """A raster annotation."""
        name = self.random.choice([b"mark.png", b"weld", b"none" if self.is_odd() else b"mark"])
        return self.shared(level) + counted(name) + self.reals(2, 4.0, 30.0)

    def view(self):
        """The payload of a view."""
        plane = self.reals(3) + struct.pack("<6f", 0, 0, 1, 1, 0, 0)
        texts, rasters = self.random.randint(1, 4), self.count(2, 1) if self.minor >= 15 else 0
        record = counted(self.word()) + (self.reals(9) if self.is_odd() else plane) + struct.pack("<I", texts)
        record += struct.pack("<I", rasters) if self.minor >= 15 else b""
        record += b"".join(self.text() for _ in range(texts)) + b"".join(self.raster() for _ in range(rasters))
        return record + (self.metadata() if self.minor >= 27 else b"")

    def document(self):
        """The bytes of a stream of one or two views without a list of them."""
        views = [self.view() for _ in range(self.random.randint(1, 2))]
        stream = b"qvStream" + struct.pack("<HHI", self.minor, 6, len(views))
        for number, payload in enumerate(views):
            stream += struct.pack("<I", number + 1) + counted(b"qvCore.qvAnnotationView")
            stream += struct.pack("<Q", len(payload)) + payload
        return stream
