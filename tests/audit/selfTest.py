"""Checks that the audit notices what is planted: pages that lack or shift something, and findings that are not said.

Usage: selfTest.py TOOL EXAMPLES
"""

import json
import pathlib
import re
import sys
import tempfile

from auditPages import DROPS, Audit

# What is planted, the document, a pattern in its page, and what stands there instead, once.
PLANTED = [
    ("a character removed", "bracket_6.27.json", "(<text [^\n]*>)120", r"\g<1>12"),
    ("a character replaced", "bracket_6.27.json", r"±0\.2", "±0.3"),
    ("a character added", "bracket_6.27.json", ">70<", ">700<"),
    ("a text removed", "bracket_6.27.json", "<text [^\n]*0.05</tspan></text>\n", ""),
    ("a line put behind another", "bracket_6.27.json", "(<text [^\n]*2× [^\n]*\n)(<text [^\n]*\n)", r"\2\1"),
    ("text made smaller", "bracket_6.27.json", r"matrix\(0.034925 0 0 -0.034925 0 0\)", "matrix(0.03 0 0 -0.03 0 0)"),
    ("text in the frame's colour", "bracket_6.27.json", 'fill="#000000">\n<g class', 'fill="#FFFFFF">\n<g class'),
    ("text that is no longer bold", "bracket_6.27.json",
     ' font-weight="bold"| stroke="[^"]*" stroke-width="[^"]*" stroke-linejoin="round"', ""),
    ("text moved out of its frame", "bracket_6.27.json", r"matrix\(1 0 0 -1 -[\d.]+", "matrix(1 0 0 -1 -99"),
    ("a piece of a line put before another", "bracket_6.27.json", '(<tspan x=")[^"]*("[^>]*>11 THRU)', r"\g<1>1\2"),
    ("a leader moved", "bracket_6.27.json", "M396 -256", "M400 -256"),
    ("a leader removed", "bracket_6.27.json", "M396 -256L568 -288", ""),
    ("a measure leader's line removed", "bracket_6.27.json", "M240 64L0 64", ""),
    ("a leader in another colour", "bracket_6.27.json", 'stroke="#000000" stroke-width="0" data-l', 'stroke="#FF0000" data-l'),
    ("a head removed", "bracket_6.27.json", '<path stroke="none" d="M3.1140075[^\n]*\n', ""),
    ("a head turned", "bracket_6.27.json", 'd="M3.1140075 -0.33609337', 'd="M3.1140075 0.33609337'),
    ("a head moved", "bracket_6.27.json", r"translate\(99 -64\)", "translate(99 -63)"),
    ("an annotation moved", "bracket_6.27.json", r"translate\(60 16\)", "translate(60 17)"),
    ("an annotation removed", "bracket_6.27.json", 'data-address="view/0/annot/1"', 'class="nothing"'),
    ("two annotations under one address", "bracket_6.27.json", 'data-address="view/0/annot/1"', 'data-address="view/0/annot/2"'),
    ("another name", "bracket_6.27.json", 'data-name="Width"', 'data-name="Breadth"'),
    ("a frame removed", "bracket_6.27.json", '<rect [^\n]*class="border"[^\n]*\n', ""),
    ("a frame without border", "bracket_6.27.json", 'fill="#FFFFFF" stroke="#000000" stroke-width="1"', 'fill="#FFFFFF" stroke="none"'),
    ("a frame in another colour", "bracket_6.27.json", 'class="border" fill="#FFFFFF"', 'class="border" fill="#FFFFFE"'),
    ("a frame of another size", "bracket_6.27.json", '(class="border"[^\n]* width=")[^"]*', r"\g<1>3"),
    ("a frame of another shape", "note_sheet_6.27.json", r'(<path [^\n]*class="border"[^\n]* d="M)\S+', r"\g<1>0"),
    ("a child moved", "label_tree_6.27.json", r'(<g transform="translate\()([-\d.]+)( [-\d.]+\)"[^\n]*/sub/0")', r"\g<1>1\2\3"),
    ("an image removed", "image_sheet_6.27.json", "<image [^\n]*\n", ""),
    ("another image", "image_sheet_6.27.json", "base64,iVBORw0KGgoAAAANSUhEUg", "base64,iVBORw0KGgoAAAANSUhEUw"),
    ("an image of another size", "image_sheet_6.27.json", '(<image [^\n]*width=")[^"]*', r"\g<1>20"),
    ("an unknown element", "bracket_6.27.json", '<rect class="border"', '<circle r="5"/><rect class="border"'),
    ("another title", "bracket_6.27.json", "<title>Front</title>", "<title>Back</title>"),
]

SOUND = {"type": "text", "name": "t", "lines": [[{"text": "A"}]]}
# What is wrong in an annotation, and the code of the finding that says so.
SAID = [
    ({"defaulttextprop": {"heightem": 0}}, "text.no-height"),
    ({"position": [1e20, 0, 0]}, "number.not-finite"),
    ({"position": [0, 0, 1e300]}, "number.not-finite"),
    ({"color": "12GGGG"}, "reader.value-inexact"),
    ({"frameshape": "circle"}, "frame.shape-as-rectangle"),
    ({"lines": [[{"text": "\U0010fffd"}]]}, "font.glyph-missing"),
    ({"lines": [[{"text": "A"}], []]}, "text.blank-line-skipped"),
    ({"type": "raster", "rastername": "mark", "sizeem": [0, 1]}, "raster.size"),
    ({"type": "raster", "rastername": "none"}, "migration.view-not-migrated"),
    ({"children": [SOUND | {"children": [SOUND | {"leaders": [{"pos": [9, 9, 9]}]}]}]}, "leader.lost"),
]


def plant(pattern, replacement):
    """A change of pages, and a list that tells of those in which the pattern stands."""
    changed = []

    def change(page):
        altered, count = re.subn(pattern, replacement, page, count=0 if changed else 1)
        changed.extend([pattern] * count)
        return altered if count else page

    return change, changed


def check_pages(audit, examples):
    """What was planted in pages and passed."""
    problems = [problem for document in sorted({document for _, document, _, _ in PLANTED})
                for problem in audit.audit(examples / document)]
    for what, document, pattern, replacement in PLANTED:
        change, changed = plant(pattern, replacement)
        found = audit.audit(examples / document, change=change)
        if not changed:
            problems.append(f"{what}: nothing to change in {document}")
        elif not found:
            problems.append(f"{what}: was not noticed")
    return problems


def check_findings(audit, folder):
    """What is not said, or said without cause, and passed."""
    problems = []
    for number, (fault, code) in enumerate(SAID):
        path = folder / f"fault{number}.json"
        path.write_text(json.dumps({"ver": "6.27", "metadata": {}, "annotations": [SOUND | fault]}), "ascii")
        problems += audit.audit(path)
        if not audit.audit(path, hear=lambda lines, code=code: [line for line in lines if f"[{code}" not in line]):
            problems.append(f"{code}: was not missed")
    path = folder / "sound.json"
    path.write_text(json.dumps({"ver": "6.27", "metadata": {}, "annotations": [SOUND]}), "ascii")
    false = f"{path}: error: 2 leaders are lost [leader.lost, view/0/annot/0]"
    if not audit.audit(path, DROPS, hear=lambda lines: lines + [false]):
        problems.append("a false finding was believed")
    return problems


def main(tool, examples):
    """0 when everything planted is noticed."""
    examples = pathlib.Path(examples)
    audit = Audit(tool, examples / "rasters")
    with tempfile.TemporaryDirectory() as folder:
        problems = check_pages(audit, examples) + check_findings(audit, pathlib.Path(folder))
    print("\n".join(problems) or f"{len(PLANTED) + len(SAID) + 1} planted losses are noticed")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
