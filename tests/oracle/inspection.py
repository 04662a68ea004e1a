"""Tells a model as `qvannot inspect --json --full` does (docs/inspect-json.md), with leaves that compare themselves.

A text stands for itself and for its `Hex` member, a list of singles for itself and for its `Bits` member, a value of
a closed set for its name and for its `Number` member. No member is ever left out: what is not there is None.
"""

import re
from dataclasses import dataclass

from model import TEXT
from singles import double_bits, is_finite, is_number, single_bits

SHAPE_BITS = 15
RUN_KINDS = "normal subscript superscript".split()


def nothing(*keys):
    """Members without a value."""
    return [(key, None) for key in keys]


@dataclass
class Name:
    """A value of a closed set: its name, None beyond the set, and its number; both None where there is none."""

    number: int | None
    names: list

    def members(self, key):
        named = self.number is not None and self.number < len(self.names)
        yield key, self.names[self.number] if named else None
        yield key + "Number", self.number


def shortened(text):
    return re.sub("\ufffd+", "\ufffd", text)


@dataclass
class Text:
    """A text; where it is no UTF-8 its bytes stand in a member of their own."""

    data: bytes

    def members(self, key):
        try:
            yield key, self.data.decode("utf-8")
            yield key + "Hex", None
        except UnicodeDecodeError:
            yield key, self
            yield key + "Hex", self.data.hex()

    def equals(self, found):
        """How many U+FFFD stand for invalid bytes is not told, since all bytes stand beside them."""
        return isinstance(found, str) and shortened(found) == shortened(self.data.decode("utf-8", "replace"))


@dataclass
class Singles:
    """Numbers; where one of them is not finite the bits of all stand in a member of their own."""

    bits: tuple

    def members(self, key):
        yield key, [Single(bits) for bits in self.bits]
        finite = all(is_finite(bits) for bits in self.bits)
        yield key + "Bits", None if finite else [f"{bits:08x}" for bits in self.bits]


@dataclass
class Single:
    """One number: equal to the text of any number that reads back as the same single, the sign of zero included."""

    bits: int

    def equals(self, found):
        if not is_finite(self.bits):
            return found is None
        return is_number(found) and single_bits(float(found)) == self.bits


@dataclass
class Real:
    """A real of metadata; equal down to its bits."""

    value: float

    def members(self, key):
        finite = abs(self.value) != float("inf") and self.value == self.value
        yield key, self if finite else None
        yield key + "Bits", None if finite else f"{double_bits(self.value):016x}"

    def equals(self, found):
        return is_number(found) and double_bits(float(found)) == double_bits(self.value)


def told(*members):
    """An object of members; a text, a name and numbers become as many members as they need."""
    result = {}
    for key, value in members:
        if isinstance(value, (Text, Name, Singles, Real)):
            result.update(value.members(key))
        else:
            result[key] = value
    return result


class Teller:
    """Tells views; the names of closed sets are those of the rules."""

    def __init__(self, rules):
        self.rules = rules

    def view(self, index, view):
        address = f"view/{index}"
        head = told(
            ("index", index),
            ("address", address),
            ("name", Text(view.name)),
            ("readable", view.ok),
            ("version", f"{view.version >> 16}.{view.version & 0xFFFF}"),
            ("versionNumber", view.version),
            ("readerMessages", view.messages),
        )
        if not view.ok:
            return head | told(*nothing("plane", "metadata", "annotations"))
        return head | told(
            ("plane", told(
                ("origin", Singles(view.origin)),
                ("normal", Singles(view.normal)),
                ("xAxis", Singles(view.axis)),
            )),
            ("metadata", tell_map(view.metadata)),
            ("annotations", list(self.annotations(address, view.annotations))),
        )

    def annotations(self, address, annotations):
        """All levels, depth first, each annotation before its children."""
        for index, annotation in enumerate(annotations):
            yield from self.tree(f"{address}/annot/{index}", 0, None, annotation)

    def tree(self, address, depth, anchor, annotation):
        yield told(
            ("address", address),
            ("depth", depth),
            ("anchor", Name(anchor, self.rules.anchors)),
            ("isNull", annotation is None),
            *(self.annotation(annotation) if annotation else self.no_annotation()),
        )
        for index, child in enumerate(annotation.children if annotation else ()):
            yield from self.tree(f"{address}/sub/{index}", depth + 1, child.anchor, child.annotation)

    def annotation(self, annotation):
        style = annotation.style
        return [
            ("kind", Name(annotation.kind, self.rules.kinds)),
            ("name", Text(annotation.name)),
            ("position", Singles(annotation.position)),
            ("color", "#%02X%02X%02X" % annotation.color),
            ("style", style),
            ("frameShape", Name(style & SHAPE_BITS, self.rules.frames)),
            ("ignoreZTest", bool(style & self.rules.flags["isignoreztest"])),
            ("scaleLocked", bool(style & self.rules.flags["isscalelocked"])),
            ("frameLocked", bool(style & self.rules.flags["isframelocked"])),
            ("leaders", [self.leader(leader) for leader in annotation.leaders]),
            ("measures", [self.measure(measure) for measure in annotation.measures]),
            ("metadata", tell_map(annotation.metadata)),
            ("subAnnotations", len(annotation.children)),
            *(self.text(annotation) if annotation.kind == TEXT else self.no_text()),
            *(self.raster(annotation) if annotation.kind != TEXT else self.no_raster()),
        ]

    def no_annotation(self):
        """What is told where the place of an annotation is empty."""
        return [
            *nothing("kind", "kindNumber", "name", "nameHex", "position", "positionBits", "color", "style"),
            *nothing("frameShape", "frameShapeNumber", "ignoreZTest", "scaleLocked", "frameLocked"),
            *nothing("leaders", "measures", "metadata", "subAnnotations"),
            *self.no_text(),
            *self.no_raster(),
        ]

    def leader(self, leader):
        return told(("position", Singles(leader.position)), ("head", Name(leader.head, self.rules.heads)))

    def measure(self, measure):
        return told(
            ("pointA", Singles(measure.point_a)),
            ("pointB", Singles(measure.point_b)),
            ("offset", Singles(measure.offset)),
            ("arrowDirection", Name(measure.direction, self.rules.directions)),
        )

    def text(self, annotation):
        return [
            ("defaultTextProperties", self.properties(annotation.properties)),
            ("lines", [[self.run(run) for run in line] for line in annotation.lines]),
        ]

    def no_text(self):
        return nothing("defaultTextProperties", "lines")

    def raster(self, annotation):
        return [("rasterName", Text(annotation.raster_name)), ("size", Singles(annotation.size))]

    def no_raster(self):
        return nothing("rasterName", "rasterNameHex", "size", "sizeBits")

    def properties(self, properties):
        if properties is None:
            return None
        return told(
            ("font", Text(properties.font)),
            ("heightHundredths", properties.height),
            ("styleFlags", properties.style),
            ("bold", bool(properties.style & self.rules.styles["bold"])),
            ("italic", bool(properties.style & self.rules.styles["italic"])),
        )

    def run(self, run):
        return told(
            ("text", Text(run.text)),
            ("length", len(run.text)),
            ("kind", Name(run.type, RUN_KINDS)),
            ("properties", self.properties(run.properties)),
        )


KIND_NAMES = {
    type(None): "null",
    int: "integer",
    float: "real",
    bytes: "string",
    bool: "bool",
    dict: "map",
    list: "list",
}


def tell_map(entries):
    return [told(("key", Text(key)), *tell_value(entries[key])) for key in sorted(entries)]


def tell_value(value):
    return [("kind", KIND_NAMES[type(value)]), ("value", tell_content(value))]


def tell_content(value):
    if isinstance(value, dict):
        return tell_map(value)
    if isinstance(value, list):
        return [told(*tell_value(element)) for element in value]
    if isinstance(value, bytes):
        return Text(value)
    return Real(value) if isinstance(value, float) else value
