"""Makes object streams: sound ones of every version, and ones with odd containers, links, numbers and texts."""

from model import RASTER, TEXT, Annotation, Child, Leader, Measure, Properties, Run, View
from rules import Rules
from singles import double_of_bits, single_bits
from streamWriter import RecordWriter, container, entry, metadata_payload

RULES = Rules()
VIEW_TYPE = b"qvCore.qvAnnotationView"
LIST_TYPES = (b"qvCore.qvAnnotationMetadata", b"qvCore.qvAnnotationMetaData")
OTHER_TYPES = (b"", b"qvCore.qvModel", VIEW_TYPE.lower(), VIEW_TYPE + b"\0", b"x" * 256, b"x" * 257, b"\xff")
MINORS = list(range(13, 29)) + [13, 14, 15, 16, 17, 21, 22, 22, 26, 27, 27, 27]
ODD_VERSIONS = (0, 0x60000, 0x6000C, 0x5FFFF, 0x6FFFF, 0x70000, 0x6001C, 0x60100, 0xFFFFFFFF)
ODD_SINGLES = [int(bits, 16) for bits in """7fc00000 ffc00001 7f800001 7f800000 ff800000 80000000 00000001 80000001
    007fffff 00800000 7f7fffff ff7fffff 3dcccccd 4b800001""".split()]
ODD_DOUBLES = [int(bits, 16) for bits in """7ff8000000000000 7ff0000000000000 fff0000000000000 fff8000000000001
    8000000000000000 0000000000000001 000fffffffffffff 7fefffffffffffff 3fb999999999999a 444b1ae4d6e2ef50""".split()]
PIECES = [b"a", b"B", b"7", b" ", b".", "é".encode(), "⌀".encode(), "\U0001F600".encode(), b'"', b"\\", b"<", b"/"]
CUT_PIECES = [b"\x80", b"\xff", b"\xc3", b"\xe2\x8c", b"\xf0\x9f\x98", b"\xed\xa0\x80", b"\xc0\xaf"]
ODD_PIECES = CUT_PIECES + [character.encode() for character in "\0\n\r\x01\x1f\x7f\ufffe\uffff\ufffd"]



class StreamDocuments:
    """A source of object streams; the same dice give the same documents."""

    def __init__(self, random):
        self.random = random
        self.oddness = 0.0
        self.room = 0

    def document(self):
        """The bytes of a document."""
        self.oddness = self.random.choice((0, 0, 0.01, 0.05, 0.2))
        self.room = self.random.choice((2, 8, 30))
        version = self.random.choice(ODD_VERSIONS) if self.odd() else 0x60000 | self.random.choice(MINORS)
        writer = RecordWriter(min(version, RULES.newest), RULES)
        objects = self.objects(writer)
        count = len(objects) + self.random.choice((-1, 1, 1000)) if self.odd() and objects else None
        behind = self.noise(20) if self.odd() else b""
        return container(version, objects, count) + behind

    def odd(self):
        return self.random.random() < self.oddness

    def noise(self, most):
        return self.random.randbytes(self.random.randint(0, most))

    # The container

    def objects(self, writer):
        views = self.random.choice((0, 1, 1, 1, 2, 3))
        ids = self.random.sample(range(1, 9), views + 3) if self.random.random() < 0.5 else list(range(1, views + 4))
        objects = [(ids[index], VIEW_TYPE, writer.view(self.view())) for index in range(views)]
        for _ in range(self.random.choice((0, 1, 1, 1, 2))):
            objects.append((ids.pop(), self.random.choice(LIST_TYPES), self.list(ids[:views])))
        if self.odd():
            objects.append((ids.pop(), self.random.choice(OTHER_TYPES), self.noise(40)))
        if self.random.random() < 0.3:
            self.random.shuffle(objects)
        return [self.entry(*one) for one in objects]

    def entry(self, identifier, type_name, payload):
        if self.odd():
            identifier = self.random.choice((0, 1, 2, 0xFFFFFFFF))
        if self.odd():
            payload = payload[: self.random.randint(0, len(payload))] + self.noise(9)
        size = max(0, len(payload) + self.random.randint(-5, 5)) if self.odd() else None
        return entry(identifier, type_name, payload, size)

    def list(self, ids):
        links = [link for link in ids if not self.odd()]
        if self.odd():
            links += self.random.choices((0, 1, 2, 9, 0xFFFFFFFF), k=self.random.randint(1, 4))
        self.random.shuffle(links)
        return metadata_payload(links, self.text() if self.odd() else b"", 7 if self.odd() else 5)

    # Values

    def single(self):
        if self.odd():
            return self.random.choice(ODD_SINGLES) if self.random.random() < 0.7 else self.random.randrange(1 << 32)
        return single_bits(round(self.random.uniform(-500, 500), self.random.choice((0, 1, 3, 9))))

    def point(self):
        return tuple(self.single() for _ in range(3))

    def text(self):
        pieces = PIECES + (ODD_PIECES if self.odd() else [])
        text = b"".join(self.random.choices(pieces, k=self.random.choice((0, 1, 3, 8, 20))))
        return text * 2000 if self.odd() and self.random.random() < 0.02 else text

    def number(self, names):
        """A number of a closed set, now and then one beyond it."""
        return self.random.randrange(256) if self.odd() else self.random.randrange(len(names))

    def some(self, make, most=4):
        return [make() for _ in range(self.random.choice((0, 1, 1, 2, self.random.randint(0, most))))]

    def map(self, depth=0):
        return {self.text(): self.value(depth) for _ in range(self.random.choice((0, 0, 1, 2, 4)))}

    def value(self, depth):
        kinds = [self.text, self.integer, self.real, lambda: None, lambda: True, lambda: False]
        if depth < 4:
            kinds += [lambda: self.map(depth + 1), lambda: self.some(lambda: self.value(depth + 1))]
        return self.nested(self.random.choice(kinds)())

    def nested(self, value):
        """Now and then a value as deep as values may lie, or deeper."""
        if self.odd() and self.random.random() < 0.1:
            for level in range(self.random.choice((10, 60, 61, 62, 63, 64, 65))):
                value = [value] if level % 2 else {b"k": value}
        return value

    def integer(self):
        return self.random.choice((0, 1, -1, 2**63 - 1, -(2**63), self.random.randint(-(10**6), 10**6)))

    def real(self):
        if self.odd():
            return double_of_bits(self.random.choice(ODD_DOUBLES))
        return self.random.choice((0.0, 1.0, round(self.random.uniform(-9, 9), 2), self.random.uniform(-1e9, 1e9)))

    # Records

    def view(self):
        annotations = self.some(lambda: self.annotation(TEXT)) + self.some(lambda: self.annotation(RASTER), 2)
        return View(
            name=self.text(),
            origin=self.point(),
            normal=self.point(),
            axis=self.point(),
            metadata=self.map(),
            annotations=annotations,
        )

    def annotation(self, kind, depth=0):
        self.room -= 1
        annotation = Annotation(
            kind,
            name=self.text(),
            position=self.point(),
            color=tuple(self.random.randrange(256) for _ in range(3)),
            style=self.style(),
            leaders=self.some(self.leader),
            measures=self.some(self.measure),
            children=self.children(depth),
            metadata=self.map(),
        )
        if kind == RASTER:
            annotation.raster_name, annotation.size = self.text(), (self.single(), self.single())
        else:
            annotation.properties, annotation.lines = self.properties(), self.some(self.line)
        return annotation

    def style(self):
        if self.odd():
            return self.random.randrange(256)
        return self.random.randrange(len(RULES.frames)) | self.random.choice((0, 0, 32, 64, 128, 224))

    def children(self, depth):
        return self.some(lambda: self.child(depth + 1)) if self.room > 0 and depth < 6 else []

    def child(self, depth):
        kind = self.random.choice((TEXT, TEXT, RASTER))
        annotation = None if self.odd() else self.annotation(kind, depth)
        return Child(self.number(RULES.anchors), annotation)

    def leader(self):
        return Leader(self.point(), self.number(RULES.heads))

    def measure(self):
        return Measure(self.point(), self.point(), self.point(), self.number(RULES.directions))

    def line(self):
        return self.some(self.run)

    def run(self):
        own = self.properties() if self.random.random() < 0.3 else None
        return Run(self.text()[:65535], self.number(RULES.run_types), own)

    def properties(self):
        height = self.random.choice((0, 1, 100, 65534, 65535, self.random.randint(1, 400)))
        style = self.random.randrange(65536) if self.odd() else self.random.randrange(4)
        return Properties(self.text(), height, style)
