"""Reads an SVG page: what stands in which annotation's group, and where on the page."""

import base64
import re
from dataclasses import dataclass, field
from xml.etree import ElementTree

from singles import IDENTITY, Box, apply, product

NUMBER = r"-?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?"


@dataclass
class Character:
    """A character of live text. The baseline is a point of the page, the size that of an em."""

    text: str
    size: float
    baseline: float
    start: tuple
    fill: str
    bold: bool
    italic: bool


@dataclass
class Shape:
    """A rectangle or path: its points on the page and its paint."""

    points: list
    fill: str
    stroke: str
    is_frame: bool = False


@dataclass
class Image:
    """An image's box on the page, and its bytes."""

    points: list
    data: bytes


@dataclass
class Group:
    """What stands in the group of one annotation, children aside."""

    name: str
    origin: tuple
    holder: str
    characters: list = field(default_factory=list)
    shapes: list = field(default_factory=list)
    images: list = field(default_factory=list)


@dataclass
class Leaders:
    """The lines of one annotation of the view, and the heads at their ends."""

    segments: list = field(default_factory=list)  # pairs of points
    strokes: set = field(default_factory=set)
    heads: list = field(default_factory=list)  # the points of each


def parse_transform(text):
    """The affine map of a `transform` attribute."""
    matrix = IDENTITY
    for name, arguments in re.findall(r"(\w+)\(([^)]*)\)", text or ""):
        v = [float(number) for number in re.findall(NUMBER, arguments)]
        matrix = product(matrix, {
            "matrix": lambda v=v: tuple(v),
            "translate": lambda v=v: (1, 0, 0, 1, v[0], v[1] if len(v) > 1 else 0),
            "scale": lambda v=v: (v[0], 0, 0, v[-1], 0, 0),
        }[name]())
    return matrix


def parse_path(text):
    """The points of path data in order; arcs count by their ends."""
    points = []
    for command, arguments in re.findall(r"([MLAZ])([^MLAZ]*)", text):
        v = [float(number) for number in re.findall(NUMBER, arguments)]
        if command != "Z":
            points += [(v[i - 2], v[i - 1]) for i in range(2 if command != "A" else 7, len(v) + 1, 7 if command == "A" else 2)]
    return points


def parse_box(element):
    """The corners of an element that has x, y, width and height."""
    x, y, width, height = (float(element.get(key, 0)) for key in ("x", "y", "width", "height"))
    return [(x, y), (x + width, y), (x + width, y + height), (x, y + height)]


def strip_direction(texts):
    """The characters without the controls that the page adds to force each span's direction."""
    if not all(re.fullmatch("[\u202d\u202e].*\u202c", text, re.DOTALL) for text in texts):
        return texts
    return [text[1:-1].removesuffix("\u200f") if text.endswith(" \u200f\u202c") else text[1:-1] for text in texts]


class Page:
    """One page. `groups` and `leaders` are by address; `problems` tells what cannot be told apart."""

    def __init__(self, text):
        self.groups, self.leaders, self.symbols, self.problems = {}, {}, {}, []
        root = ElementTree.fromstring(text)
        for element in root.iter():
            element.tag = element.tag.rpartition("}")[2]
        x, y, width, height = map(float, root.get("viewBox").split())
        self.box = Box([(x, y), (x + width, y + height)])
        self.title, self.address = (root.findtext("title") or "").strip("\n"), root.findtext("desc")
        for symbol in root.iter("symbol"):
            self.symbols[symbol.get("id")] = symbol[0].get("href")
        stray = Group("", (0, 0), "")
        for layer in root.findall("g"):
            read = self.read_leaders if layer.get("class") == "leaders" else self.read_item
            for element in layer:
                read(element, IDENTITY, {}, stray)
        if stray.characters or stray.shapes or stray.images:
            self.problems.append("items that belong to no annotation")

    def read_leaders(self, element, matrix, paint, _):
        """The leaders of one annotation."""
        leaders = self.leaders.setdefault(element.get("data-leaders-of"), Leaders())
        paint = inherit(paint, element)
        for child in element:
            own = product(matrix, parse_transform(child.get("transform")))
            if child.tag == "path":
                points = [apply(own, point) for point in parse_path(child.get("d"))]
                leaders.segments += zip(points[::2], points[1::2])
                leaders.strokes.add(inherit(paint, child)["stroke"])
            else:
                holder = Group("", (0, 0), "")
                self.read_children(child, own, inherit(paint, child), holder)
                leaders.heads += [shape.points for shape in holder.shapes]

    def read_item(self, element, matrix, paint, group):
        """An item of an annotation's content; `group` is the one that it stands in."""
        matrix = product(matrix, parse_transform(element.get("transform")))
        paint = inherit(paint, element)
        if element.tag == "g":
            self.read_children(element, matrix, paint, self.enter(element, matrix, group))
        elif element.tag == "text":
            self.read_text(element, matrix, paint, group)
        elif element.tag in ("image", "use"):
            reference = element.get("href")
            data = reference if element.tag == "image" else self.symbols[reference[1:]]
            points = [apply(matrix, point) for point in parse_box(element)]
            group.images.append(Image(points, base64.b64decode(data.partition(",")[2])))
        elif element.tag in ("rect", "path"):
            points = parse_box(element) if element.tag == "rect" else parse_path(element.get("d"))
            group.shapes.append(Shape([apply(matrix, point) for point in points], paint["fill"], paint["stroke"],
                                      element.get("class") == "border"))
        elif element.tag != "title":
            self.problems.append(f"an unknown element {element.tag}")

    def read_children(self, element, matrix, paint, group):
        """The items of a group."""
        for child in element:
            self.read_item(child, matrix, paint, group)

    def enter(self, element, matrix, outer):
        """The group that the element's content belongs to."""
        address = element.get("data-address")
        if address is None:
            return outer
        if address in self.groups:
            self.problems.append(f"two groups of {address}")
        holder, _, _ = address.rpartition("/sub/")
        if outer is not self.groups.get(holder) and holder:
            self.problems.append(f"{address} does not stand in {holder}")
        self.groups[address] = Group(element.get("data-name"), apply(matrix, (0, 0)), holder)
        return self.groups[address]

    def read_text(self, element, matrix, paint, group):
        """The characters of one baseline."""
        size = abs(matrix[0]) * float(element.get("font-size"))
        spans = element.findall("tspan")
        for span, text in zip(spans, strip_direction([span.text or "" for span in spans])):
            start = apply(matrix, (float(span.get("x")), 0.0))
            bold = span.get("font-weight") == "bold" or span.get("stroke-width") is not None
            italic = span.get("font-style") == "italic" or matrix[2] != 0
            fill = inherit(paint, span)["fill"]
            group.characters += [Character(text, size, start[1], start, fill, bold, italic) for text in text]


def inherit(paint, element):
    """Fill and stroke of an element within others."""
    return {key: element.get(key, paint.get(key)) for key in ("fill", "stroke")}
