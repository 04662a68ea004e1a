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
SOUND_CODES = {0, 1, 4, 6, 7}


class ToolFailed(Exception):
    """The tool died or answered with something that is no answer."""


def ask(tool, documents):
    """The tool's objects of files, one for each (name, bytes) in their order."""
    with tempfile.TemporaryDirectory(prefix="oracle") as folder:
        paths = [Path(folder, f"{index:06d}-{name}") for index, (name, _) in enumerate(documents)]
        for path, (_, data) in zip(paths, documents):
            path.write_bytes(data)
        run = subprocess.run(
            [tool, "inspect", "--json", "--full", *OPTIONS, *map(str, paths)], capture_output=True, check=False
        )
    if run.returncode not in SOUND_CODES:
        raise ToolFailed(f"exit code {run.returncode}\n{run.stderr[-2000:].decode('utf-8', 'replace')}")
    answers = json.loads(run.stdout)["files"]
    if len(answers) != len(documents):
        raise ToolFailed(f"{len(answers)} answers to {len(documents)} documents")
    return answers
