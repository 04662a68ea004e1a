"""Reads a JSON document in the variant form, as docs/formats/variant.md tells it."""

import re

from jsonReader import Broken, read_json
from model import RASTER, TEXT, Annotation, Child, Document, Finding, Leader, Measure, Properties, Run, View
from singles import round_single, single_bits
from variantValues import to_bool, to_bytes, to_metadata, to_number, to_point, to_string

VERSION = re.compile(r"([0-9]+)\.([0-9]+)")
COLOR_DIGITS = re.compile(r"[0-9A-Fa-f]*")
LINE_END = re.compile(r"\r\n|\r|\n")
LARGEST_PART = 0xFFFF
SEVERITIES = {"json.broken": "error", "json.too-deep": "error", "input.unknown-format": "error"}


class Lost(Exception):
    """The record that is being read is lost; whoever wanted it goes on without it."""


def read_document(data, rules):
    """Reads the bytes of a JSON document to a model.Document."""
    document = Document("json")
    try:
        text = read_json(data, rules.deepest_json)
    except Broken as broken:
        document.readable = False
        document.findings = [Finding(broken.code, SEVERITIES[broken.code], broken.offset)]
        return document
    document.findings = [Finding(*finding) for finding in text.findings]
    views = view_maps(text.value, rules)
    if views is None:
        document.readable = False
        document.findings.append(Finding("document.shape", "error"))
        return document
    if not views:
        document.findings.append(Finding("document.no-views", "warning"))
    document.views = [read_view(view, document, rules) for view in views]
    return document


def view_maps(root, rules):
    """The view maps of a document, None where it has the shape of none."""
    if isinstance(root, dict) and rules.keys["views"] in root:
        root = root[rules.keys["views"]]
        return root if isinstance(root, list) else None
    if isinstance(root, dict):
        return [root] if any(key in root for key in rules.view_keys) else None
    return root if isinstance(root, list) else None


def read_view(fields, document, rules):
    if not isinstance(fields, dict):
        document.findings.append(Finding("document.shape", "error"))
        return View(ok=False)
    view = View()
    _ViewReader(rules, view).read(fields)
    return view


class _ViewReader:
    """Reads one view; the messages of all its records go to the view in the order in which they come up."""

    def __init__(self, rules, view):
        self.rules = rules
        self.view = view

    def has(self, since="", until=""):
        return self.rules.has(self.view.version, since, until)

    def say(self, message, *words):
        if message:
            self.view.messages.append(self.rules.messages[message].format(*words))

    def read(self, fields):
        text = to_string(fields.get(self.rules.keys["version"]))
        self.view.version = parse_version(text)
        if not self.has(since="variantForm"):
            self.say("version", text)
            self.view.name = to_bytes(fields.get("name"))
            self.view.ok = False
            return
        try:
            self.rows(self.rules.rows["view"], fields, self.view)
        except Lost:
            self.view.ok = False

    def rows(self, rows, fields, record):
        """Reads the fields of a record in the order of their rows. Raises Lost where one of them costs the record."""
        for row in rows:
            if self.has(row.since, row.until):
                self.row(row, fields, record)

    def row(self, row, fields, record):
        if row.key not in fields and row.how not in ("lines", "children"):
            self.say(row.absent, row.key)
            if row.needed or row.absent and row.costs:
                raise Lost
            return
        value = getattr(self, "to_" + row.how)(fields.get(row.key), row, fields, record)
        if value is None:
            self.say(row.wrong, row.key)
            if row.costs:
                raise Lost
            return
        setattr(record, row.target, value)

    def to_text(self, value, *_):
        return to_bytes(value)

    def to_point(self, value, *_):
        return to_point(value)

    def to_map(self, value, *_):
        return to_metadata(value) if isinstance(value, dict) else None

    def to_head(self, value, *_):
        return number_of(self.rules.heads, value)

    def to_direction(self, value, *_):
        return number_of(self.rules.directions, value)

    def to_color(self, value, *_):
        """Six digits; those behind the first character that is none do not count."""
        text = to_string(value)
        if len(text.encode("utf-8")) != 6:
            return None
        digits = COLOR_DIGITS.match(text).group()
        number = int(digits or "0", 16)
        if number == 0 and text != "000000":
            return None
        return tuple(number.to_bytes(3, "big"))

    def to_size(self, value, row, *_):
        if not isinstance(value, list):
            return None
        if len(value) != 2:
            self.say("length", row.key)
            raise Lost
        return tuple(single_bits(to_number(element)) for element in value)

    def elements(self, value, row, read):
        """The records of a list up to the first of a wrong form, which has a message."""
        if not isinstance(value, list):
            return None
        records = []
        for element in value:
            try:
                records.append(read(element))
            except Lost:
                self.say("content", self.rules.element_keys[row.key])
                break
        return records

    def to_leaders(self, value, row, *_):
        return self.elements(value, row, self.leader)

    def leader(self, element):
        if not self.has(since="leaderMaps"):
            position = to_point(element)
            if position is None:
                raise Lost
            return Leader(position)
        return self.record(element, self.rules.rows["leader"], Leader())

    def to_measures(self, value, row, *_):
        return self.elements(value, row, lambda element: self.record(element, self.rules.rows["measure"], Measure()))

    def record(self, element, rows, record):
        if not isinstance(element, dict):
            raise Lost
        self.rows(rows, element, record)
        return record

    def to_texts(self, value, row, *_):
        return self.annotation_list(value, row, lambda fields: self.annotation(fields, TEXT))

    def to_rasters(self, value, row, *_):
        rasters = self.annotation_list(value, row, lambda fields: self.annotation(fields, RASTER))
        return None if rasters is None else self.view.annotations + rasters

    def to_annotations(self, value, row, *_):
        return self.annotation_list(value, row, self.typed_annotation)

    def annotation_list(self, value, row, read):
        if not isinstance(value, list):
            return None
        annotations = []
        for element in value:
            if isinstance(element, dict):
                self.keep(annotations, read, element)
            else:
                self.say("content", self.rules.element_keys[row.key])
        return annotations

    @staticmethod
    def keep(records, read, element):
        try:
            records.append(read(element))
        except Lost:
            pass

    def typed_annotation(self, fields):
        kind = number_of(self.rules.kinds, to_string(fields.get(self.rules.keys["type"])))
        if not kind:
            self.say("type")
            raise Lost
        return self.annotation(fields, kind)

    def annotation(self, fields, kind):
        annotation = Annotation(kind, style=self.style(fields))
        self.rows(self.rules.rows["annotation"], fields, annotation)
        self.rows(self.rules.rows["text" if kind == TEXT else "raster"], fields, annotation)
        return annotation

    def style(self, fields):
        frame = to_string(fields.get(self.rules.keys["frame"]))
        style = number_of(self.rules.frames, frame, self.rules.default_frame)
        return style | sum(bit for key, bit in self.rules.flags.items() if to_bool(fields.get(key)))

    def to_children(self, value, row, fields, _):
        """A child that is no map costs its parent; one that cannot be read is left out alone."""
        if row.key not in fields:
            value = fields.get(self.rules.keys["olderChildren"])
        children = []
        for element in value if isinstance(value, list) else []:
            if not isinstance(element, dict):
                raise Lost
            self.keep(children, self.child, element)
        return children

    def child(self, fields):
        annotation = self.typed_annotation(fields)
        anchor = fields.get(self.rules.keys["anchor"])
        exception = self.rules.anchor_texts.get(anchor) if isinstance(anchor, str) else None
        return Child(exception or number_of(self.rules.anchors, anchor), annotation)

    def to_properties(self, value, *_):
        return self.properties(value, Properties()) if isinstance(value, dict) else None

    def properties(self, fields, default):
        keys = self.rules.keys
        height = fields.get(keys["height"], default.height / 100)
        style = sum(
            bit
            for name, bit in self.rules.styles.items()
            if to_bool(fields.get(keys[name], bool(default.style & bit)))
        )
        font = fields.get(keys["font"])
        return Properties(
            to_bytes(font) if keys["font"] in fields else default.font, hundredths(to_number(height), self.rules), style
        )

    def to_lines(self, value, _row, fields, annotation):
        if not isinstance(value, list):
            text = to_string(fields.get(self.rules.keys["plainText"]))
            return [[Run(self.run_text(piece))] for piece in LINE_END.split(text)]
        lines = []
        for line in value:
            if isinstance(line, list):
                lines.append(self.line(line, annotation.properties))
            else:
                self.say("line")
        return lines

    def line(self, elements, default):
        runs = []
        for element in elements:
            if isinstance(element, dict):
                runs.append(self.run(element, default))
            else:
                self.say("segment")
        return runs

    def run(self, fields, default):
        properties = self.properties(fields, default)
        return Run(
            self.run_text(to_string(fields.get(self.rules.keys["runText"]))),
            number_of(self.rules.run_types, to_string(fields.get(self.rules.keys["runType"]))),
            None if properties == default else properties,
        )

    def run_text(self, text):
        return text.encode("utf-8")[: self.rules.longest_run]


def number_of(names, text, otherwise=0):
    """The number of a text in a closed set; a value that is no text is none of them."""
    return names.index(text) if isinstance(text, str) and text in names else otherwise


def parse_version(text):
    """The version as one number, 0 where the text is none."""
    match = VERSION.fullmatch(text)
    parts = [int(part) for part in match.groups()] if match else []
    if not parts or max(parts) > LARGEST_PART:
        return 0
    return parts[0] << 16 | parts[1]


def hundredths(height, rules):
    """A height in ems as it is kept; all of it is reckoned in single precision."""
    limited = min(max(round_single(height), 0.0), round_single(rules.largest_height))
    return int(round_single(limited * 100))
