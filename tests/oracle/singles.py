"""Numbers as documents hold them: singles down to their bits, and the text of a real.

Singles are carried as their 32 bits, since Python's own floats are doubles and would hide which not-a-number it was.
"""

import math
import struct


def is_number(value):
    """Whether a value is an integer or a real; Python's bool is an int, too, but none here."""
    return isinstance(value, (int, float)) and not isinstance(value, bool)


def single_bits(number):
    """The bits of the single nearest to a double; beyond the largest single that is an infinity."""
    try:
        return struct.unpack("<I", struct.pack("<f", number))[0]
    except OverflowError:
        return 0xFF800000 if number < 0 else 0x7F800000


def single_value(bits):
    """The single of these bits as a double, which holds it exactly."""
    return struct.unpack("<f", struct.pack("<I", bits))[0]


def round_single(number):
    """The double that has the value of the single nearest to the number."""
    return single_value(single_bits(number))


def is_finite(bits):
    return bits & 0x7F800000 != 0x7F800000


def double_bits(number):
    return struct.unpack("<Q", struct.pack("<d", number))[0]


def double_of_bits(bits):
    return struct.unpack("<d", struct.pack("<Q", bits))[0]


def real_text(real):
    """The shortest text that reads back as the real: plain or with an exponent, plain where both are as long."""
    if real == 0:
        return "-0" if math.copysign(1, real) < 0 else "0"
    sign = "-" if real < 0 else ""
    digits, exponent = _shortest_digits(abs(real))
    power = exponent + len(digits) - 1
    mantissa = digits[0] + ("." + digits[1:] if len(digits) > 1 else "")
    scientific = f"{mantissa}e{'-' if power < 0 else '+'}{abs(power):02d}"
    plain = _plain(abs(real), digits, exponent)
    return sign + (plain if len(plain) <= len(scientific) else scientific)


def _shortest_digits(real):
    """The shortest digits and the power of ten of the last of them."""
    mantissa, _, power = repr(real).partition("e")
    whole, _, fraction = mantissa.partition(".")
    digits = (whole + fraction).lstrip("0")
    exponent = int(power or 0) - len(fraction)
    stripped = digits.rstrip("0")
    return stripped, exponent + len(digits) - len(stripped)


def _plain(real, digits, exponent):
    if exponent >= 0:
        return str(int(real))
    if len(digits) > -exponent:
        return digits[:exponent] + "." + digits[exponent:]
    return "0." + digits.rjust(-exponent, "0")
