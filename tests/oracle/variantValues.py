"""What a value of one kind is when another is wanted: never an error, often the empty value."""

import re

from singles import is_number, real_text, single_bits

DECIMAL = re.compile(r"-?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?")
INFINITIES = (float("inf"), float("-inf"))


def to_string(value):
    if isinstance(value, str):
        return value
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, int):
        return str(value)
    return real_text(value) if isinstance(value, float) else ""


def to_number(value):
    if isinstance(value, str):
        number = float(value) if DECIMAL.fullmatch(value) else 0.0
        return 0.0 if number in INFINITIES else number
    return float(value) if isinstance(value, (bool, int, float)) else 0.0


def to_bool(value):
    return value == "true" if value in ("true", "false") else to_number(value) != 0


def to_bytes(value):
    return to_string(value).encode("utf-8")


def to_point(value):
    """Three singles, or None where the value is no list of exactly three numbers."""
    if not isinstance(value, list) or len(value) != 3 or not all(is_number(element) for element in value):
        return None
    return tuple(single_bits(float(element)) for element in value)


def to_metadata(value):
    """Metadata as the model keeps them: texts are bytes there."""
    if isinstance(value, str):
        return value.encode("utf-8")
    if isinstance(value, dict):
        return {key.encode("utf-8"): to_metadata(content) for key, content in value.items()}
    if isinstance(value, list):
        return [to_metadata(content) for content in value]
    return value
