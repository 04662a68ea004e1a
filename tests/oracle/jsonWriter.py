"""Writes JSON text as odd as a document may be: equal keys, any spelling of a number, blanks and escapes at will."""

from dataclasses import dataclass

PLAIN_ESCAPES = {'"': '\\"', "\\": "\\\\", "\b": "\\b", "\f": "\\f", "\n": "\\n", "\r": "\\r", "\t": "\\t"}
CONSTANTS = {None: "null", True: "true", False: "false"}
BLANKS = ("", "", "", " ", "\n", "\t ", "\r\n")


@dataclass
class Literal:
    """A piece of JSON text that is written as it stands."""

    text: str


@dataclass
class Map:
    """A map as a list of (key, value), so that keys may be equal and have an order."""

    entries: list


def write_json(value, random=None):
    """The text of a value; how strings are escaped and where blanks stand is left to the dice, plain without any."""
    return _Writer(random).value(value)


class _Writer:
    def __init__(self, random):
        self.random = random
        self.airy = random is not None and random.random() < 0.3
        self.escaping = 0 if random is None else random.choice((0, 0, 0.05, 1))

    def value(self, value):
        if isinstance(value, Literal):
            return value.text
        if isinstance(value, Map):
            return "{" + self.joined(self.member(*entry) for entry in value.entries) + "}"
        if isinstance(value, list):
            return "[" + self.joined(map(self.value, value)) + "]"
        if isinstance(value, str):
            return self.string(value)
        return CONSTANTS[value] if value is None or isinstance(value, bool) else repr(value)

    def member(self, key, value):
        return f"{self.string(key)}{self.blank()}:{self.blank()}{self.value(value)}"

    def joined(self, pieces):
        return self.blank() + ",".join(f"{self.blank()}{piece}{self.blank()}" for piece in pieces)

    def blank(self):
        return self.random.choice(BLANKS) if self.airy else ""

    def string(self, text):
        return '"' + "".join(map(self.character, text)) + '"'

    def character(self, character):
        code = ord(character)
        if code < 0x20 or 0xD800 <= code < 0xE000 or self.escaping and self.random.random() < self.escaping:
            return self.escape(character, code)
        return PLAIN_ESCAPES.get(character, character)

    def escape(self, character, code):
        if character in PLAIN_ESCAPES and (self.random is None or self.random.random() < 0.5):
            return PLAIN_ESCAPES[character]
        if code > 0xFFFF:
            code -= 0x10000
            return f"\\u{0xD800 + (code >> 10):04x}\\u{0xDC00 + (code & 0x3FF):04X}"
        return f"\\u{code:04x}"
