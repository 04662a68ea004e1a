"""A client of `qvannot worker`, written from docs/worker-protocol.md alone.

Usage: client.py QVANNOT REQUEST.json OUTPUT_FOLDER INPUT...   works on inputs, two at a time, and prints their outcomes
"""

import hashlib
import json
import os
import pathlib
import shutil
import socket
import struct
import subprocess
import sys
import tempfile

HEAD = struct.Struct("<III")
REQUEST, READY, REFUSED, TASK, ENDED, TEXT, OUTCOME, WARM = range(1, 9)


class Refused(Exception):
    """Why the worker program ended, and its exit code."""


class Worker:
    """A worker program and the channel to it."""

    def __init__(self, tool, request):
        self.channel, other = socket.socketpair(socket.AF_UNIX, socket.SOCK_STREAM)
        with other:
            self.program = subprocess.Popen([tool, "worker"], stdin=other, start_new_session=True)
        self.send(REQUEST, request)
        self.expect(READY)
        self.send(WARM)

    def send(self, kind, content=b"", files=()):
        frame = HEAD.pack(kind, len(files), len(content)) + content
        count = socket.send_fds(self.channel, [frame], files) if files else 0
        self.channel.sendall(frame[count:])

    def receive(self, size):
        taken = b""
        while len(taken) < size:
            piece = self.channel.recv(size - len(taken))
            if not piece:
                raise ConnectionResetError("the worker program is gone")
            taken += piece
        return taken

    def expect(self, expected):
        kind, files, size = HEAD.unpack(self.receive(HEAD.size))
        content = self.receive(size)
        if kind == REFUSED:
            raise Refused(content.decode(), self.close())
        if kind != expected or files:
            raise ValueError(f"a frame of kind {kind} came instead of {expected}")
        return content

    def close(self):
        """The exit code of the program."""
        self.channel.close()
        return self.program.wait()


class Task:
    """The work on one input: the files that it takes and makes."""

    def __init__(self, number, path, output):
        self.number, self.path, self.output = number, path, output
        self.answer, self.errors = tempfile.TemporaryFile(), tempfile.TemporaryFile()
        self.staging = pathlib.Path(tempfile.mkdtemp(prefix=".client-", dir=output))

    def start(self, worker):
        names = {"givenPath": self.path, "path": self.path, "stem": pathlib.Path(self.path).stem, "place": str(self.output)}
        members = {"task": self.number} | {key: text for name, value in names.items()
                                           for key, text in ((name, value), (name + "Hex", None))}
        document = os.open(self.path, os.O_RDONLY)
        folder = os.open(self.staging, os.O_RDONLY | os.O_DIRECTORY)
        worker.send(TASK, json.dumps(members).encode(), [document, self.answer.fileno(), self.errors.fileno(), folder])
        os.close(document)
        os.close(folder)

    def finish(self, end):
        """The outcome with its outputs in their places, or None when the process died; and the text."""
        outcome, text = None, b""
        if end["status"] == 0 and not end["overdue"] and end["problem"] == 0:
            self.answer.seek(0)
            outcome, text = read_answer(self.answer.read())
        if outcome is not None:
            self.place(outcome["outputs"])
        self.close()
        return outcome, text

    def close(self):
        self.answer.close()
        self.errors.close()
        shutil.rmtree(self.staging)

    def place(self, outputs):
        for output in outputs:
            name = output["name"]
            path = self.staging / name
            if name in ("", ".", "..") or "/" in name or path.is_symlink() or not path.is_file():
                raise ValueError(f"'{name}' is no output")
            with open(path, "rb") as file:
                content = file.read()
                os.fsync(file.fileno())
                os.fchmod(file.fileno(), 0o644)
            output["size"], output["sha256"] = len(content), hashlib.sha256(content).hexdigest()
        for output in outputs:
            os.link(self.staging / output["name"], self.output / output["name"])


def read_answer(answer):
    """The outcome and the text; None for an answer that is not whole."""
    text, place = b"", 0
    while len(answer) - place >= HEAD.size:
        kind, files, size = HEAD.unpack_from(answer, place)
        content = answer[place + HEAD.size:place + HEAD.size + size]
        place += HEAD.size + size
        if kind == OUTCOME and files == 0 and len(content) == size and place == len(answer):
            return json.loads(content), text
        if kind != TEXT or files or len(content) < size:
            break
        text += content
    return None, b""


def work_on(tool, request, paths, output, at_once=2):
    """What became of each input, in their order; and the exit code of the worker program."""
    worker = Worker(tool, request)
    results, running = {}, {}
    for number, path in enumerate(paths):
        running[number] = Task(number, path, pathlib.Path(output))
        running[number].start(worker)
        if len(running) == at_once:
            take_end(worker, running, results)
    while running:
        take_end(worker, running, results)
    return [results[number] for number in range(len(paths))], worker.close()


def take_end(worker, running, results):
    end = json.loads(worker.expect(ENDED))
    results[end["task"]] = running.pop(end["task"]).finish(end)


def main():
    tool, request, output, *paths = sys.argv[1:]
    results, exit_code = work_on(tool, pathlib.Path(request).read_bytes(), paths, output)
    for path, (outcome, text) in zip(paths, results):
        print(path, outcome["conclusion"] if outcome else "died", text.decode(), sep="\n")
    return exit_code


if __name__ == "__main__":
    sys.exit(main())
