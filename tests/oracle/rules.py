"""The closed sets of both encodings, copied from docs/formats: names, numbers, versions, keys, layouts and messages.

Readers look everything up in one `Rules`, so that the self-test can alter a single entry and ask whether a run notices.
What makes documents takes the sound rules, so an altered table never changes what is read with it.
"""

from dataclasses import dataclass, field


def version(major, minor):
    return major << 16 | minor


@dataclass
class Row:
    """A field of a variant map: `how` names the conversion, `target` the field of the model.

    `wrong` and `absent` name messages. With `costs` the record is lost where the form is wrong or `absent` names a
    message; a `needed` field is as wrong when it is absent.
    """

    key: str
    how: str
    target: str
    since: str = ""
    until: str = ""
    wrong: str = ""
    absent: str = ""
    costs: bool = False
    needed: bool = False


@dataclass
class Field:
    """A field of a record of the object stream, in the order of the bytes."""

    target: str
    how: str
    since: str = ""
    until: str = ""


def _frames():
    return """noframe rectangle square diamond triangle flagright flagleft flagboth parallelogram hexagon pentagon
        circle oblong oblongleft oblongright""".split()


def _gates():
    return {
        "views": version(6, 13),
        "names": version(6, 14),
        "shared": version(6, 15),
        "variantForm": version(6, 17),
        "measures": version(6, 17),
        "runTypes": version(6, 17),
        "annotationList": version(6, 22),
        "leaderMaps": version(6, 22),
        "heads": version(6, 22),
        "directions": version(6, 22),
        "children": version(6, 22),
        "metadata": version(6, 22),
        "viewMetadata": version(6, 27),
    }


def _messages():
    return {
        "version": "invalid version {}",
        "field": "invalid '{}' field",
        "content": "invalid '{}' field content",
        "length": "invalid '{}' length",
        "missing": "missing '{}' field",
        "type": "invalid annotation type",
        "line": "invalid line",
        "segment": "invalid segment",
    }


def _rows():
    lost = {"wrong": "field", "absent": "missing", "costs": True}
    return {
        "view": [
            Row("name", "text", "name"),
            Row("origin", "point", "origin", wrong="field"),
            Row("normal", "point", "normal", wrong="field"),
            Row("axis", "point", "axis", wrong="field"),
            Row("metadata", "map", "metadata", since="viewMetadata", wrong="field", absent="field"),
            Row("textannotations", "texts", "annotations", until="annotationList", **lost),
            Row("rasterannotations", "rasters", "annotations", until="annotationList", **lost),
            Row("annotations", "annotations", "annotations", since="annotationList", **lost),
        ],
        "annotation": [
            Row("name", "text", "name"),
            Row("color", "color", "color", wrong="field"),
            Row("position", "point", "position", wrong="field", costs=True),
            Row("leaders", "leaders", "leaders", wrong="field"),
            Row("measures", "measures", "measures", wrong="field"),
            Row("children", "children", "children", since="children"),
            Row("metadata", "map", "metadata", since="metadata"),
        ],
        "text": [
            Row("defaulttextprop", "properties", "properties", wrong="field"),
            Row("lines", "lines", "lines"),
        ],
        "raster": [
            Row("sizeem", "size", "size", wrong="field", costs=True),
            Row("rastername", "text", "raster_name"),
        ],
        "leader": [
            Row("pos", "point", "position"),
            Row("head", "head", "head"),
        ],
        "measure": [
            Row("A", "point", "point_a", costs=True, needed=True),
            Row("B", "point", "point_b", costs=True, needed=True),
            Row("V", "point", "offset", costs=True, needed=True),
            Row("arrowdir", "direction", "direction", since="directions"),
        ],
    }


def _keys():
    """Keys that stand in no table of rows."""
    return {
        "version": "ver",
        "views": "views",
        "type": "type",
        "frame": "frameshape",
        "olderChildren": "childs",
        "anchor": "anchorloc",
        "plainText": "text",
        "runText": "text",
        "runType": "type",
        "height": "heightem",
        "font": "font",
        "bold": "bold",
        "italic": "italic",
    }


def _element_keys():
    """The key that a message names when an element of a list is no map."""
    return {
        "textannotations": "annotations",
        "rasterannotations": "rasterannotations",
        "annotations": "annotations",
        "leaders": "leaders",
        "measures": "measures",
    }


def _layouts():
    return {
        "view": [
            Field("name", "string"),
            Field("origin", "point"),
            Field("normal", "point"),
            Field("axis", "point"),
            Field("texts", "count"),
            Field("rasters", "count", since="shared"),
            Field("texts", "texts"),
            Field("rasters", "rasters", since="shared"),
            Field("metadata", "map", since="viewMetadata"),
        ],
        "shared": [
            Field("name", "string"),
            Field("leaders", "leaders"),
            Field("measures", "measures", since="measures"),
            Field("position", "point"),
            Field("color", "color"),
            Field("style", "byte"),
            Field("children", "children", since="children"),
            Field("metadata", "map", since="metadata"),
        ],
        "text": [Field("", "shared"), Field("properties", "properties"), Field("lines", "lines")],
        "olderText": [
            Field("name", "string", since="names"),
            Field("properties", "properties"),
            Field("leaders", "leaders"),
            Field("lines", "lines"),
            Field("position", "point"),
            Field("color", "color"),
            Field("style", "byte", since="names"),
            Field("style", "frame", until="names"),
        ],
        "raster": [Field("", "shared"), Field("raster_name", "string"), Field("size", "size")],
        "leader": [Field("position", "point"), Field("head", "byte", since="heads")],
        "measure": [
            Field("point_a", "point"),
            Field("point_b", "point"),
            Field("offset", "point"),
            Field("direction", "byte", since="directions"),
        ],
        "child": [Field("anchor", "byte"), Field("annotation", "annotation")],
        "properties": [Field("font", "string"), Field("height style", "halves")],
        "run": [
            Field("text", "text", since="runTypes"),
            Field("text", "olderText", until="runTypes"),
            Field("type", "byte", since="runTypes"),
            Field("properties", "ownProperties"),
        ],
    }


def _value_kinds():
    return {"null": 0, "integer": 1, "real": 2, "string": 3, "bool": 4, "map": 10, "list": 11}


def _type_names():
    return {
        b"qvCore.qvAnnotationMetadata": "metadata",
        b"qvCore.qvAnnotationMetaData": "metadata",
        b"qvCore.qvAnnotationView": "view",
    }


@dataclass
class Rules:
    """Every table; a copy of it is altered by the self-test."""

    gates: dict = field(default_factory=_gates)
    # Closed sets by their numbers. A text that is none of them has number 0, or `default_frame`.
    frames: list = field(default_factory=_frames)
    heads: list = field(default_factory=lambda: "none square circle arrow plus cross triangle".split())
    directions: list = field(default_factory=lambda: "none outout inout outin".split())
    anchors: list = field(default_factory=lambda: "none bl bc br tl tc tr lb lc lt rb rc rt".split())
    run_types: list = field(default_factory=lambda: "normal sub sup".split())
    kinds: list = field(default_factory=lambda: "none text raster".split())
    anchor_texts: dict = field(default_factory=lambda: {"rb": 12})
    styles: dict = field(default_factory=lambda: {"bold": 1, "italic": 2})
    flags: dict = field(default_factory=lambda: {"isignoreztest": 32, "isscalelocked": 64, "isframelocked": 128})
    default_frame: int = 1
    # The variant form.
    messages: dict = field(default_factory=_messages)
    keys: dict = field(default_factory=_keys)
    element_keys: dict = field(default_factory=_element_keys)
    view_keys: list = field(default_factory=lambda: ["ver", "annotations", "textannotations", "rasterannotations"])
    rows: dict = field(default_factory=_rows)
    largest_height: float = 655.35
    longest_run: int = 65535
    deepest_json: int = 1000
    # The object stream.
    layouts: dict = field(default_factory=_layouts)
    value_kinds: dict = field(default_factory=_value_kinds)
    type_names: dict = field(default_factory=_type_names)
    newest: int = version(6, 27)
    highest: int = 0x6FFFF
    deepest_map: int = 64
    longest_type_name: int = 256
    most_problems: int = 999

    def has(self, version_number, since="", until=""):
        """Whether a field of these gates is in a version."""
        return (not since or version_number >= self.gates[since]) and (not until or version_number < self.gates[until])
