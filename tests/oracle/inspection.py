"""Tells a model as `qvannot inspect --json --full` does (docs/inspect-json.md), with leaves that compare themselves.

A text stands for itself and for its `Hex` member, a list of singles for itself and for its `Bits` member.
"""

import re
from dataclasses import dataclass

from model import TEXT
from singles import double_bits, is_finite, is_number, single_bits, single_value

SHAPE_BITS = 15


def name_of(names, number):
    """The name beside a stored number, None beyond the set."""
    return names[number] if number < len(names) else None


def shortened(text):
    return re.sub("\ufffd+", "\ufffd", text)


@dataclass
class Text:
    """A text; where it is no UTF-8 its bytes stand in a member of their own."""

    data: bytes

    def members(self, key):
        try:
            yield key, self.data.decode("utf-8")
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
        if not all(is_finite(bits) for bits in self.bits):
            yield key + "Bits", [f"{bits:08x}" for bits in self.bits]


@dataclass
class Single:
    """One number: equal to the text of any number that reads back as the same single, zero without its sign."""

    bits: int

    def equals(self, found):
        if not is_finite(self.bits):
            return found is None
        return is_number(found) and (single_bits(float(found)) == self.bits or found == single_value(self.bits) == 0)


@dataclass
class Real:
    """A real of metadata; equal down to its bits, but for the sign of zero."""

    value: float

    def members(self, key):
        finite = abs(self.value) != float("inf") and self.value == self.value
        yield key, self if finite else None
        if not finite:
            yield key + "Bits", f"{double_bits(self.value):016x}"

    def equals(self, found):
        return is_number(found) and (float(found) == self.value)


def told(*members):
    """An object of members; a text and numbers become as many members as they need."""
    result = {}
    for key, value in members:
        if isinstance(value, (Text, Singles, Real)):
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
            ("view", index),
            ("address", address),
            ("name", Text(view.name)),
            ("ok", view.ok),
            ("version", view.version),
            ("versionText", f"{view.version >> 16}.{view.version & 0xFFFF}"),
            ("messages", view.messages),
        )
        if not view.ok:
            return head
        return head | told(
            ("planeOrigin", Singles(view.origin)),
            ("planeNormal", Singles(view.normal)),
            ("planeXAxis", Singles(view.axis)),
            ("metadata", tell_map(view.metadata)),
            ("annotations", list(self.annotations(address, view.annotations))),
        )

    def annotations(self, address, annotations):
        """All levels, depth first, each annotation before its children."""
        for index, annotation in enumerate(annotations):
            yield from self.tree(f"{address}/annot/{index}", 0, None, annotation)

    def tree(self, address, depth, anchor, annotation):
        place = [("address", address), ("depth", depth)]
        if anchor is not None:
            place += [("anchor", anchor), ("anchorName", name_of(self.rules.anchors, anchor))]
        yield told(*place, ("isNull", annotation is None), *(self.annotation(annotation) if annotation else ()))
        for index, child in enumerate(annotation.children if annotation else ()):
            yield from self.tree(f"{address}/sub/{index}", depth + 1, child.anchor, child.annotation)

    def annotation(self, annotation):
        style = annotation.style
        return [
            ("kind", annotation.kind),
            ("kindName", self.rules.kinds[annotation.kind]),
            ("name", Text(annotation.name)),
            ("position", Singles(annotation.position)),
            ("color", "#%02X%02X%02X" % annotation.color),
            ("style", style),
            ("frameShape", style & SHAPE_BITS),
            ("frameShapeName", name_of(self.rules.frames, style & SHAPE_BITS)),
            ("ignoreZTest", bool(style & self.rules.flags["isignoreztest"])),
            ("scaleLocked", bool(style & self.rules.flags["isscalelocked"])),
            ("frameLocked", bool(style & self.rules.flags["isframelocked"])),
            ("leaders", [self.leader(leader) for leader in annotation.leaders]),
            ("measures", [self.measure(measure) for measure in annotation.measures]),
            ("metadata", tell_map(annotation.metadata)),
            ("subAnnotations", len(annotation.children)),
            *(self.text(annotation) if annotation.kind == TEXT else self.raster(annotation)),
        ]

    def leader(self, leader):
        return told(
            ("position", Singles(leader.position)),
            ("head", leader.head),
            ("headName", name_of(self.rules.heads, leader.head)),
        )

    def measure(self, measure):
        return told(
            ("pointA", Singles(measure.point_a)),
            ("pointB", Singles(measure.point_b)),
            ("offset", Singles(measure.offset)),
            ("arrowDirection", measure.direction),
            ("arrowDirectionName", name_of(self.rules.directions, measure.direction)),
        )

    def text(self, annotation):
        return [
            ("defaultTextProperties", self.properties(annotation.properties)),
            ("lines", [[self.run(run) for run in line] for line in annotation.lines]),
        ]

    def raster(self, annotation):
        return [("rasterName", Text(annotation.raster_name)), ("size", Singles(annotation.size))]

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
            ("type", run.type),
            ("typeName", name_of(self.rules.run_types, run.type)),
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
