"""Documents made by hand, on both sides of every gate, limit and closed set. Every run begins with them."""

import json

from model import RASTER, TEXT, Annotation, Child, Leader, Measure, Properties, Run, View
from rules import Rules
from streamDocuments import LIST_TYPES, VIEW_TYPE
from streamWriter import RecordWriter, container, entry, metadata_payload

RULES = Rules()
ONE, TWO, THREE = 0x3F800000, 0x40000000, 0x40400000
POINT = (ONE, TWO, THREE)
STREAM_MINORS = range(12, 29)
VARIANT_MINORS = range(16, 29)
ODD_VALUES = (None, True, 7, 2.5, "odd", [1, 2], [1, 2, "3"], [1, 2, 3], {"odd": 1})

BROKEN_TEXTS = rb"""[ { {"a {"a" {"a": {"a":1 {"a":1, {"a":1] {,} {1:2} [, [,] [1 [1, [1} [1]] {}{} []/**/ /**/[] ['a']
    [01] [-01] [-] [--1] [+1] [.5] [1.] [1.2.3] [1e] [1e+] [1e5.5] [1e309] [0x10] [1_0] [1;2] [NaN] [-NaN] [Infinity]
    [-Infinity] [nan(1)] [tru] [truex] [true1] [true_] [true-] [true.] [nul] [nullx] ["abc ["\ ["\u
    ["\q"] ["\u12"] ["\ud800\u12"] x tru "a 5x - 5 "text" null""".split()
MARK = b"\xef\xbb\xbf"
MORE_BROKEN_TEXTS = [b"", b" \n", b"5 5", MARK, MARK + b"[]", MARK + MARK + b"[]", b'["\n"]', b'["\0"]', b"[1\0]"]
WIDE_TEXTS = [b"[\0", b"\0[", b"\0\0", b"\xff\xfe", b"\xfe\xff["]
BAD_ENCODINGS = [b"[\xff]", b'["\xc3"]', b'["\xed\xa0\x80"]', b'["\xf4\x90\x80\x80"]']


def edge_documents():
    """(name, bytes) of all of them."""
    yield from stream_edges()
    yield from variant_edges()


# Object streams


def stream_edges():
    for minor in STREAM_MINORS:
        yield f"edge-6.{minor}.qvs", stream(0x60000 | minor, full_view())
    for version in (0x5FFFF, RULES.highest, RULES.highest + 1):
        yield f"edge-version-{version:x}.qvs", stream(version, full_view())
    for depth in (RULES.deepest_map - 1, RULES.deepest_map, RULES.deepest_map + 1):
        yield f"edge-map-{depth}.qvs", stream(0x6001B, View(metadata={b"deep": nested(depth - 1), b"next": 1}))
    for length in (RULES.longest_run, RULES.longest_run + 1):
        view = View(annotations=[Annotation(lines=[[Run(b"x" * length)]])])
        yield f"edge-run-{length}.qvs", stream(0x60010, view)
    for length in (RULES.longest_type_name, RULES.longest_type_name + 1):
        objects = [entry(1, b"t" * length, b"other"), entry(2, VIEW_TYPE, plain_view(0x6001B))]
        yield f"edge-type-{length}.qvs", container(0x6001B, objects)
    for count in (RULES.most_problems, RULES.most_problems + 1):
        # The version and the link to nothing are told, but not counted.
        others = [entry(number, b"other", b"") for number in range(1, count)]
        last = [entry(count, LIST_TYPES[0], metadata_payload([0])), entry(0, VIEW_TYPE, plain_view(0x6001B))]
        yield f"edge-problems-{count}.qvs", container(RULES.highest + 1, [*others, *last])
    pairs = [entry(0, VIEW_TYPE, plain_view(0x6001B) + b"x")] * (RULES.most_problems // 2 + 2)
    yield "edge-problems-in-order.qvs", container(0x6001B, pairs)


def stream(version, view):
    """One view between two lists of either spelling, and a view that no list names."""
    payload = RecordWriter(version, RULES).view(view)
    lists = [entry(number, name, metadata_payload([2])) for number, name in enumerate(LIST_TYPES, 3)]
    plain = entry(5, VIEW_TYPE, plain_view(version))
    return container(version, [lists[0], plain, entry(2, VIEW_TYPE, payload), lists[1]])


def plain_view(version):
    return RecordWriter(version, RULES).view(View(name=b"plain"))


def nested(depth):
    value = True
    for level in range(depth):
        value = [value] if level % 2 else {b"in": value}
    return value


def full_view():
    """A view with every field and every number of every closed set, and one beyond it."""
    return View(
        name=b"all",
        origin=POINT,
        normal=(ONE, ONE, TWO),
        axis=(TWO, ONE, ONE),
        metadata={b"kinds": [None, 1, 2.5, b"text", True, False, {b"in": 1}, [1]]},
        annotations=[full_annotation(TEXT), full_annotation(RASTER)]
        + [Annotation(name=b"frame", style=shape) for shape in range(16)],
    )


def full_annotation(kind):
    places = range(len(RULES.anchors) + 1)
    return Annotation(
        kind,
        name=b"full",
        position=POINT,
        color=(1, 2, 3),
        style=0xFF,
        leaders=[Leader(POINT, head) for head in range(len(RULES.heads) + 1)],
        measures=[Measure(POINT, (TWO, 0, 0), (0, TWO, 0), number) for number in range(len(RULES.directions) + 1)],
        children=[Child(place, Annotation(RASTER if place % 2 else TEXT, name=b"in")) for place in places] + [Child(1)],
        metadata={b"key": b"value"},
        properties=Properties(b"Font", 123, 3),
        lines=[
            [Run(b"a", number) for number in range(len(RULES.run_types) + 1)],
            [Run(b"b", 0, Properties(b"G", 2, 1))],
        ],
        raster_name=b"image",
        size=(TWO, THREE),
    )


# The variant form


def variant_edges():
    for minor in VARIANT_MINORS:
        yield f"edge-6.{minor}.json", text(full_map(minor))
    for minor in (16, 17, 21, 22, 26, 27):
        yield f"edge-6.{minor}-wrong.json", text({"views": list(wrong_maps(full_map(minor)))})
    for depth in (RULES.deepest_json, RULES.deepest_json + 1):
        yield f"edge-depth-{depth}.json", b'{"ver":' + b"[" * (depth - 1) + b"]" * (depth - 1) + b"}"
    for length in (RULES.longest_run, RULES.longest_run + 1):
        yield f"edge-run-{length}.json", text(full_map(27, {"text": "x" * length}))
    heights = [{"heightem": height / 100} for height in (1, 29, 53, 57, 105, 65534, 65535, 65536)]
    yield "edge-heights.json", text(full_map(27, *({"defaulttextprop": one, "text": "h"} for one in heights)))
    for number, broken in enumerate(BROKEN_TEXTS + MORE_BROKEN_TEXTS + WIDE_TEXTS + BAD_ENCODINGS):
        yield f"edge-broken-{number}.json", broken
    for number, key in enumerate(RULES.view_keys):
        yield f"edge-view-key-{number}.json", text({key: "6.27" if key == "ver" else []})


def text(value):
    return json.dumps(value).encode("utf-8")


def full_map(minor, *annotations):
    """A view map with every key, also those that its version does not know."""
    annotations = annotations or (variant_text(minor), variant_raster(minor), *frames())
    texts = [dict(one, type="text") for one in annotations if "sizeem" not in one]
    rasters = [dict(one, type="raster") for one in annotations if "sizeem" in one]
    return {
        "ver": f"6.{minor}",
        "name": "all",
        "origin": [1, 2, 3],
        "normal": [4, 5, 6],
        "axis": [7, 8, 9],
        "metadata": {"kinds": [None, 1, 2.5, "text", True, {"in": 1}]},
        "textannotations": texts,
        "rasterannotations": rasters,
        "annotations": rasters + texts,
    }


def frames():
    return [{"name": name, "frameshape": name, "text": "a\r\nb\rc\nd"} for name in (*RULES.frames, "unknown")]


def shared(minor):
    leaders = [{"pos": [1, 2, 3], "head": head} for head in (*RULES.heads, "unknown")]
    places = enumerate((*RULES.anchors, "unknown"))
    children = [{"type": RULES.kinds[1 + number % 2], "anchorloc": place} for number, place in places]
    points = {"A": [1, 2, 3], "B": [4, 5, 6], "V": [7, 8, 9]}
    return {
        "name": "full",
        "color": "0a0B0c",
        "position": [1, 2, 3],
        "leaders": leaders if minor >= 22 else [[1, 2, 3], [4, 5, 6]],
        "measures": [points | {"arrowdir": direction} for direction in (*RULES.directions, "unknown")],
        "isframelocked": True,
        "isscalelocked": True,
        "isignoreztest": True,
        "children": children,
        "metadata": {"key": "value"},
    }


def variant_text(minor):
    runs = [{"text": "r", "type": name} for name in (*RULES.run_types, "unknown")]
    own = {"text": "own", "heightem": 2.5, "font": "G", "bold": False, "italic": True}
    return shared(minor) | {
        "defaulttextprop": {"font": "F", "heightem": 1.5, "bold": True, "italic": False},
        "lines": [runs, [own], []],
        "text": "unseen",
    }


def variant_raster(minor):
    return shared(minor) | {"sizeem": [2, 3], "rastername": "image"}


def wrong_maps(sound):
    """The view with each of its keys, and each key of its annotations, absent or of another kind."""
    lists = ("textannotations", "rasterannotations", "annotations")
    slim = sound | {name: [{"type": "text", "name": name}] for name in lists}
    for key in slim:
        yield {name: value for name, value in slim.items() if name != key}
        yield from (slim | {key: odd} for odd in ODD_VALUES)
    yield slim | {"origin": 0, "normal": 0, "axis": 0, "metadata": 0, "annotations": 0, "textannotations": 0}
    yield slim | {name: wrong_annotations(sound[name]) for name in lists}


def wrong_annotations(annotations):
    keys = [(one["type"], key) for one in annotations if one["name"] == "full" for key in one]
    wrong = [{"type": kind, key: odd} for kind, key in keys for odd in ODD_VALUES]
    several = {"color": 0, "leaders": 0, "measures": 0, "defaulttextprop": 0, "lines": [0, [0]], "sizeem": 0}
    unsound = {"children": [{"type": "text", "color": "child"}, {"type": "odd"}]}
    both = [{"type": kind} | several | unsound for kind in ("text", "raster")]
    return [0, *wrong, *both, {"type": "text", "position": 0, "color": 0, "leaders": 0}, *wrong_elements()]


def wrong_elements():
    point = [1, 2, 3]
    measures = [{key: point for key in keys} for keys in ("AB", "AV", "BV", "ABV")]
    measures += [{"A": point, "B": point, "V": point, key: 0} for key in ("A", "B", "V", "arrowdir")]
    children = [{"type": "text", "anchorloc": place} for place in (1, "rb", "rt")]
    yield {"type": "text", "leaders": [0]}
    yield from ({"type": "text", "measures": [measure]} for measure in measures)
    yield from ({"type": "text", "children": [child]} for child in children)
    yield {"type": "text", "childs": children}
