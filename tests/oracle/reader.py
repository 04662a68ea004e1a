"""Reads a document of either encoding, told by its first bytes."""

import streamReader
import variantReader


def read(data, rules):
    """Reads the bytes of a document to a model.Document. Raises BeyondLimits where a stream announces too much."""
    encoding = streamReader if data.startswith(streamReader.MARK) else variantReader
    return encoding.read_document(data, rules)
