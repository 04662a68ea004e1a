"""Single-precision numbers, as documents hold them, and affine maps of the page."""

import math
import struct


def single(number):
    """The nearest number of single precision; infinite beyond them."""
    try:
        return struct.unpack("<f", struct.pack("<f", number))[0]
    except OverflowError:
        return math.copysign(math.inf, number)


def is_drawable(*numbers):
    """Whether a page can hold all of these coordinates."""
    return all(math.isfinite(number) and abs(number) <= 1e9 for number in numbers)


def is_near(a, b, tolerance=2e-4):
    """Equal but for the rounding of a few steps in single precision."""
    return abs(a - b) <= tolerance * max(1.0, abs(a), abs(b))


def are_near(a, b, tolerance=2e-4):
    """`is_near` for sequences of numbers."""
    return len(a) == len(b) and all(is_near(x, y, tolerance) for x, y in zip(a, b))


IDENTITY = (1.0, 0.0, 0.0, 1.0, 0.0, 0.0)


def product(outer, inner):
    """The affine map that applies `inner` first; six numbers in the order of SVG's matrix()."""
    a, b, c, d, e, f = outer
    p, q, r, s, t, u = inner
    return (a * p + c * q, b * p + d * q, a * r + c * s, b * r + d * s, a * t + c * u + e, b * t + d * u + f)


def apply(matrix, point):
    """The point's image under an affine map."""
    a, b, c, d, e, f = matrix
    x, y = point
    return (a * x + c * y + e, b * x + d * y + f)


class Box:
    """An axis-parallel box around points."""

    def __init__(self, points):
        self.left, self.right = min(x for x, _ in points), max(x for x, _ in points)
        self.top, self.bottom = min(y for _, y in points), max(y for _, y in points)
        self.width, self.height = self.right - self.left, self.bottom - self.top
        self.center = ((self.left + self.right) / 2, (self.top + self.bottom) / 2)

    def contains(self, point, slack=1e-3):
        """Whether a point lies inside or on the border."""
        slack *= max(1.0, *map(abs, point))
        return (self.left - slack <= point[0] <= self.right + slack and
                self.top - slack <= point[1] <= self.bottom + slack)
