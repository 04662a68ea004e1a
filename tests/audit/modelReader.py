"""Takes the views from what `qvannot inspect --json --full` says: of object streams, which only the tool reads."""

import json
import re
import struct

from legacyModel import (ERROR, NORMAL, OPTIONAL, SUBSCRIPT, SUPERSCRIPT, WARNING, Annotation, Loss, Properties, Run,
                         View)

KINDS = {"subscript": SUBSCRIPT, "superscript": SUPERSCRIPT}


def numbers(record, key):
    """Numbers of a list; those that are not finite stand as their bits beside it."""
    bits = record[key + "Bits"]
    if bits is None:
        return tuple(record[key])
    return tuple(struct.unpack(">f", bytes.fromhex(text))[0] for text in bits)


def properties(record):
    """Those of a run or of an annotation."""
    return Properties(record["font"], record["heightHundredths"], record["bold"], record["italic"])


def decode(data):
    """Characters, with a replacement for each piece that is none; half of a surrogate pair is one piece."""
    return re.sub(b"\xed[\xa0-\xbf][\x80-\xbf]", b"\xff", data).decode("utf-8", "replace")


def run(record, default):
    """A run; bytes that are no UTF-8 stand beside the text."""
    text = record["text"] if record["textHex"] is None else decode(bytes.fromhex(record["textHex"]))
    kind = KINDS.get(record["kind"], NORMAL)
    return Run(text, kind, properties(record["properties"]) if record["properties"] else default)


def annotation(record):
    """One annotation without its children."""
    read = Annotation(record["address"], record["name"], tuple(bytes.fromhex(record["color"][1:])))
    read.position = numbers(record, "position")
    read.leaders = [(numbers(each, "position"), each["headNumber"]) for each in record["leaders"]]
    read.measures = [(numbers(each, "pointA"), numbers(each, "pointB"), numbers(each, "offset"), each["arrowDirectionNumber"])
                     for each in record["measures"]]
    read.shape = record["frameShapeNumber"]
    read.metadata = [entry["key"] for entry in record["metadata"]]
    if record["kind"] == "text":
        default = properties(record["defaultTextProperties"])
        read.lines = [[run(each, default) for each in line] for line in record["lines"]]
    else:
        read.raster, read.size = record["rasterName"], numbers(record, "size")
    return read


def annotations(records):
    """The top annotations of a list that holds all levels, each before its children."""
    top, known = [], {}
    for record in records:
        read = None if record["isNull"] else annotation(record)
        holder, _, _ = record["address"].rpartition("/sub/")
        if holder:
            known[holder].children.append((record["anchorNumber"], read))
        elif read is not None:
            top.append(read)
        known[record["address"]] = read
    return top


def view(record):
    """One view; without content where the reader refused it."""
    read = View(record["address"], record["name"])
    if not record["readable"]:
        read.refusal = ""
        return read
    read.plane = tuple(numbers(record["plane"], key) for key in ("origin", "normal", "xAxis"))
    read.metadata = [entry["key"] for entry in record["metadata"]]
    read.annotations = annotations(record["annotations"])
    return read


def read_inspection(text):
    """The views of the only file of an inspection, and what its findings say is not read."""
    file = json.loads(text)["files"][0]
    severities = {"error": ERROR, "warning": WARNING, "info": OPTIONAL}
    losses = [Loss(each["address"] or "", each["text"], severities[each["severity"]], (each["code"],))
              for each in file["findings"]]
    return [view(each) for each in file["views"]], losses
