"""Compares a page with the view that it shows. What is missing is a loss; what is wrong is a problem."""

import itertools
import math
import re
import unicodedata

from legacyModel import ERROR, INFO, NORMAL, OPTIONAL, SUPERSCRIPT, WARNING, Loss, present, walk
from migratedGeometry import ANCHOR_FACTORS, MM, Lines, color_text, contrast_color
from pageReader import Leaders
from singles import Box, are_near, is_drawable, is_near, single

SCRIPT_FACTOR = single(.63)
MARGIN = 2.0
LEFT_OUT = ("number.not-finite",)
MISSING_SIGNS = "\ufffd?"
GLYPHS = ("font.glyph-missing",)
NEAR_LIMIT = 1.001  # of coordinates; an item's own size may take it beyond
NO_HEIGHT = ("text.no-height",)
SIZE = ("raster.size",)
CONTROLS = re.compile("[\u061c\u200e\u200f\u202a-\u202e\u2066-\u2069]")
UNSHOWABLE = re.compile("[\x00-\x08\x0a-\x1f\x7f-\x9f\u2028\u2029\ufffe\uffff\ud800-\udfff]")
FORBIDDEN_IN_NAMES = re.compile("[\x00-\x08\x0b\x0c\x0e-\x1f\x7f-\x9f\ufffe\uffff\ud800-\udfff]")


def display(text):
    """How a page shows a run's characters."""
    return UNSHOWABLE.sub("\ufffd", text).replace("\t", " ")


def is_mixed(text):
    """Whether its characters may be put into another order to be shown."""
    return any(unicodedata.bidirectional(c) in ("R", "AL", "AN") or CONTROLS.match(c) for c in text)


def is_centred(box, place):
    """Whether a box lies around a place, as exactly as its size can be told in single precision."""
    slack = 1e-3 + 1e-6 * max(box.width, box.height, *map(abs, place))
    return max(abs(box.center[0] - place[0]), abs(box.center[1] - place[1])) <= slack


def shown_size(run):
    """The em size in mm."""
    size = single(single(run.properties.height / 100.0) * MM)
    return size if run.kind == NORMAL else size * SCRIPT_FACTOR


class ViewCheck:
    """Compares one view with its page."""

    def __init__(self, view, page, head_size, raster_bytes):
        self.view, self.page, self.head_size, self.raster_bytes = view, page, head_size, raster_bytes
        self.losses, self.problems = [], list(page.problems)
        self.boxes = {}  # of frames, by address

    def lose(self, annotation, what, severity=ERROR, codes=()):
        """Notes what is not on the page."""
        self.losses.append(Loss(annotation.address, what, severity, codes))

    def fault(self, annotation, what):
        """Notes what is there, but wrong."""
        self.problems.append(f"{annotation.address}: {what}")

    def check(self):
        """Compares everything."""
        if self.page.title != FORBIDDEN_IN_NAMES.sub("\ufffd", self.view.name).strip("\n") or self.page.address != self.view.address:
            self.problems.append(f"{self.view.address}: the page says '{self.page.title}', {self.page.address}")
        self.check_plane()
        for annotation in self.view.annotations:
            self.check_tree(annotation, annotation.position[:2])
            self.check_leaders(annotation)
        known = {annotation.address for annotation in walk(self.view.annotations)}
        self.problems += [f"{address} is no annotation" for address in set(self.page.groups) - known]
        self.problems += [f"leaders of {address}" for address in set(self.page.leaders) - known]

    def check_plane(self):
        """Only the model holds it; what JSON has no number for must be said."""
        if not all(math.isfinite(number) for vector in self.view.plane for number in vector):
            self.losses.append(Loss(self.view.address, "the plane", codes=LEFT_OUT))
        elif not all(any(direction) for direction in self.view.plane[1:]):
            self.losses.append(Loss(self.view.address, "the plane's directions", WARNING, ("view.plane-degenerate",)))

    def check_tree(self, annotation, place):
        """An annotation at its place, y up, and its children at theirs."""
        group = self.page.groups.get(annotation.address)
        if group is None or not is_drawable(*(number * NEAR_LIMIT for number in place)):
            is_shown = group is not None and self.find_box(annotation) is not None
            for each in walk([annotation]):
                self.lose(each, "the whole annotation", OPTIONAL if is_shown else ERROR, LEFT_OUT)
                self.lose(each, "what it would show", OPTIONAL, GLYPHS + NO_HEIGHT + SIZE)
            if group is None and is_drawable(*place):
                self.fault(annotation, "is left out, though it has a place")
            return
        self.check_depth(annotation)
        if not are_near(group.origin, (place[0], -place[1])):
            self.fault(annotation, f"stands at {group.origin}, not at {place}")
        if group.name != FORBIDDEN_IN_NAMES.sub("\ufffd", annotation.name):
            self.fault(annotation, f"is named '{group.name}'")
        self.check_frame(annotation, group)
        if annotation.lines is None:
            self.check_image(annotation, group)
        else:
            self.check_text(annotation, group)
        for anchor, child in present(annotation.children):
            self.check_tree(child, self.place_child(annotation, place, anchor, child))

    def check_depth(self, annotation):
        """A page has no depth, but the model has: of annotations of the view and of all lines."""
        points = [end for end, _ in annotation.leaders]
        points += [point for measure in annotation.measures for point in measure[:3]]
        points += [annotation.position] * ("/sub/" not in annotation.address)
        is_kept = annotation.address.count("/sub/") <= 1
        if is_kept and not all(math.isfinite(point[2]) for point in points):
            self.lose(annotation, "a depth", codes=LEFT_OUT)

    def place_child(self, parent, place, anchor, child):
        """Where the child stands, y up; where a box is missing, where the page has it."""
        if anchor == 0:
            return place[0] + child.position[0], place[1] + child.position[1]
        outer, inner = self.find_box(parent), self.find_box(child)
        if outer is None or inner is None:
            x, y = self.page.groups[child.address].origin if child.address in self.page.groups else (1e300, 1e300)
            return x, -y
        a, b, d, e = ANCHOR_FACTORS[anchor]
        return place[0] + a * outer.width + b * inner.width, place[1] - d * outer.height - e * inner.height

    def find_box(self, annotation):
        """The box that children are placed by; None where it is not on the page."""
        group = self.page.groups.get(annotation.address)
        frames = [shape for shape in group.shapes if shape.is_frame] if group else []
        if len(frames) != 1:
            return None
        points = frames[0].points
        if annotation.shape in (5, 6, 7):
            points = points[-2:] + (points[1:3] if annotation.shape != 5 else points[:2])
        if annotation.shape == 8:
            points = [points[0], points[2]]
        return Box(points)

    def check_frame(self, annotation, group):
        """One frame of its shape around the annotation's place, in the annotation's colour."""
        frames = [shape for shape in group.shapes if shape.is_frame]
        if len(frames) != 1:
            self.lose(annotation, "the frame", codes=LEFT_OUT)
            return
        frame, box = frames[0], self.find_box(annotation)
        if not is_centred(box, group.origin):
            self.fault(annotation, f"the frame's centre is {box.center}, not {group.origin}")
        if annotation.color is not None and frame.fill != color_text(annotation.color):
            self.fault(annotation, f"the frame is filled with {frame.fill}")
        if frame.stroke != ("none" if annotation.shape == 0 else "#000000"):
            self.fault(annotation, f"the frame's border is {frame.stroke}")
        if not all(are_near(a, b, 1e-3) for a, b in itertools.zip_longest(frame.points, shape_points(annotation.shape, box),
                                                                      fillvalue=())):
            self.fault(annotation, f"the frame has the corners {frame.points}")
        if annotation.shape in (3, 4, 9, 10, 11, 12, 13, 14):
            self.lose(annotation, "the frame's shape", WARNING, ("frame.shape-as-rectangle",))

    def check_image(self, annotation, group):
        """The raster's bytes in a box of its size around the annotation's place."""
        size = [single(side * MM) for side in annotation.size]
        if group.characters:
            self.fault(annotation, "has text")
        if 0.0 in size:
            self.lose(annotation, "the image of size 0", codes=SIZE)
        elif min(map(abs, size)) < 1e-3:
            self.lose(annotation, "the tiny image", OPTIONAL, SIZE)
        if len(group.images) != 1:
            self.lose(annotation, "the image", codes=(*LEFT_OUT, "raster.unreadable"))
            return
        box, data = Box(group.images[0].points), self.raster_bytes(annotation.raster)
        if data is not None and group.images[0].data != data:
            self.fault(annotation, "shows another image")
        if not are_near((box.width, box.height), [abs(side) for side in size]):
            self.fault(annotation, f"the image is {box.width} by {box.height} mm large, not {size}")
        if not is_centred(box, group.origin):
            self.fault(annotation, f"the image's centre is {box.center}")

    def check_text(self, annotation, group):
        """Each character, in order, with its size and paint, inside the frame."""
        if group.images:
            self.fault(annotation, "has an image")
        lines = [[run for run in line if run.text.strip(" ")] for line in annotation.lines]
        self.check_blanks(annotation, lines)
        rest = group.characters
        shown = []
        for line in filter(None, lines):
            drawn = [run for run in line if run.properties.height > 0]
            if len(drawn) < len(line):
                self.check_unseen(annotation, [run for run in line if run not in drawn])
            wanted = [(c, run) for run in drawn for c in display(run.text)]
            shown.append((wanted, rest[:len(wanted)]))
            rest = rest[len(wanted):]
            self.check_line(annotation, *shown[-1])
        if any(lines) and rest or "".join(c.text for c in rest).strip(" "):
            self.fault(annotation, f"has the text '{''.join(c.text for c in rest)}' besides")
        self.check_layout(annotation, group, [(wanted, there) for wanted, there in shown if there])

    def check_unseen(self, annotation, runs):
        """Runs of height 0."""
        is_seen = any(not c.isspace() and unicodedata.category(c) != "Cf" for run in runs for c in display(run.text))
        self.lose(annotation, "characters of height 0", ERROR if is_seen else OPTIONAL, NO_HEIGHT)
        self.lose(annotation, "characters that would not be seen", OPTIONAL, GLYPHS)

    def check_blanks(self, annotation, kept):
        """Runs and lines of blanks alone are not drawn; runs matter where something stands behind them."""
        if any(kept) and not all(kept):
            self.lose(annotation, "a blank line", INFO, ("text.blank-line-skipped",))
        for line, rest in zip(annotation.lines, kept):
            until = next((i for i, run in enumerate(line) if rest and run is rest[-1]), 0)
            if any(run.text and not run.text.strip(" ") for run in line[:until]):
                self.lose(annotation, "a run of blanks", WARNING, ("text.blank-run-skipped",))

    def check_line(self, annotation, wanted, there):
        """The characters of a line, one by one."""
        text, seen = "".join(c for c, _ in wanted), "".join(c.text for c in there)
        if is_mixed(text):
            text, seen = ("".join(sorted(CONTROLS.sub("", each))) for each in (text, seen))
            self.check_missing(annotation, sorted_difference(text, seen), text, seen)
            return
        missing = []
        for (c, run), drawn in zip(wanted, there):
            if c != drawn.text:
                missing.append((c, drawn.text))
            self.check_character(annotation, run, drawn)
        self.check_missing(annotation, missing + [(c, "") for c in text[len(seen):]], text, seen)

    def check_missing(self, annotation, pairs, text, seen):
        """Characters that no font has stand as replacement signs; others must not be missing."""
        for c, sign in pairs:
            if sign and sign in MISSING_SIGNS:
                self.losses.append(Loss(annotation.address, f"U+{ord(c):04X}", codes=GLYPHS))
            else:
                self.fault(annotation, f"shows '{seen}', not '{text}'")
                return

    def check_character(self, annotation, run, drawn):
        """Size and paint of one character."""
        if not is_near(drawn.size, shown_size(run), 1e-5):
            self.fault(annotation, f"'{drawn.text}' is {drawn.size} mm large, not {shown_size(run)}")
        if annotation.color is not None and drawn.fill != contrast_color(annotation.color):
            self.fault(annotation, f"'{drawn.text}' is drawn in {drawn.fill}")
        if drawn.text not in MISSING_SIGNS and (drawn.bold, drawn.italic) != (run.properties.bold, run.properties.italic):
            self.fault(annotation, f"'{drawn.text}' is drawn bold={drawn.bold} italic={drawn.italic}")

    def check_layout(self, annotation, group, lines):
        """Lines below each other, superscripts up and subscripts down, all inside the frame less its margin."""
        frame = self.find_box(annotation)
        baselines = []
        for wanted, there in lines:
            if is_mixed("".join(c for c, _ in wanted)):
                continue
            by_kind = {}
            for (_, run), drawn in zip(wanted, there):
                by_kind.setdefault(run.kind, set()).add(round(drawn.baseline, 3))
            starts = [drawn.start[0] for (_, run), drawn in zip(wanted, there) if run.kind == NORMAL]
            if sorted(starts) != starts:
                self.fault(annotation, f"the pieces of a line begin at {starts}")
            for kind, heights in by_kind.items():
                self.check_scripts(annotation, kind, heights, by_kind.get(NORMAL))
            baselines += by_kind.get(NORMAL, ())
        if sorted(set(baselines)) != baselines:
            self.fault(annotation, f"the lines stand at {baselines}")
        if frame and not all(frame.contains(c.start) for c in group.characters):
            self.fault(annotation, "a text begins outside of the frame")

    def check_scripts(self, annotation, kind, heights, normal):
        """Normal runs of a line stand on one baseline, the others above or below it."""
        if kind == NORMAL:
            if max(heights) - min(heights) > 2e-3 * max(1.0, abs(max(heights))):
                self.fault(annotation, f"a line has the baselines {sorted(heights)}")
        elif normal and kind == SUPERSCRIPT and max(heights) > min(normal) + 1e-3:
            self.fault(annotation, "a superscript stands below its line")
        elif normal and kind != SUPERSCRIPT and min(heights) < max(normal) - 1e-3:
            self.fault(annotation, "a subscript stands above its line")

    def check_leaders(self, annotation):
        """Lines and heads of an annotation of the view, and of its direct children."""
        lines = Lines(self.head_size)
        for anchor, child in present(annotation.children):
            place = self.place_child(annotation, annotation.position[:2], anchor, child)
            lines.add(child, place)
            for each in walk([inner for _, inner in present(child.children)]):
                if each.leaders or each.measures:
                    self.lose(each, "leaders", codes=("leader.lost",))
        lines.add(annotation, annotation.position[:2])
        self.losses += lines.losses
        self.compare_lines(annotation, lines)

    def compare_lines(self, annotation, lines):
        """The lines on the page in order; those that it has no numbers for are left out."""
        there = self.page.leaders.get(annotation.address, Leaders())
        if there.strokes - {"#000000"}:
            self.fault(annotation, f"the leaders are drawn in {there.strokes}")
        is_exact = len(lines.sure) == len(lines.segments)
        if not is_exact:
            is_less = len(there.segments) < len(lines.segments) or len(there.heads) < len(lines.heads)
            self.lose(annotation, "leaders without a place", ERROR if is_less else OPTIONAL, LEFT_OUT)
        self.compare_segments(annotation, there.segments, lines.sure, is_exact)
        if is_exact:
            self.compare_heads(annotation, there.heads, lines.heads)

    def compare_segments(self, annotation, segments, wanted, is_exact):
        """Each line in order; there may be others between them where not all can be told exactly."""
        rest = iter(segments)
        for wanted_segment in wanted:
            flipped = flat([[(x, -y) for x, y in wanted_segment]])
            if not any(are_near(flat([segment]), flipped) for segment in rest):
                self.fault(annotation, f"no line runs from {flipped[:2]} to {flipped[2:]}")
                return
        if is_exact and len(segments) != len(wanted):
            self.fault(annotation, f"has {len(segments)} lines, not {len(wanted)}")

    def compare_heads(self, annotation, heads, placed):
        """Each head at its leader's end."""
        seen, wanted = heads, [[(x + end[0], -y - end[1]) for x, y in corners] for end, corners in placed]
        if len(seen) != len(wanted) or not are_near(flat(seen), flat(wanted), 1e-3):
            self.fault(annotation, f"the heads are {seen}, not {wanted}")


def flat(lists):
    """The coordinates of lists of points."""
    return [coordinate for points in lists for point in points for coordinate in point]


def sorted_difference(text, seen):
    """What one sorted text has and the other has not, in pairs."""
    gone, come = list(text), []
    for c in seen:
        if c in gone:
            gone.remove(c)
        else:
            come.append(c)
    return list(itertools.zip_longest(gone, come, fillvalue=""))


def shape_points(shape, box):
    """The corners of a frame around a content box, in the order of drawing; y down."""
    left, top, right, bottom = box.left, box.top, box.right, box.bottom
    tip, middle = .4 * box.height, (box.top + box.bottom) / 2
    if shape == 8:
        return [(left, top), (left - tip, bottom), (right, bottom), (right + tip, top)]
    if shape not in (5, 6, 7):
        return [(left, top), (right, top), (right, bottom), (left, bottom)]
    return ([(left - tip, middle)] * (shape != 5) + [(left, bottom), (right, bottom)] +
            [(right + tip, middle)] * (shape != 6) + [(right, top), (left, top)])
