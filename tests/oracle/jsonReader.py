"""Reads JSON text as the variant form wants it: kinds kept apart, equal keys and repaired texts noticed.

Python's own reader is not used: it takes `NaN`, does not tell where something stands, and knows no half surrogates.
Values are Python's: None, int (integer), float (real), str, bool, dict (map) and list.
"""

import re
from dataclasses import dataclass, field

BLANKS = re.compile(rb"[ \t\n\r]*")
PLAIN = re.compile(rb'[^"\\\x00-\x1f]*')
FIRST = re.compile(rb'[{["0-9tfn-]')
DIGITS = re.compile(rb"[0-9]*")
WORD = re.compile(rb"[0-9A-Za-z_]*")
ESCAPES = {b'"': '"', b"\\": "\\", b"/": "/", b"b": "\b", b"f": "\f", b"n": "\n", b"r": "\r", b"t": "\t"}
CONSTANTS = {b"true": True, b"false": False, b"null": None}
# Text of 16 or 32 bits a character: its byte-order mark, or a zero among its first two bytes.
WIDE = re.compile(rb"\xff\xfe|\xfe\xff|\0[^\0]|[^\0]\0", re.DOTALL)
BYTE_ORDER_MARK = b"\xef\xbb\xbf"
INTEGERS = range(-(2**63), 2**63)
LONGEST_INTEGER = 20


class Broken(Exception):
    """The text is no readable JSON; says the code of the finding and the byte offset."""

    def __init__(self, code, offset):
        super().__init__(f"{code} at byte {offset}")
        self.code = code
        self.offset = offset


@dataclass
class Text:
    """A JSON text that was read: its value, and what was noticed on the way as (code, severity, byte offset)."""

    value: object = None
    findings: list = field(default_factory=list)


def read_json(data, depth):
    """Reads the text. Raises Broken where it is no readable JSON; more than `depth` levels are none either."""
    reader = _Reader(data, depth)
    try:
        value = reader.document()
    except Broken as broken:
        raise Broken(broken.code, min(broken.offset, invalid_encoding(data))) from broken
    if invalid_encoding(data) < len(data):
        raise Broken("json.broken", invalid_encoding(data))
    severities = ["error" if i in reader.errors else "warning" for i in range(len(reader.findings))]
    return Text(value, [(code, severity, place) for (code, place), severity in zip(reader.findings, severities)])


def invalid_encoding(data):
    """The first byte that is no UTF-8, or the end of the data."""
    try:
        data.decode("utf-8")
    except UnicodeDecodeError as error:
        return error.start
    return len(data)


def is_same(a, b):
    """Whether two values are of one kind and equal."""
    if type(a) is not type(b):
        return False
    if isinstance(a, dict):
        return a.keys() == b.keys() and all(is_same(a[key], b[key]) for key in a)
    if isinstance(a, list):
        return len(a) == len(b) and all(map(is_same, a, b))
    return a == b


class _Reader:
    def __init__(self, data, depth):
        self.data = data
        self.at = 0
        self.left = depth
        self.findings = []
        self.errors = set()  # indices of those findings that are no warnings
        self.repaired = False

    def document(self):
        if WIDE.match(self.data):
            raise Broken("input.unknown-format", 0)
        if self.data.startswith(BYTE_ORDER_MARK):
            self.findings.append(("json.byte-order-mark", 0))
            self.at = len(BYTE_ORDER_MARK)
        self.skip_blanks()
        start = self.at
        try:
            return self.lone_value()
        except Broken as broken:
            if FIRST.match(self.data, start):
                raise
            raise Broken("input.unknown-format", start) from broken

    def lone_value(self):
        value = self.value()
        self.skip_blanks()
        if self.at < len(self.data):
            raise Broken("json.broken", self.at)
        return value

    def skip_blanks(self):
        self.at = BLANKS.match(self.data, self.at).end()

    def expect(self, byte):
        if self.data[self.at : self.at + 1] != byte:
            raise Broken("json.broken", self.at)
        self.at += 1

    def accept(self, byte):
        if self.data[self.at : self.at + 1] != byte:
            return False
        self.at += 1
        return True

    def value(self):
        first = self.data[self.at : self.at + 1]
        if first == b"{":
            return self.nested(self.map)
        if first == b"[":
            return self.nested(self.list)
        if first == b'"':
            return self.string()
        if first in b"-0123456789" and first:
            return self.number()
        word = WORD.match(self.data, self.at).group()
        if word not in CONSTANTS:
            raise Broken("json.broken", self.at)
        self.at += len(word)
        return CONSTANTS[word]

    def nested(self, read):
        if self.left == 0:
            raise Broken("json.too-deep", self.at)
        self.left -= 1
        self.at += 1
        value = read()
        self.left += 1
        return value

    def map(self):
        entries, lost = {}, []
        self.skip_blanks()
        if self.accept(b"}"):
            return entries
        while True:
            self.skip_blanks()
            place = self.at
            if self.data[self.at : self.at + 1] != b'"':
                raise Broken("json.broken", self.at)
            key = self.string()
            if key in entries:
                lost.append((key, entries[key], len(self.findings)))
                self.findings.append(("json.duplicate-key", place))
            self.skip_blanks()
            self.expect(b":")
            self.skip_blanks()
            entries[key] = self.value()
            self.skip_blanks()
            if self.accept(b"}"):
                self.weigh(entries, lost)
                return entries
            self.expect(b",")

    def weigh(self, entries, lost):
        """A text, a list or a map that an equal key replaced by something else is content that is lost."""
        for key, value, finding in lost:
            if isinstance(value, (bytes, str, list, dict)) and value and not is_same(value, entries[key]):
                self.errors.add(finding)

    def list(self):
        values = []
        self.skip_blanks()
        if self.accept(b"]"):
            return values
        while True:
            self.skip_blanks()
            values.append(self.value())
            self.skip_blanks()
            if self.accept(b"]"):
                return values
            self.expect(b",")

    def number(self):
        place = self.at
        self.accept(b"-")
        whole = self.at
        self.digits()
        if self.data[whole : whole + 1] == b"0" and self.at > whole + 1:
            raise Broken("json.broken", whole)
        fraction = self.accept(b".")
        if fraction:
            self.digits()
        exponent = self.accept(b"e") or self.accept(b"E")
        if exponent:
            self.accept(b"+") or self.accept(b"-")
            self.digits()
        word = self.data[place : self.at]
        return self.real(word, place) if fraction or exponent else self.integer(word, place)

    def digits(self):
        """One or more digits."""
        end = DIGITS.match(self.data, self.at).end()
        if end == self.at:
            raise Broken("json.broken", self.at)
        self.at = end

    def integer(self, word, place):
        if len(word) <= LONGEST_INTEGER and int(word) in INTEGERS:
            return int(word)
        self.findings.append(("json.big-integer", place))
        return self.real(word, place)

    def real(self, word, place):
        real = float(word)
        if real in (float("inf"), float("-inf")):
            raise Broken("json.broken", place)
        return real

    def string(self):
        """A string; however many halves of surrogate pairs it has, they are one finding at its opening quote."""
        place = self.at
        self.expect(b'"')
        pieces = []
        self.repaired = False
        while True:
            plain = PLAIN.match(self.data, self.at)
            pieces.append(plain.group().decode("utf-8", "replace"))
            self.at = plain.end()
            if self.accept(b'"'):
                break
            if not self.accept(b"\\"):
                raise Broken("json.broken", self.at)
            pieces.append(self.escape())
        if self.repaired:
            self.findings.append(("text.repaired", place))
        return "".join(pieces)

    def escape(self):
        letter = self.data[self.at : self.at + 1]
        self.at += 1
        if letter in ESCAPES:
            return ESCAPES[letter]
        if letter != b"u":
            raise Broken("json.broken", self.at - 2 if letter else self.at - 1)
        return self.unicode(self.at - 2)

    def unicode(self, place):
        unit = self.hexadecimal(place)
        if 0xD800 <= unit < 0xDC00 and self.data[self.at : self.at + 2] == b"\\u":
            back = self.at
            self.at += 2
            low = self.hexadecimal(back)
            if 0xDC00 <= low < 0xE000:
                return chr(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00))
            self.at = back
        if 0xD800 <= unit < 0xE000:
            self.repaired = True
            return "\ufffd"
        return chr(unit)

    def hexadecimal(self, place):
        digits = self.data[self.at : self.at + 4]
        if not re.fullmatch(rb"[0-9A-Fa-f]{4}", digits):
            raise Broken("json.broken", place)
        self.at += 4
        return int(digits, 16)
