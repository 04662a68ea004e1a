"""Makes JSON documents in the variant form: sound ones, and ones in which some values are of the wrong kind or form."""

from jsonWriter import Literal, Map, write_json
from rules import Rules

RULES = Rules()
MINORS = [17, 17, 18, 19, 20, 21, 21, 22, 22, 22, 23, 24, 25, 26, 26, 27, 27, 27, 27, 28]
ODD_VERSIONS = """6.16 6.13 5.99 7.0 6.022 06.27 6.65535 6.65536 65535.0 65536.27 6 6. .27 6.27.1 +6.27 -6.27 6.x 6.27a
    0x6.27 99999999999999999999.1 6.4294967323""".split() + ["", " 6.27", "6.27 ", "6. 27", "6.27\0", "6,27"]
NUMBERS = """0 1 -1 5 0.5 -0.25 12.75 100 0.1 -0.0 -0 1e0 1E+2 3e-3 2.5e-1 1e300 -1e300 1e39 3.4028235677973366e38
    3.4028235677973365e38 1e-40 1e-46 1.1754943508222875e-38 16777217 16777219.0 9007199254740993 0.30000001192092896
    9223372036854775807 9223372036854775808 -9223372036854775808 -9223372036854775809 123456789012345678901234567890
    1.7976931348623157e308 4.9e-324 1e-400 0.33333333333333333333333333 1.0000000000000000000000001
    100000000000000000000.5 655.34 655.345 655.35 655.36 65536 0.53 1.05 0.01 0.009999 0.0149 1e-3""".split()
STRING_NUMBERS = """0 1 -1 1.5 .5 5. 1e2 1E-2 -2.5 0x10 +1 1,5 inf nan infinity 1e 1e400 -1e400 1e-400 e5 . - 00
    007 1_000 ٣""".split() + ["", " 1", "1 ", "1\0"]
LETTERS = list('aBz09 .-éøΩ⌀±中"\\/<&\x7f\x85\u2028\uffff\ufffd\U0001F600\U00010000')
ENDS = ["\n", "\r", "\r\n", "\n\r", "\n\n"]
CONTROLS = ["\0", "\x01", "\t", "\x1b", "\b", "\f"]
HALVES = ["\ud800", "\udfff", "\ud83d"]
COLORS = """000000 ffffff FFFFFF 12aBcD 00000g 12zzzz 0x1234 -12345 +12345 12345 1234567 000012 00000a fffffé
    zzzzzz""".split() + ["", " 12345", "12 456", "12345\0"]
UNKNOWN_TEXTS = ["", "zz", "Circle", "circle ", "none", "normal", "rb", "TEXT", "text\0", "5", "true"]
UNKNOWN_KEYS = "extra Name pos childs anchorloc ver type text A metadata annotations".split() + [""]
CLOSED_SETS = (RULES.frames, RULES.heads, RULES.directions, RULES.anchors, RULES.run_types, RULES.kinds, UNKNOWN_TEXTS)


class VariantDocuments:
    """A source of JSON documents; the same dice give the same documents."""

    def __init__(self, random):
        self.random = random
        self.oddness = 0.0
        self.version = (6, 27)
        self.room = 0

    def document(self):
        """The value of a document, and its text as bytes."""
        self.oddness = self.random.choice((0, 0, 0.01, 0.03, 0.1, 0.3))
        self.room = self.random.choice((3, 10, 30))
        root = self.root()
        text = write_json(root, self.random)
        return root, (self.mark() + text).encode("utf-8")

    def mark(self):
        return "\ufeff" if self.odd() and self.random.random() < 0.1 else ""

    def odd(self):
        return self.random.random() < self.oddness

    def root(self):
        if self.odd():
            return self.pick(self.any(), [self.any()], Map([("views", self.any())]), Map([]), [], self.view())
        views = [self.any() if self.odd() else self.view() for _ in range(self.random.choice((0, 1, 1, 1, 2, 3)))]
        beside = [("extra", self.any())] if self.odd() else []
        return self.pick(Map(beside + [("views", views)]), views, views[0] if views else Map([("views", views)]))

    def pick(self, *values):
        return self.random.choice(values)

    # Values of every kind

    def any(self, depth=0):
        """A value of any kind, whatever is wanted where it stands."""
        kinds = [self.constant, self.number, self.text, self.number_text, self.enumerated]
        if depth < 3:
            kinds += [lambda: self.some(lambda: self.any(depth + 1)), lambda: self.any_map(depth + 1)]
        return self.random.choice(kinds)()

    def constant(self):
        return self.pick(None, True, False)

    def number(self):
        if self.random.random() < 0.5:
            return Literal(self.random.choice(NUMBERS))
        near = round(self.random.uniform(0, 10), 2)
        return self.pick(near, self.random.randint(-200, 200), self.random.uniform(-1000, 1000))

    def coordinate(self):
        if self.odd():
            return self.number()
        return self.pick(self.random.randint(-500, 500), round(self.random.uniform(-500, 500), 3))

    def number_text(self):
        return self.random.choice(STRING_NUMBERS)

    def enumerated(self):
        """A text that some closed set knows, or none."""
        return self.random.choice(self.random.choice(CLOSED_SETS))

    def text(self):
        length = self.pick(0, 1, 3, 10, 25)
        letters = LETTERS + (CONTROLS + ENDS + HALVES if self.odd() else [])
        text = "".join(self.random.choices(letters, k=length))
        return text * 3000 if self.odd() and self.random.random() < 0.02 else text

    def long_text(self):
        """A text about as long as the longest run."""
        return self.pick("a", "é", "⌀") * self.random.randint(20000, 66000)

    def some(self, make):
        count = self.pick(0, 1, 1, 2, 3, self.random.randint(0, 6))
        return [make() for _ in range(count)]

    def any_map(self, depth=0):
        keys = UNKNOWN_KEYS + ["a", "b", "é", "k\0"]
        return Map([(self.random.choice(keys), self.any(depth)) for _ in range(self.pick(0, 1, 2, 4))])

    # Fields

    def fields(self, *fields):
        """A map of some of the (key, make) fields in any order, now and then with other values, other or equal keys."""
        entries = [(key, self.any() if self.odd() else make()) for key, make in fields if self.random.random() < 0.7]
        if self.odd():
            entries.append((self.random.choice(UNKNOWN_KEYS), self.any()))
        if entries and self.odd():
            entries.append((self.random.choice(entries)[0], self.any()))
        if self.odd():
            self.random.shuffle(entries)
        return Map(entries)

    def always(self, record, *fields):
        """The same record with fields that it needs in front, left out only now and then."""
        if not isinstance(record, Map):
            return record
        needed = [(key, self.any() if self.odd() else make()) for key, make in fields if not self.odd()]
        return Map(needed + record.entries)

    def point(self):
        if self.odd():
            return [self.any() if self.odd() else self.coordinate() for _ in range(self.pick(0, 2, 3, 3, 4))]
        return [self.coordinate() for _ in range(3)]

    def one_of(self, names):
        return lambda: self.random.choice(UNKNOWN_TEXTS) if self.random.random() < 0.1 else self.random.choice(names)

    def flag(self):
        return self.number_text() if self.odd() else self.pick(True, False)

    def color(self):
        return self.random.choice(COLORS) if self.random.random() < 0.2 else f"{self.random.randrange(1 << 24):06x}"

    def height(self):
        if self.odd():
            return self.pick(self.number(), self.number_text())
        return self.random.randint(0, 65600) / 100 if self.random.random() < 0.2 else self.random.randint(1, 300) / 100

    # Records

    def view(self):
        self.version = (6, self.random.choice(MINORS))
        text = self.random.choice(ODD_VERSIONS) if self.odd() else "%d.%d" % self.version
        fields = [("name", self.text), ("origin", self.point), ("normal", self.point), ("axis", self.point)]
        return self.always(self.fields(*fields), ("ver", lambda: text), *self.version_fields())

    def version_fields(self):
        if self.version < (6, 22):
            yield "textannotations", lambda: self.some(lambda: self.annotation("text"))
            yield "rasterannotations", lambda: self.some(lambda: self.annotation("raster"))
            return
        yield "annotations", lambda: self.some(self.typed_annotation)
        if self.version >= (6, 27) or self.odd():
            yield "metadata", self.any_map

    def typed_annotation(self, depth=0):
        kind = self.pick("text", "text", "raster")
        return self.always(self.annotation(kind, depth), ("type", lambda: kind))

    def annotation(self, kind, depth=0):
        if self.odd() and self.random.random() < 0.2:
            return self.any()
        self.room -= 1
        fields = [
            ("name", self.text),
            ("color", self.color),
            ("position", self.point),
            ("leaders", lambda: self.some(self.leader)),
            ("measures", lambda: self.some(self.measure)),
            ("frameshape", self.one_of(RULES.frames)),
            *((flag, self.flag) for flag in RULES.flags),
            *self.newer_fields(depth),
            *(self.text_fields() if kind == "text" else self.raster_fields()),
        ]
        return self.fields(*fields)

    def newer_fields(self, depth):
        if self.version < (6, 22) and not self.odd():
            return
        yield "metadata", self.any_map
        if self.room > 0 and depth < 5:
            yield self.pick("children", "children", "childs"), lambda: self.some(lambda: self.child(depth + 1))

    def child(self, depth):
        return self.always(self.typed_annotation(depth), ("anchorloc", self.one_of(RULES.anchors)))

    def text_fields(self):
        yield "defaulttextprop", self.properties
        yield "text", self.plain_text
        if self.random.random() < 0.7:
            yield "lines", lambda: self.some(self.line)

    def raster_fields(self):
        yield "sizeem", lambda: [self.any() if self.odd() else self.coordinate() for _ in range(3 if self.odd() else 2)]
        yield "rastername", self.text

    def plain_text(self):
        if self.odd() and self.random.random() < 0.05:
            return self.long_text()
        return "".join(self.text() + self.pick("", *ENDS) for _ in range(self.pick(0, 1, 2, 3)))

    def line(self):
        return [self.any() if self.odd() else self.run() for _ in range(self.pick(0, 1, 2, 3))]

    def run(self):
        own = self.properties().entries if self.random.random() < 0.4 else []
        return Map(self.fields(("text", self.text), ("type", self.one_of(RULES.run_types))).entries + own)

    def properties(self):
        return self.fields(
            ("font", self.text), ("heightem", self.height), ("bold", self.flag), ("italic", self.flag)
        )

    def leader(self):
        if (self.version < (6, 22)) != self.odd():
            return self.point()
        return self.fields(("pos", self.point), ("head", self.one_of(RULES.heads)))

    def measure(self):
        points = [("A", self.point), ("B", self.point), ("V", self.point)]
        return self.always(self.fields(("arrowdir", self.one_of(RULES.directions))), *points)
