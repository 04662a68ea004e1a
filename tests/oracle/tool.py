"""Asks `qvannot inspect --json --full` about many documents at once."""

import json
import subprocess
import tempfile
from pathlib import Path

from payload import MOST_SHORT_READS

# In one process, with the limits that the oracle knows, and a bound on what a document announces.
MOST_MEMORY = 64 << 20
LIMITS = {
    "--limits": "none",
    "--max-json-depth": 1000,
    "--max-failed-reads": MOST_SHORT_READS,
    "--max-memory": MOST_MEMORY,
}
OPTIONS = [str(word) for option in LIMITS.items() for word in option]
DONE, FINDINGS, UNKNOWN_FORMAT, LIMIT, NOTHING = 0, 1, 4, 6, 7
MOST_SECONDS = 600
LIMIT_CODES = ("limit.", "json.too-deep")


class ToolFailed(Exception):
    """The tool died or answered with something that is no answer."""


def ask(tool, documents):
    """The tool's objects of files, one for each (name, bytes) in their order. Raises ToolFailed."""
    with tempfile.TemporaryDirectory(prefix="oracle") as folder:
        paths = [Path(folder, f"{index:06d}-{name}") for index, (name, _) in enumerate(documents)]
        for path, (_, data) in zip(paths, documents):
            path.write_bytes(data)
        run = inspect(tool, paths)
    if run.returncode not in (DONE, FINDINGS, UNKNOWN_FORMAT, LIMIT, NOTHING):
        raise ToolFailed(f"exit code {run.returncode}: {run.stderr[-1000:].decode('utf-8', 'replace')}")
    answers = parse(run.stdout)
    if len(answers) != len(documents):
        raise ToolFailed(f"{len(answers)} answers to {len(documents)} documents")
    if run.returncode != exit_code(answers):
        raise ToolFailed(f"exit code {run.returncode}, expected {exit_code(answers)}")
    return answers


def inspect(tool, paths):
    command = [tool, "inspect", "--json", "--full", *OPTIONS, *map(str, paths)]
    try:
        return subprocess.run(command, capture_output=True, check=False, timeout=MOST_SECONDS)
    except subprocess.TimeoutExpired as error:
        raise ToolFailed(f"no answer after {MOST_SECONDS} seconds") from error


def parse(output):
    try:
        return json.loads(output)["files"]
    except ValueError as error:
        raise ToolFailed(f"what it wrote is no JSON: {error}") from error


def exit_code(answers):
    """The highest of what happened to the documents; where nothing did and there is no view, nothing was to do."""
    return max(map(conclusion, answers)) or (DONE if any(answer["views"] for answer in answers) else NOTHING)


def conclusion(answer):
    findings = answer["findings"]
    if any(finding["code"].startswith(LIMIT_CODES) for finding in findings):
        return LIMIT
    if not answer["readable"]:
        return UNKNOWN_FORMAT
    return FINDINGS if any(finding["severity"] == "error" for finding in findings) else DONE
