"""The bytes of one object: fields that want more than is left are short, as docs/formats/object-stream.md tells it."""

import struct
from dataclasses import dataclass


MOST_SHORT_READS = 5_000
MOST_PADDING = 100_000


class BeyondLimits(Exception):
    """The document announces more than the oracle wants to make."""


class TooManyShortReads(BeyondLimits):
    """A count announced more than a reader may go on with."""


class TooLong(BeyondLimits):
    """A length or count announced more bytes or records than there is any data for."""

    def __init__(self, announced):
        super().__init__(f"{announced} more than there are")
        self.announced = announced


class BadMap(Exception):
    """A fault in a variant map, which ends the outermost map."""


@dataclass
class Budget:
    """How many short reads a document has left, and how much is made for an announced number alone."""

    short_reads: int = MOST_SHORT_READS
    padding: int = MOST_PADDING

    def miss(self):
        self.short_reads -= 1
        if self.short_reads < 0:
            raise TooManyShortReads

    def pad(self, announced):
        if announced > self.padding:
            raise TooLong(announced)


class Payload:
    """Reads fields one after the other, and remembers the code and the place of the first fault."""

    def __init__(self, data, offset, budget):
        self.data = data
        self.offset = offset
        self.budget = budget
        self.at = 0
        self.fault = None

    @property
    def left(self):
        return len(self.data) - self.at

    def place(self):
        """The byte of the document that is read next."""
        return self.offset + self.at

    def report(self, code):
        if self.fault is None:
            self.fault = (code, self.place())

    def take(self, size):
        """All of the next bytes, or None and what is left is used up."""
        if size > self.left:
            self.miss()
            return None
        self.at += size
        return self.data[self.at - size : self.at]

    def miss(self):
        self.report("stream.over-read")
        self.at = len(self.data)
        self.budget.miss()

    def number(self, form, default=0):
        piece = self.take(struct.calcsize(form))
        return default if piece is None else struct.unpack(form, piece)[0]

    def numbers(self, form, default):
        piece = self.take(struct.calcsize(form))
        return default if piece is None else struct.unpack(form, piece)

    def byte(self, default=0):
        return self.number("<B", default)

    def count(self):
        return self.number("<I")

    def text(self, length, default=b""):
        """A text of the announced length; for bytes that are not there stand those of the default, then zeros."""
        self.budget.pad(length - self.left)
        there = self.data[self.at : self.at + length]
        self.take(length)
        return (there + default[len(there) : length]).ljust(length, b"\0")

    def string(self, default=b""):
        """A counted string; a length below 1 is the empty string."""
        length = self.number("<i")
        return self.text(length, default) if length > 0 else b""
