"""Damages documents: their bytes as a failing disk or a hostile hand does, and the values and structure of JSON."""

import json
import struct

from jsonWriter import Literal, Map

TELLING_NUMBERS = (0, 1, 2, 4, 5, 10, 11, 100, 255, 256, 257, 65535, 65536, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF)
TELLING_BYTES = (0, 1, 2, 3, 10, 11, 16, 0x7F, 0x80, 0xFF)
JSON_PIECES = rb"""{ } [ ] , : " \ \ud800 e . - 0 tru null /**/""".split() + [b" ", b"\0", b"\xff"]


class Damage:
    """Damage by dice; the same dice do the same damage."""

    def __init__(self, random):
        self.random = random

    def bytes(self, data, others):
        """The data with one to three faults; `others` are documents of the same encoding to splice with."""
        kinds = [self.truncate, self.flip, self.overwrite, self.delete, self.repeat, self.insert, self.inflate]
        for _ in range(self.random.choice((1, 1, 1, 2, 3))):
            if others and self.random.random() < 0.1:
                data = self.splice(data, self.random.choice(others))
            else:
                data = self.random.choice(kinds)(data)
        return data

    def place(self, data):
        return self.random.randint(0, len(data))

    def truncate(self, data):
        return data[: self.place(data)]

    def flip(self, data):
        return self.change(data, lambda byte: byte ^ 1 << self.random.randrange(8))

    def overwrite(self, data):
        return self.change(data, lambda _: self.random.choice((*TELLING_BYTES, self.random.randrange(256))))

    def change(self, data, altered):
        if not data:
            return data
        at = self.random.randrange(len(data))
        return data[:at] + bytes([altered(data[at])]) + data[at + 1 :]

    def delete(self, data):
        at = self.place(data)
        return data[:at] + data[at + self.random.choice((1, 1, 2, 4, 8, 40)) :]

    def repeat(self, data):
        start = self.place(data)
        end = start + self.random.choice((1, 4, 12, 60))
        return data[:end] + data[start:]

    def insert(self, data):
        at = self.place(data)
        noise = self.random.randbytes(self.random.randint(1, 9))
        return data[:at] + self.random.choice((noise, self.random.choice(JSON_PIECES))) + data[at:]

    def inflate(self, data):
        """Raises or lowers a number that stands where a count may stand, or puts a telling one there."""
        small = [at for at in range(0, len(data) - 3) if data[at + 1 : at + 4] == b"\0\0\0"]
        if not small:
            return self.flip(data)
        at = self.random.choice(small)
        number = max(0, data[at] + self.random.choice((-2, -1, 1, 2, 20)))
        if self.random.random() < 0.3:
            number = self.random.choice(TELLING_NUMBERS)
        return data[:at] + struct.pack("<I", number) + data[at + 4 :]

    def splice(self, data, other):
        return data[: self.place(data)] + other[self.place(other) :]

    def tree(self, root, anything):
        """The JSON value with one to four of its values or keys changed; `anything` makes a value of any kind."""
        for _ in range(self.random.choice((1, 1, 2, 4))):
            holders = [holder for holder in containers(root) if slots(holder)]
            if not holders:
                return anything()
            self.change_slot(self.random.choice(holders), root, anything)
        return root

    def change_slot(self, holder, root, anything):
        kinds = (self.replace, self.replace, self.drop, self.double, self.swap, self.wrap, self.move, self.rename)
        self.random.choice(kinds)(slots(holder), self.random.randrange(len(slots(holder))), root, anything)

    def replace(self, entries, index, _root, anything):
        put(entries, index, anything())

    def drop(self, entries, index, *_):
        del entries[index]

    def double(self, entries, index, _root, anything):
        entries.insert(self.random.randint(0, len(entries)), entries[index])
        if self.random.random() < 0.5:
            put(entries, index, anything())

    def swap(self, entries, index, *_):
        other = self.random.randrange(len(entries))
        one, two = get(entries, index), get(entries, other)
        put(entries, index, two)
        put(entries, other, one)

    def wrap(self, entries, index, *_):
        value = get(entries, index)
        for _ in range(self.random.choice((1, 1, 1, 2, 60, 500, 995))):
            value = [value] if self.random.random() < 0.5 else Map([("k", value)])
        put(entries, index, value)

    def move(self, entries, index, root, _):
        """Another value of the document in place of this one; never one that holds it, since that would have no end."""
        values = [get(slots(holder), at) for holder in containers(root) for at in range(len(slots(holder)))]
        leaves = [value for value in values if not isinstance(value, (Map, list))]
        put(entries, index, self.random.choice(leaves or [None]))

    def rename(self, entries, index, root, _):
        if isinstance(entries[index], tuple):
            keys = [entry[0] for holder in containers(root) if isinstance(holder, Map) for entry in holder.entries]
            entries[index] = (self.random.choice(keys), entries[index][1])


def slots(holder):
    """What a map or list holds, as a list to change: entries of (key, value), or values."""
    return holder.entries if isinstance(holder, Map) else holder


def get(entries, index):
    return entries[index][1] if isinstance(entries[index], tuple) else entries[index]


def put(entries, index, value):
    entries[index] = (entries[index][0], value) if isinstance(entries[index], tuple) else value


def containers(root):
    """All maps and lists of a value, itself included, each before what it holds."""
    found = [root] if isinstance(root, (Map, list)) else []
    for holder in found:
        inner = (get(slots(holder), index) for index in range(len(slots(holder))))
        found += [value for value in inner if isinstance(value, (Map, list))]
    return found


def parse_tree(data):
    """A sound JSON text as a value that can be damaged; numbers keep their spelling."""
    return json.loads(data, object_pairs_hook=Map, parse_int=Literal, parse_float=Literal)
