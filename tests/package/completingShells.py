"""Shells that complete command lines as they do for people: what each one offers for a line, as a set of words.

A shell is made of a completion script and a folder to work in, and asked with `offer("migrate", "--te")`: the words behind
the tool's name, of which the last one is begun.
"""

import os
import pathlib
import pty
import select
import signal
import subprocess
import tempfile
import time


class Bash:
    """Calls the completion's function as readline does, which breaks words at "=", too."""
    SCRIPT = """
source "$1"; shift
COMP_WORDS=(qvannot "$@"); COMP_CWORD=$#
_qvannot qvannot "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
printf '%s\\n' "${COMPREPLY[@]}"
"""

    def __init__(self, script, folder):
        self.script, self.folder = script, folder

    def offer(self, *words):
        broken = [part for word in words for part in word.replace("=", " = ").split(" ")]
        command = ["bash", "--norc", "-c", self.SCRIPT, "bash", self.script, *broken]
        output = subprocess.run(command, check=True, capture_output=True, text=True, cwd=self.folder)
        assert not output.stderr, output.stderr
        return set(output.stdout.split())


class Fish:
    """Asks fish itself, which tells a word and its description."""

    def __init__(self, script, folder):
        self.script, self.folder = script, folder

    def offer(self, *words):
        line = " ".join(("qvannot", *words))
        command = ["fish", "--no-config", "-c", f"source {self.script}; complete -C '{line}'"]
        output = subprocess.run(command, check=True, capture_output=True, text=True, cwd=self.folder,
                                env=dict(os.environ, HOME=str(self.folder)))
        assert not output.stderr, output.stderr
        offered = {row.split("\t")[0].rstrip("/") for row in output.stdout.splitlines()}
        return {word.split("=")[-1] for word in offered}


class Zsh:
    """Types into an interactive shell, which inserts all that it offers and then tells its line."""
    SETTING = """
fpath=({folder} $fpath)
autoload -Uz compinit && compinit -u -D
PS1=
zstyle ':completion:*' completer _complete
insert_all() { _main_complete; compstate[insert]=all; compstate[list]= }
zle -C insert_all complete-word insert_all
tell() { print -r -- "$BUFFER" >>$ANSWERS; BUFFER= }
zle -N tell
bindkey '^T' insert_all
bindkey '^X' tell
print ready >>$ANSWERS
"""
    PATIENCE = 60

    def __init__(self, script, folder):
        self.home = tempfile.TemporaryDirectory()
        home = pathlib.Path(self.home.name)
        (home / "_qvannot").symlink_to(pathlib.Path(script).resolve())
        (home / ".zshrc").write_text(self.SETTING.replace("{folder}", self.home.name))
        self.answers = home / "answers"
        self.answers.touch()
        self.count = 0
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder)
            os.execvpe("zsh", ["zsh", "-d", "-i"],
                       dict(os.environ, ZDOTDIR=self.home.name, ANSWERS=str(self.answers), TERM="dumb"))
        self.take_answer()

    def take_answer(self):
        self.count += 1
        shown, end = b"", time.monotonic() + self.PATIENCE
        while time.monotonic() < end:
            if select.select([self.terminal], [], [], 0.02)[0]:
                shown += os.read(self.terminal, 65536)
            answers = self.answers.read_text().splitlines()
            if len(answers) >= self.count:
                return answers[-1]
        raise AssertionError(f"zsh gave no answer; it showed {shown}")

    def offer(self, *words):
        line = " ".join(("qvannot", *words))
        os.write(self.terminal, (line + "\x14\x18").encode())
        answer = self.take_answer()
        if answer == line:
            return set()
        begun = line[:len(line) - len(words[-1])]
        return {word.split("=")[-1] or word.rstrip("=") for word in
                (offered.rstrip("/") for offered in answer.removeprefix(begun).split())}

    def __del__(self):
        os.kill(self.process, signal.SIGKILL)
        os.waitpid(self.process, 0)
        os.close(self.terminal)


SHELLS = {"bash": Bash, "zsh": Zsh, "fish": Fish}
