"""What the tool says on standard error, and whether that tells of each loss and of nothing else."""

import re
from dataclasses import dataclass

from legacyModel import ERROR, INFO, OPTIONAL, WARNING

LINE = re.compile(r"^(?P<file>.*?): (?P<severity>info|warning|error): (?P<text>.*) \[(?P<notes>[^\[\]]*)\]$")
MORE = re.compile(r"^(?P<file>.*): \d+ more findings of this kind \[(?P<code>[^\]]*)\]$")
WEIGHTS = {INFO: 0, WARNING: 1, ERROR: 2}
# These repeat in the library's words what another finding says.
REPEATING = ("migration.message", "reader.message")


@dataclass(frozen=True)
class Finding:
    """One line."""

    severity: str
    text: str
    code: str
    address: str


def parse(lines):
    """The findings, and the lines that are none."""
    findings, others = [], []
    for line in lines:
        more, match = MORE.match(line), LINE.match(line)
        if more:
            findings.append(Finding(ERROR, line, more["code"], ""))
        elif match:
            notes = match["notes"].split(", ")
            is_placed = len(notes) > 1 and notes[1].startswith("view/") and not match["text"].endswith(" places, first")
            address = notes[1] if is_placed else ""
            findings.append(Finding(match["severity"], match["text"], notes[0], address))
        else:
            others.append(line)
    return findings, others


def covers(outer, inner):
    """Whether an address is another one's own or that of something around it."""
    return outer == "" or inner == outer or inner.startswith(outer + "/")


def tells(finding, loss):
    """Whether a finding may speak of a loss: its place, and its code as far as that is fixed. Fonts lose nothing else."""
    fits = finding.code in loss.codes if loss.codes else not finding.code.startswith("font.")
    return fits and loss.word in finding.text and covers(finding.address, loss.address)


def has_cause(finding, loss):
    """Whether a finding that repeats another one may speak of a loss."""
    return covers(finding.address, loss.address)


def check(findings, losses):
    """Problems: losses that no finding of their weight tells of, and errors that tell of no loss."""
    problems = []
    for loss in dict.fromkeys(losses):
        if loss.severity == OPTIONAL:
            continue
        heard = [WEIGHTS[each.severity] for each in findings if tells(each, loss)]
        if max(heard, default=-1) < WEIGHTS[loss.severity]:
            problems.append(f"silent: {loss.address}: {loss.what} [{loss.severity}]" + (" (lighter only)" if heard else ""))
    lost = [loss for loss in losses if loss.severity in (ERROR, OPTIONAL)]
    for finding in findings:
        is_true = has_cause if finding.code in REPEATING else tells
        if finding.severity == ERROR and not any(is_true(finding, each) for each in lost):
            problems.append(f"false: {finding.address}: {finding.text} [{finding.code}]")
    return problems
