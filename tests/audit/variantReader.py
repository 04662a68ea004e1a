"""Reads a document of the variant form, independently of the tool, and notes what no reader can take from it."""

import json
import math
import re
from dataclasses import replace

from legacyModel import (ANCHORS, ARROWS, ERROR, HEADS, OPTIONAL, RUN_TYPES, SHAPES, SUBSCRIPT, SUPERSCRIPT, WARNING,
                         Annotation, Loss, Properties, Run, View)
from singles import single

MAX_RUN = 65535
MAX_EMS = single(655.35)
READING = ("reader.record-lost", "reader.message", "reader.key-ignored", "reader.value-inexact")
VALUES = ("reader.value-unknown",)
ONE_LIST, VIEW_METADATA, OLDEST = (6, 22), (6, 27), (6, 17)


def is_number(value):
    """Integers and reals; a bool is neither."""
    return isinstance(value, (int, float)) and not isinstance(value, bool)


def to_text(value):
    """The text that stands for a value of any kind."""
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, float):
        return repr(value).removesuffix(".0")
    if isinstance(value, str):
        return re.sub("[\ud800-\udfff]", "\ufffd", value)
    return str(value) if isinstance(value, int) else ""


def to_real(value):
    """The number that stands for a value of any kind."""
    if isinstance(value, str):
        is_decimal = re.fullmatch(r"-?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?", value)
        number = float(value) if is_decimal else 0.0
        return number if abs(number) < float("inf") else 0.0
    return float(value) if isinstance(value, (int, float)) else 0.0


def to_bool(value):
    """Whether a value of any kind means yes."""
    return value == "true" or to_real(value) != 0.0


def to_point(value):
    """Three numbers of single precision; None for anything else."""
    if not (isinstance(value, list) and len(value) == 3 and all(map(is_number, value))):
        return None
    return tuple(map(single, value))


def to_height(ems):
    """Hundredths of an em, by the arithmetic of single precision."""
    ems = single(ems)
    ems = MAX_EMS if ems > MAX_EMS else max(ems, 0.0)
    return int(single(ems * 100.0)) & 0xFFFF


def to_version(text):
    """(major, minor); (0, 0) for a text that is no version."""
    match = re.fullmatch(r"(\d{1,4})\.(\d{1,4})", text)
    return (int(match[1]), int(match[2])) if match else (0, 0)


def cut(text):
    """The characters that a run can hold; what is cut in two counts as one that is broken."""
    return text.encode("utf-8")[:MAX_RUN].decode("utf-8", "replace")


def has_records(value):
    """Whether a list holds anything that could be an annotation."""
    return isinstance(value, list) and len(value) > 0


class ViewReader:
    """Reads one view map."""

    def __init__(self, record, address):
        self.record = record
        self.version = to_version(to_text(record.get("ver", "")))
        self.view = View(address, to_text(record.get("name", "")))
        self.losses = []

    def lose(self, address, what, severity=ERROR, codes=READING, word=""):
        """Notes what is not read; the word is in the text of a finding that says so."""
        self.losses.append(Loss(address, what, severity, codes, word))

    def read_point(self, value, address, key):
        """Three numbers; those that single precision does not hold are lost."""
        point = to_point(value)
        if point and not all(map(math.isfinite, point)):
            self.lose(address, f"a number of '{key}'", word=f"'{key}'")
        return point

    def read(self):
        """The view; its `refusal` is set where it cannot be read."""
        refusal = self.find_refusal()
        if refusal:
            self.view.refusal = refusal
            self.lose(self.view.address, f"the view: {refusal}")
            return self.view
        self.read_plane()
        self.read_metadata()
        for key, kind in self.list_keys():
            self.read_annotations(self.record[key], kind)
        return self.view

    def list_keys(self):
        """The keys of the lists that this version has, each with the kind of its elements where that is fixed."""
        if self.version >= ONE_LIST:
            return [("annotations", None)]
        return [("textannotations", "text"), ("rasterannotations", "raster")]

    def find_refusal(self):
        """Why the view is refused; None when it is not."""
        if self.version < OLDEST:
            return "invalid version"
        for key, _ in self.list_keys():
            if key not in self.record:
                return f"missing '{key}' field"
            if not isinstance(self.record[key], list):
                return f"invalid '{key}' field"
        return None

    def read_plane(self):
        """Origin, normal and X axis."""
        plane = list(self.view.plane)
        for i, key in enumerate(("origin", "normal", "axis")):
            if self.record.get(key) is None:
                continue
            point = self.read_point(self.record[key], self.view.address, key)
            if point is None:
                self.lose(self.view.address, f"the plane's {key}", word=f"'{key}'")
            plane[i] = point or plane[i]
        self.view.plane = tuple(plane)

    def read_metadata(self):
        """The keys of the view's metadata, and what this version has no place for."""
        metadata = self.record.get("metadata")
        if self.version >= VIEW_METADATA:
            self.view.metadata = sorted(metadata) if isinstance(metadata, dict) else []
            if not isinstance(metadata, dict):
                self.lose(self.view.address, "the view's metadata", WARNING)
        elif isinstance(metadata, dict) and metadata:
            self.lose(self.view.address, "the view's metadata", WARNING)
        for key in {"annotations", "textannotations", "rasterannotations"} - {key for key, _ in self.list_keys()}:
            if has_records(self.record.get(key)):
                self.lose(self.view.address, f"all of '{key}'")

    def read_annotations(self, records, kind):
        """Those of one list that can be read get the next addresses."""
        for record in records:
            address = f"{self.view.address}/annot/{len(self.view.annotations)}"
            annotation = self.read_annotation(record, address, self.view.address, kind)
            if annotation is not None:
                self.view.annotations.append(annotation)

    def read_annotation(self, record, address, holder, kind=None):
        """None for a record that is passed over."""
        if isinstance(record, dict):
            kind = kind or to_text(record.get("type", ""))
        if not isinstance(record, dict) or not self.is_readable(record, kind):
            name = to_text(record.get("name", "")) if isinstance(record, dict) else ""
            self.lose(holder, f"the annotation record '{name}' of {holder}", word="was not read")
            return None
        annotation = Annotation(address, self.read_name(record, address))
        self.read_shared(record, annotation)
        if kind == "text":
            self.read_text(record, annotation)
        else:
            annotation.raster = to_text(record.get("rastername", ""))
            self.read_size(record.get("sizeem", (1.0, 1.0)), annotation)
        return annotation

    def read_name(self, record, address):
        """A list or a map has no text."""
        if isinstance(record.get("name"), (list, dict)):
            self.lose(address, "the name", word="'name'")
        return to_text(record.get("name", ""))

    def read_size(self, sides, annotation):
        """Two values of any kind; what is no number is 0."""
        annotation.size = tuple(single(to_real(side)) for side in sides)
        is_said = all(is_number(side) or isinstance(side, bool) or to_real(side) != 0.0 for side in sides)
        if not is_said or not all(map(math.isfinite, annotation.size)):
            self.lose(annotation.address, "a size", word="'sizeem'")

    def is_readable(self, record, kind):
        """Whether nothing in the record costs it as a whole."""
        if kind not in ("text", "raster"):
            return False
        if "position" in record and to_point(record["position"]) is None:
            return False
        children = self.children_of(record)
        if isinstance(children, list) and not all(isinstance(child, dict) for child in children):
            return False
        size = record.get("sizeem", (1.0, 1.0))
        return kind == "text" or (isinstance(size, (list, tuple)) and len(size) == 2)

    def children_of(self, record):
        """The value that this version takes children from; None for none."""
        if self.version < ONE_LIST:
            return None
        return record["children"] if "children" in record else record.get("childs")

    def read_shared(self, record, annotation):
        """What texts and rasters have in common."""
        self.read_color(record, annotation)
        if "position" in record:
            annotation.position = self.read_point(record["position"], annotation.address, "position")
        annotation.leaders = self.read_list(record, "leaders", annotation, self.read_leader)
        annotation.measures = self.read_list(record, "measures", annotation, self.read_measure)
        annotation.shape = self.read_choice(record, "frameshape", SHAPES, annotation, default=1)
        self.read_children(record, annotation)
        self.read_keys(record, annotation)

    def read_color(self, record, annotation):
        """Six hexadecimal digits; how others are drawn is left open, but has to be said."""
        if record.get("color") is None:
            return
        text = to_text(record["color"])
        if re.fullmatch("[0-9A-Fa-f]{6}", text):
            annotation.color = tuple(bytes.fromhex(text))
        else:
            annotation.color = None
            self.lose(annotation.address, "the colour", WARNING, word="color")

    def read_choice(self, record, key, names, annotation, default=0):
        """The number of a name; an unknown one has to be reported."""
        text = to_text(record.get(key, ""))
        if text in names and text:
            return names[text] if isinstance(names, dict) else names.index(text)
        if text:
            self.lose(annotation.address, f"the {key} '{text}'", WARNING, VALUES, f"'{key}'")
        return default

    def read_list(self, record, key, annotation, read_element):
        """The elements up to the first one that cannot be read."""
        elements = record.get(key, [])
        if not isinstance(elements, list):
            self.lose(annotation.address, key, OPTIONAL if elements is None else ERROR, word=key)
            return []
        read = []
        for element in elements:
            value = read_element(element, annotation)
            if value is None:
                self.lose(annotation.address, f"{len(elements) - len(read)} of {len(elements)} {key}", word="leaders")
                break
            read.append(value)
        return read

    def read_leader(self, element, annotation):
        """(end point, head); None for another form."""
        if self.version < ONE_LIST:
            point = self.read_point(element, annotation.address, "pos")
            return point and (point, 0)
        if not isinstance(element, dict):
            return None
        point = self.read_point(element.get("pos"), annotation.address, "pos")
        if point is None:
            self.lose(annotation.address, "where a leader runs to", WARNING if element.get("pos") is None else ERROR,
                      word="'pos'")
        head = self.read_choice(element, "head", HEADS, annotation)
        return point or (0.0, 0.0, 0.0), head

    def read_measure(self, element, annotation):
        """(A, B, offset, arrow direction); None for another form."""
        points = [to_point(element.get(key)) for key in "ABV"] if isinstance(element, dict) else [None]
        if None in points:
            return None
        for key in "ABV":
            self.read_point(element[key], annotation.address, key)
        arrow = 0
        if self.version >= ONE_LIST:
            arrow = self.read_choice(element, "arrowdir", ARROWS, annotation)
        elif "arrowdir" in element:
            self.lose(annotation.address, "an arrow direction", WARNING, word="arrowdir")
        return *points, arrow

    def read_children(self, record, annotation):
        """Those that can be read, each with its anchor."""
        children = self.children_of(record)
        if children is None:
            self.lose(annotation.address, "children that are null", OPTIONAL, word="sub-annotation")
            unread = [record[key] for key in ("children", "childs") if has_records(record.get(key))]
            if unread:
                self.lose(self.view.address, f"the children of {annotation.address}")
        elif not isinstance(children, list):
            self.lose(annotation.address, "all children", word="sub-annotation")
            children = None
        elif "children" in record and has_records(record.get("childs")):
            self.lose(self.view.address, f"all of 'childs' of {annotation.address}")
        for child in children or []:
            address = f"{annotation.address}/sub/{len(annotation.children)}"
            read = self.read_annotation(child, address, annotation.address)
            if read is not None:
                annotation.children.append((self.read_choice(child, "anchorloc", ANCHORS, read), read))

    def read_keys(self, record, annotation):
        """The keys of the annotation's metadata."""
        metadata = record.get("metadata", {})
        if self.version >= ONE_LIST and isinstance(metadata, dict):
            annotation.metadata = sorted(metadata)
        elif metadata:
            self.lose(annotation.address, "metadata", WARNING)

    def read_text(self, record, annotation):
        """Lines of runs, or plain text."""
        default = Properties()
        properties = {} if record.get("defaulttextprop") is None else record["defaulttextprop"]
        if isinstance(properties, dict):
            default = self.read_properties(properties, default, annotation)
        else:
            self.lose(annotation.address, "the default properties", WARNING, word="defaulttextprop")
        lines = record.get("lines")
        if isinstance(lines, list):
            annotation.lines = [self.read_line(line, default, annotation) for line in lines if isinstance(line, list)]
            if len(annotation.lines) < len(lines):
                self.lose(annotation.address, "lines")
            return
        if "lines" in record:
            self.lose(annotation.address, "lines", OPTIONAL if lines is None else ERROR)
        text = self.read_characters(record, annotation)
        pieces = re.split("\r\n|\r|\n", text)
        annotation.lines = [[Run(self.cut(piece, annotation), 0, default)] for piece in pieces]

    def read_properties(self, record, base, annotation):
        """Properties on top of others."""
        read = replace(base)
        ems = to_real(record["heightem"]) if "heightem" in record else single(base.height / 100.0)
        read.height = to_height(ems)
        if single(ems) > MAX_EMS:
            self.lose(annotation.address, "a height", WARNING, word="height")
        read.bold = to_bool(record["bold"]) if "bold" in record else base.bold
        read.italic = to_bool(record["italic"]) if "italic" in record else base.italic
        read.font = to_text(record["font"]) if "font" in record else base.font
        return read

    def read_line(self, line, default, annotation):
        """The runs of a line."""
        runs = []
        for record in line:
            if not isinstance(record, dict):
                self.lose(annotation.address, "a run")
                continue
            kind = self.read_choice(record, "type", dict(normal=0, sub=SUBSCRIPT, sup=SUPERSCRIPT), annotation)
            text = self.cut(self.read_characters(record, annotation), annotation)
            runs.append(Run(text, kind, self.read_properties(record, default, annotation)))
        return runs

    def read_characters(self, record, annotation):
        """The text of a run or of an annotation."""
        value = record.get("text", "")
        if isinstance(value, (dict, list)):
            self.lose(annotation.address, "a text that is none")
        return to_text(value)

    def cut(self, text, annotation):
        """What a run can hold of it."""
        kept = cut(text)
        if len(text.encode("utf-8")) > MAX_RUN:
            self.lose(annotation.address, "the end of a text")
        return kept


def read_document(path):
    """The views of a file, and what is not read."""
    document = json.loads(path.read_bytes().decode("utf-8", "replace"))
    if isinstance(document, dict):
        document = document.get("views", [document]) if "ver" not in document else [document]
    views, losses = [], []
    for i, record in enumerate(document):
        reader = ViewReader(record, f"view/{i}")
        views.append(reader.read())
        losses += reader.losses
    return views, losses
