"""Reads the variant maps of an object stream."""

import struct

from payload import BadMap

SMALLEST_ENTRY = 5


class MapReader:
    """Reads one outermost map. A fault ends it at once; what was read until then stays."""

    def __init__(self, payload, rules):
        self.payload = payload
        self.rules = rules

    def read(self):
        entries = {}
        try:
            self.entries(entries, 1)
        except BadMap:
            self.payload.report("stream.refused")
        return entries

    def number(self, form):
        piece = self.payload.take(struct.calcsize(form))
        if piece is None:
            raise BadMap
        return struct.unpack(form, piece)[0]

    def string(self):
        length = self.number("<i")
        if length > self.payload.left:
            raise BadMap
        return self.payload.take(max(length, 0))

    def count(self, smallest):
        count = self.number("<I")
        if count * smallest > self.payload.left:
            raise BadMap
        return count

    def entries(self, entries, level):
        for _ in range(self.count(SMALLEST_ENTRY)):
            key = self.string()
            self.value(level, lambda value, key=key: entries.update({key: value}))

    def values(self, values, level):
        for _ in range(self.count(1)):
            self.value(level, values.append)

    def value(self, level, keep):
        """Reads one value and keeps it; a map or list that a fault ends is kept with what it has so far."""
        kind = self.number("<B")
        kinds = self.rules.value_kinds
        if kind == kinds["map"]:
            self.nested({}, self.entries, level, keep)
        elif kind == kinds["list"]:
            self.nested([], self.values, level, keep)
        else:
            keep(self.scalar(kind, kinds))

    def nested(self, content, read, level, keep):
        if level == self.rules.deepest_map:
            raise BadMap
        try:
            read(content, level + 1)
        finally:
            keep(content)

    def scalar(self, kind, kinds):
        if kind == kinds["null"]:
            return None
        if kind == kinds["integer"]:
            return self.number("<q")
        if kind == kinds["real"]:
            return self.number("<d")
        if kind == kinds["string"]:
            return self.string()
        if kind == kinds["bool"]:
            return self.number("<B") != 0
        raise BadMap
