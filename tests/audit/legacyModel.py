"""What a document holds, and what is missing of it: plain records that all readers fill."""

from dataclasses import dataclass, field

SHAPES = ("noframe", "rectangle", "square", "diamond", "triangle", "flagright", "flagleft", "flagboth", "parallelogram",
          "hexagon", "pentagon", "circle", "oblong", "oblongleft", "oblongright")
HEADS = ("", "square", "circle", "arrow", "plus", "cross", "triangle")
ARROWS = ("", "outout", "inout", "outin")
ANCHORS = {"bl": 1, "bc": 2, "br": 3, "tl": 4, "tc": 5, "tr": 6, "lb": 7, "lc": 8, "lt": 9, "rc": 11, "rt": 12, "rb": 12}
RUN_TYPES = ("normal", "sub", "sup")
NORMAL, SUBSCRIPT, SUPERSCRIPT = range(3)

ERROR, WARNING, INFO, OPTIONAL = "error", "warning", "info", "optional"


@dataclass
class Properties:
    """How a run is set; the height in hundredths of an em."""

    font: str = "Arial"
    height: int = 100
    bold: bool = False
    italic: bool = False


@dataclass
class Run:
    """Characters of a line that are set in one way."""

    text: str
    kind: int
    properties: Properties


@dataclass
class Annotation:
    """A text (`lines` is a list) or a raster (`lines` is None) with all that hangs on it."""

    address: str
    name: str = ""
    color: tuple | None = (255, 255, 255)  # None: what is drawn is not fixed
    position: tuple = (0.0, 0.0, 0.0)
    leaders: list = field(default_factory=list)  # (point, head)
    measures: list = field(default_factory=list)  # (A, B, offset, arrow)
    shape: int = 1
    metadata: list = field(default_factory=list)  # keys
    children: list = field(default_factory=list)  # (anchor, Annotation or None)
    lines: list | None = None
    raster: str = ""
    size: tuple = (1.0, 1.0)


@dataclass
class View:
    """One view. `refusal` holds the words that the reason must have where the reader refuses the view."""

    address: str
    name: str = ""
    plane: tuple = ((0.0, 0.0, 0.0), (0.0, 0.0, 1.0), (1.0, 0.0, 0.0))
    annotations: list = field(default_factory=list)
    metadata: list = field(default_factory=list)
    refusal: str | None = None


@dataclass(frozen=True)
class Loss:
    """Something of the document that is not, or not as it is there, in what was written.

    `severity` is that of the finding which has to say so, or OPTIONAL where none needs to but may.
    `codes` are the codes that such a finding may have, empty for any; `word` is in its text.
    """

    address: str
    what: str
    severity: str = ERROR
    codes: tuple = ()
    word: str = ""


def present(children):
    """Children without the places of none."""
    return [(anchor, child) for anchor, child in children if child is not None]


def walk(annotations):
    """Annotations and those below them, each before its children."""
    for annotation in annotations:
        yield annotation
        yield from walk(child for _, child in present(annotation.children))
