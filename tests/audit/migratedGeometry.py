"""Where the lines of leaders and measure leaders lie, where children stand, and what a migration refuses.

Points are view-plane coordinates: x to the right, y up. The z of points plays no part on a page.
"""

import math

from legacyModel import WARNING, Loss, present
from singles import is_drawable, single

TOLERANCE = 1e-6
MM = single(3.175)  # a unit of sizes and heights
BARB_SPREAD = 0.2679
EXACT = 1e5
KNOWN_KEYS = {"ReferencedEntities", "AnnotationGroup", "InactivationFlag", "NOA", "NOA_Graphical representation",
              "NOA_Type of Noa", "NOA_Hidden Text"}
# How a child's box lies at its parent's: factors of parent width, child width, parent height, child height.
ANCHOR_FACTORS = {
    1: (-.5, .5, .5, .5), 2: (0, 0, .5, .5), 3: (.5, -.5, .5, .5), 4: (-.5, .5, -.5, -.5), 5: (0, 0, -.5, -.5),
    6: (.5, -.5, -.5, -.5), 7: (-.5, -.5, .5, -.5), 8: (-.5, -.5, 0, 0), 9: (-.5, -.5, -.5, .5),
    10: (.5, .5, .5, -.5), 11: (.5, .5, 0, 0), 12: (.5, .5, -.5, .5)}


def contrast_color(color):
    """White on what is nearly black, black on everything else."""
    red, green, blue = color
    return "#FFFFFF" if single(red * single(.3) + green * single(.59) + blue * single(.11)) < single(.3) else "#000000"


def color_text(color):
    """"#RRGGBB"."""
    return "#" + bytes(color).hex().upper()


def minus(a, b):
    """a - b in the plane."""
    return a[0] - b[0], a[1] - b[1]


def plus(a, b, factor=1.0):
    """a + factor * b in the plane."""
    return a[0] + factor * b[0], a[1] + factor * b[1]


def dot(a, b):
    """The scalar product in the plane."""
    return a[0] * b[0] + a[1] * b[1]


def length(vector):
    """The length in the plane, in single precision: infinite where its square is."""
    return single(math.sqrt(single(single(vector[0] * vector[0]) + single(vector[1] * vector[1]))))


def unit(vector):
    """The direction in the plane; None where there is none."""
    size = length(vector)
    return (vector[0] / size, vector[1] / size) if TOLERANCE < size < math.inf else None


def measure_direction(measure):
    """The direction of the extension lines; None where the measure leader has none."""
    a, b, offset, _ = measure
    if length(offset) > TOLERANCE:
        return unit(offset[:2])
    across = unit(minus(a, b))
    return across and (-across[1], across[0])


def measure_lines(measure, origin, head_size):
    """The lines of a measure leader in the order in which they are drawn; None where it has no direction."""
    v = measure_direction(measure)
    if v is None:
        return None
    a, b, offset, arrow = measure
    u = (-v[1], v[0])
    feet = [plus(point, v, dot(minus(origin, point), v)) for point in (a, b)]
    lines = dimension_line(origin, *feet)
    signs = {0: (-1, 1), 1: (1, -1), 2: (-1, -1)}.get(arrow, (1, 1))
    for foot, sign in zip(feet, signs):
        back = plus(foot, u, sign * head_size)
        lines += [(plus(back, v, side * BARB_SPREAD * head_size), foot) for side in (1, -1)]
    for point, foot in zip((a, b), feet):
        is_foot = dot(offset, offset) <= dot(minus(foot, point), minus(foot, point))
        lines.append((point[:2], foot if is_foot else plus(point, offset)))
    return lines


def dimension_line(origin, first, second):
    """From the origin to both feet, or only to the farther one when both lie on one side."""
    to_first, to_second = minus(first, origin), minus(second, origin)
    if dot(to_first, to_second) < 0:
        return [(origin, second), (origin, first)]
    return [(origin, first if dot(to_second, to_second) <= dot(to_first, to_first) else second)]


def head_points(head, direction, size):
    """The corners of a leader's head around its end, y up; empty for none."""
    d = direction or (0.0, 0.0)
    p = (-d[1], d[0])
    half = size / 2
    cross = size * .7071 / 2
    back = (-size * d[0], -size * d[1])
    return {
        1: [plus((0, 0), plus((i * d[0], i * d[1]), p, j), half) for i, j in ((-1, -1), (-1, 1), (1, 1), (1, -1))],
        2: [(half, 0), (half, 0), (-half, 0), (half, 0)],
        3: [plus(back, p, .3 * size), (0, 0), plus(back, p, -.3 * size)],
        4: [(-1, 0), (1, 0), (0, -1), (0, 1)],
        5: [(-cross, -cross), (cross, cross), (cross, -cross), (-cross, cross)],
        6: [plus((0, 0), p, -half), back, plus((0, 0), p, half)],
    }.get(head, [])


class Lines:
    """What one annotation of the view draws for its own leaders and those of its children."""

    def __init__(self, head_size):
        self.head_size = head_size
        self.segments = []
        self.heads = []  # (end point, corners around it)
        self.sure = []  # of the segments, those that no large number spoils in single precision
        self.losses = []

    def add(self, annotation, origin):
        """The leaders and measure leaders that meet at the origin."""
        for end, head in annotation.leaders:
            self.add_segments([(end[:2], origin)], (end, origin))
            corners = head_points(head, unit(minus(end, origin)), self.head_size)
            if corners:
                self.heads.append((end[:2], corners))
            self.check_head(annotation, end, head, origin)
        for measure in annotation.measures:
            lines = measure_lines(measure, origin, self.head_size)
            if lines is None:
                self.losses.append(Loss(annotation.address, "measure leaders", codes=("leader.lost",)))
                break
            self.add_segments(lines, (*measure[:3], origin))

    def add_segments(self, segments, points):
        """Segments that are computed from points."""
        self.segments += segments
        if all(abs(number) < EXACT for point in points for number in point[:2]):
            self.sure += segments

    def check_head(self, annotation, end, head, origin):
        """Notes a head that is not drawn as the document has it."""
        has_direction = unit(minus(end, origin)) is not None
        if head > 6:
            self.losses.append(Loss(annotation.address, "a head", WARNING, ("leader.head-unknown",)))
        elif head in (1, 3, 6) and not has_direction and is_drawable(*end[:2], *origin):
            self.losses.append(Loss(annotation.address, "a head's direction", WARNING, ("leader.head-collapsed",)))


def find_refusal(view, options, has_raster):
    """(address, words of the reason) of what a migration refuses first; None when it refuses nothing."""
    if view.metadata and "--drop-view-metadata" not in options:
        return view.address, "metadata"
    for annotation in view.annotations:
        refusal = refuse_content(annotation, options, has_raster)
        if refusal:
            return refusal
        if any(measure_direction(measure) is None for measure in annotation.measures):
            return annotation.address, "perpendicular"
    return None


def has_lines(child):
    """Whether a child brings its parent lines, behind which no other child may come."""
    return bool(child.leaders or child.measures and measure_direction(child.measures[0]))


def refuse_content(annotation, options, has_raster):
    """What makes a tree of annotations be refused; leaders and measure leaders aside."""
    for key in annotation.metadata:
        option = "--drop-known-metadata" if key in KNOWN_KEYS else "--drop-unknown-metadata"
        if option not in options:
            return annotation.address, f"metadata {key}"
    if annotation.lines is None and not has_raster(annotation.raster):
        return annotation.address, "raster"
    if annotation.lines is None and not all(math.isfinite(single(side * MM)) for side in annotation.size):
        return annotation.address, "frame size"
    if annotation.shape > 14:
        return annotation.address, "shape"
    for i, (anchor, child) in enumerate(annotation.children):
        if child is None:
            continue
        refusal = refuse_content(child, options, has_raster)
        if refusal:
            return refusal
        if anchor and anchor not in ANCHOR_FACTORS:
            return child.address, "anchor"
        if any(has_lines(earlier) for _, earlier in present(annotation.children[:i])):
            return annotation.address, "leader"
    return None
