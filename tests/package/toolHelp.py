"""What the help texts of qvannot list: the common ground of the manual page's and the completion's tests."""

import re
import subprocess

COMMAND = re.compile(r"^  ([a-z][\w-]*) ", re.MULTILINE)
OPTION_LINE = re.compile(r"^  (-[a-zA-Z-]+(?:, -[a-zA-Z-]+)*)", re.MULTILINE)


def help_text(tool, *command):
    return subprocess.run([tool, *command, "--help"], check=True, capture_output=True, text=True).stdout


def commands(tool):
    return COMMAND.findall(help_text(tool).split("Commands:\n")[1].split("\n\n")[0])


def options(tool, *command):
    """The options of a command, or of the tool itself: every spelling."""
    found = OPTION_LINE.findall(help_text(tool, *command))
    return {option for line in found for option in line.split(", ")}
