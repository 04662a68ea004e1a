"""Writes object streams by the layouts of the rules: whatever a model holds, in any version."""

import struct

from model import NULL, TEXT
from recordReader import LAYOUTS

SCALARS = {bool: (4, "<B"), int: (1, "<q"), float: (2, "<d")}


def counted(data):
    return struct.pack("<i", len(data)) + data


def container(version, objects, count=None):
    """A document of objects that were made by `entry`; `count` announces another number of them."""
    return b"qvStream" + struct.pack("<II", version, len(objects) if count is None else count) + b"".join(objects)


def entry(identifier, type_name, payload, size=None):
    """One object; `size` announces another size of its payload."""
    head = struct.pack("<I", identifier) + counted(type_name)
    return head + struct.pack("<Q", len(payload) if size is None else size) + payload


def metadata_payload(links, name=b"", metadata_type=5):
    return counted(name) + struct.pack("<II", metadata_type, len(links)) + struct.pack(f"<{len(links)}I", *links)


def map_bytes(entries):
    pieces = (counted(key) + value_bytes(value) for key, value in entries)
    return struct.pack("<I", len(entries)) + b"".join(pieces)


def value_bytes(value):
    """A value of a variant map; a map is a list of (key, value) pairs here, so that keys may be equal."""
    if value is None:
        return b"\0"
    if isinstance(value, bytes):
        return b"\3" + counted(value)
    if isinstance(value, dict):
        return b"\x0a" + map_bytes(list(value.items()))
    if isinstance(value, list):
        return b"\x0b" + struct.pack("<I", len(value)) + b"".join(map(value_bytes, value))
    kind, form = SCALARS[type(value)]
    return bytes([kind]) + struct.pack(form, value)


class RecordWriter:
    """Writes views by the layouts; fields that a version has not are left out."""

    def __init__(self, version, rules):
        self.version = version
        self.rules = rules

    def view(self, view):
        return self.record("view", view)

    def record(self, layout, record):
        fields = self.rules.layouts[layout]
        present = (field for field in fields if self.rules.has(self.version, field.since, field.until))
        return b"".join(getattr(self, "write_" + field.how)(field.target, record) for field in present)

    def list(self, records, write):
        return struct.pack("<I", len(records)) + b"".join(map(write, records))

    def of_kind(self, view, target):
        kind = {"texts": "text", "rasters": "raster"}[target]
        return [one for one in view.annotations if LAYOUTS[one.kind] == kind]

    def write_string(self, target, record):
        return counted(getattr(record, target))

    def write_byte(self, target, record):
        return bytes([getattr(record, target)])

    def write_point(self, target, record):
        return struct.pack("<3I", *getattr(record, target))

    def write_size(self, target, record):
        return struct.pack("<2I", *getattr(record, target))

    def write_color(self, target, record):
        return bytes(getattr(record, target))

    def write_frame(self, target, record):
        return bytes([getattr(record, target) & 1])

    def write_map(self, target, record):
        return map_bytes(list(getattr(record, target).items()))

    def write_count(self, target, view):
        return struct.pack("<I", len(self.of_kind(view, target)))

    def write_texts(self, target, view):
        return b"".join(map(self.annotation, self.of_kind(view, target)))

    write_rasters = write_texts

    def annotation(self, annotation):
        older = annotation.kind == TEXT and not self.rules.has(self.version, since="shared")
        return self.record("olderText" if older else LAYOUTS[annotation.kind], annotation)

    def write_shared(self, _, record):
        return self.record("shared", record)

    def write_leaders(self, target, record):
        return self.list(getattr(record, target), lambda leader: self.record("leader", leader))

    def write_measures(self, target, record):
        return self.list(getattr(record, target), lambda measure: self.record("measure", measure))

    def write_children(self, target, record):
        return self.list(getattr(record, target), lambda child: self.record("child", child))

    def write_annotation(self, target, child):
        annotation = getattr(child, target)
        return bytes([annotation.kind]) + self.annotation(annotation) if annotation else bytes([NULL])

    def write_properties(self, target, record):
        return self.record("properties", getattr(record, target))

    def write_halves(self, targets, record):
        return struct.pack("<HH", *(getattr(record, target) for target in targets.split()))

    def write_lines(self, target, record):
        return self.list(getattr(record, target), lambda line: self.list(line, lambda run: self.record("run", run)))

    def write_text(self, target, run):
        text = getattr(run, target)
        return struct.pack("<H", len(text)) + text

    def write_olderText(self, target, run):
        return counted(getattr(run, target))

    def write_ownProperties(self, target, run):
        return b"\1" + self.write_properties(target, run) if getattr(run, target) else b"\0"
