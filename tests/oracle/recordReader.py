"""Reads the records of a view by their layouts."""

from mapReader import MapReader
from model import FIRST_ANCHOR, NULL, RASTER, TEXT, Annotation, Child, Leader, Measure, Properties, Run, View

LAYOUTS = {TEXT: "text", RASTER: "raster"}


class UnknownChild(Exception):
    """A child of unknown kind, which ends the shared record of its parent."""


class RecordReader:
    """Reads one view object."""

    def __init__(self, payload, version, rules):
        self.payload = payload
        self.version = version
        self.rules = rules
        self.counts = {}

    def view(self):
        view = View(version=self.version)
        if not self.rules.has(self.version, since="views"):
            self.payload.report("stream.refused")
            view.ok = False
            return view
        self.record("view", view)
        return view

    def record(self, layout, record):
        """Reads the fields of a record that its version has; those that it has not keep their defaults."""
        self.fields(self.rules.layouts[layout], record)
        return record

    def fields(self, fields, record):
        for field in fields:
            if self.rules.has(self.version, field.since, field.until):
                getattr(self, "read_" + field.how)(field.target, record)

    def read_string(self, target, record):
        setattr(record, target, self.payload.string(getattr(record, target)))

    def read_byte(self, target, record):
        setattr(record, target, self.payload.byte(getattr(record, target)))

    def read_point(self, target, record):
        setattr(record, target, self.payload.numbers("<III", getattr(record, target)))

    def read_size(self, target, record):
        setattr(record, target, self.payload.numbers("<II", getattr(record, target)))

    def read_color(self, target, record):
        setattr(record, target, tuple(self.payload.byte(255) for _ in range(3)))

    def read_frame(self, target, record):
        """The byte before the style byte: whether there is a frame, which is a rectangle then."""
        setattr(record, target, self.rules.default_frame if self.payload.byte(0) else 0)

    def read_map(self, target, record):
        setattr(record, target, MapReader(self.payload, self.rules).read())

    def read_count(self, target, _):
        self.counts[target] = self.payload.count()

    def read_texts(self, target, view):
        view.annotations += [self.annotation(TEXT) for _ in range(self.counts[target])]

    def read_rasters(self, target, view):
        view.annotations += [self.annotation(RASTER) for _ in range(self.counts[target])]

    def annotation(self, kind):
        annotation = Annotation(kind)
        if kind == TEXT and not self.rules.has(self.version, since="shared"):
            return self.record("olderText", annotation)
        return self.record(LAYOUTS[kind], annotation)

    def read_leaders(self, target, record):
        setattr(record, target, [self.record("leader", Leader()) for _ in range(self.payload.count())])

    def read_measures(self, target, record):
        setattr(record, target, [self.record("measure", Measure()) for _ in range(self.payload.count())])

    def read_shared(self, _, record):
        try:
            self.record("shared", record)
        except UnknownChild:
            pass

    def read_children(self, target, record):
        """Children; when one is of unknown kind those behind it stay empty."""
        count = self.payload.count()
        children = getattr(record, target)
        for _ in range(count):
            children.append(Child())
            try:
                self.record("child", children[-1])
            except UnknownChild:
                self.payload.budget.pad(count)
                children += [Child(FIRST_ANCHOR) for _ in range(count - len(children))]
                raise

    def read_annotation(self, target, child):
        kind = self.payload.byte(NULL)
        if kind not in (NULL, TEXT, RASTER):
            self.payload.report("stream.refused")
            raise UnknownChild
        if kind != NULL:
            setattr(child, target, self.annotation(kind))

    def read_properties(self, target, record):
        setattr(record, target, self.record("properties", Properties()))

    def read_halves(self, targets, record):
        """Two numbers of 16 bits that are one read."""
        height, style = targets.split()
        numbers = self.payload.numbers("<HH", (getattr(record, height), getattr(record, style)))
        setattr(record, height, numbers[0])
        setattr(record, style, numbers[1])

    def read_lines(self, target, record):
        setattr(record, target, [self.line() for _ in range(self.payload.count())])

    def line(self):
        return [self.record("run", Run()) for _ in range(self.payload.count())]

    def read_text(self, target, run):
        setattr(run, target, self.payload.text(self.payload.number("<H")))

    def read_olderText(self, target, run):
        text = self.payload.string().split(b"\0")[0]
        setattr(run, target, text[: self.rules.longest_run])

    def read_ownProperties(self, target, run):
        if self.payload.byte(0):
            self.read_properties(target, run)
