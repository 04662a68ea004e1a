"""The legacy model as plain values. What a record does not say has its default here.

Points and sizes are tuples of the bits of singles; texts are bytes, since an object stream keeps them as they are.
"""

from dataclasses import dataclass, field

ZERO = (0, 0, 0)
Z_AXIS = (0, 0, 0x3F800000)
X_AXIS = (0x3F800000, 0, 0)
UNIT_SIZE = (0x3F800000, 0x3F800000)

NULL, TEXT, RASTER = 0, 1, 2
FIRST_ANCHOR = 1


@dataclass
class Properties:
    font: bytes = b"Arial"
    height: int = 100
    style: int = 0


@dataclass
class Run:
    text: bytes = b""
    type: int = 0
    properties: Properties | None = None


@dataclass
class Leader:
    position: tuple = ZERO
    head: int = 0


@dataclass
class Measure:
    point_a: tuple = ZERO
    point_b: tuple = ZERO
    offset: tuple = X_AXIS
    direction: int = 0


@dataclass
class Child:
    """A place on the parent and what stands there, which may be nothing."""

    anchor: int = 0
    annotation: object = None


@dataclass
class Annotation:
    """A text or a raster; each has the fields of its kind at the end."""

    kind: int = TEXT
    name: bytes = b""
    position: tuple = ZERO
    color: tuple = (255, 255, 255)
    style: int = 1
    leaders: list = field(default_factory=list)
    measures: list = field(default_factory=list)
    children: list = field(default_factory=list)
    metadata: dict = field(default_factory=dict)
    properties: Properties = field(default_factory=Properties)
    lines: list = field(default_factory=list)
    raster_name: bytes = b""
    size: tuple = UNIT_SIZE


@dataclass
class View:
    """A view; one that was refused has its version, its name and the messages only."""

    ok: bool = True
    version: int = 0
    name: bytes = b""
    messages: list = field(default_factory=list)
    origin: tuple = ZERO
    normal: tuple = Z_AXIS
    axis: tuple = X_AXIS
    metadata: dict = field(default_factory=dict)
    annotations: list = field(default_factory=list)


@dataclass
class Finding:
    """A problem of the document itself; `offset` is the byte where it stands, None where that is not known."""

    code: str
    severity: str
    offset: int | None = None


@dataclass
class Document:
    """What a reader makes of an input."""

    format: str
    readable: bool = True
    views: list = field(default_factory=list)
    findings: list = field(default_factory=list)
