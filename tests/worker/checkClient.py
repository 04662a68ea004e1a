"""A client that knows docs/worker-protocol.md alone gets from the worker program what the tool makes by itself.

Usage: checkClient.py QVANNOT EXAMPLES_FOLDER
"""

import json
import os
import pathlib
import select
import shutil
import signal
import subprocess
import sys
import tempfile

import client

DOCUMENTS = ("bracket_6.27.json", "binary/image_sheet_6.27.qvs")
LIMITS = ("maxMemory", "maxTime", "maxInput", "maxFailedReads", "maxStack", "maxJsonDepth", "maxDepth", "maxNodes",
          "maxOutput", "maxOutputFile", "maxRaster", "maxViews")
CHECKS = []


def check(function):
    CHECKS.append(function)
    return function


def make_request(**members):
    request = {
        "format": "qvannot.request", "formatVersion": 1, "toolVersion": "0", "action": "migrate", "json": False, "full": False,
        "pretty": False, "dropViewMetadata": True, "dropKnownMetadata": True, "dropUnknownMetadata": True, "headSize": 3,
        "rasters": "rasters", "rastersHex": None, "fonts": {"folders": [], "replacements": [], "systemFonts": True},
        "textMode": "live", "pageFormat": "svg", "resolution": 150, "streamVersion": "6.27", "viewsOnly": False,
        "transformation": {"rotation": [1, 0, 0, 0, 1, 0, 0, 0, 1], "scale": 1, "translation": [0, 0, 0]}, "offset": None,
        "limits": {"lifted": False} | dict.fromkeys(LIMITS)}
    return json.dumps(request | members).encode()


def run(tool, *words):
    return subprocess.run([tool, *words], capture_output=True, check=False).stdout


def read_folder(folder):
    return {path.name: path.read_bytes() for path in pathlib.Path(folder).iterdir()}


@check
def files_are_those_of_the_tool(tool, folder):
    own, others = folder / "own", folder / "others"
    own.mkdir()
    run(tool, "migrate", *DOCUMENTS, "-o", others, "--rasters", "rasters", "--drop-view-metadata", "--drop-known-metadata",
        "--drop-unknown-metadata")
    results, exit_code = client.work_on(tool, make_request(), DOCUMENTS, own)
    expected = read_folder(others)
    assert len(expected) > len(DOCUMENTS) and read_folder(own) == expected, "other files than the tool's"
    outputs = [output for outcome, _ in results for output in outcome["outputs"]]
    assert {output["name"]: output["size"] for output in outputs} == {name: len(text) for name, text in expected.items()}
    assert [outcome["source"]["path"] for outcome, _ in results] == list(DOCUMENTS)
    assert exit_code == 0 and all(outcome["conclusion"] == "done" for outcome, _ in results), results


@check
def converted_pages_are_those_of_the_tool(tool, folder):
    if shutil.which("rsvg-convert") is None:
        return
    own, others = folder / "own", folder / "others"
    own.mkdir()
    run(tool, "migrate", DOCUMENTS[0], "-o", others, "--format", "png", "--drop-view-metadata", "--drop-known-metadata",
        "--drop-unknown-metadata")
    client.work_on(tool, make_request(pageFormat="png", rasters=None), DOCUMENTS[:1], own)
    assert any(name.endswith(".png") for name in read_folder(own)) and read_folder(own) == read_folder(others)


@check
def text_is_that_of_the_tool(tool, folder):
    results, _ = client.work_on(tool, make_request(action="inspect"), DOCUMENTS, folder)
    text = b"".join(text for _, text in results)
    assert text and text == run(tool, "inspect", *DOCUMENTS), text


@check
def entries_are_those_of_the_list_of_the_tool(tool, folder):
    results, _ = client.work_on(tool, make_request(action="inspect", json=True), DOCUMENTS, folder)
    files = json.loads(run(tool, "inspect", "--json", *DOCUMENTS))["files"]
    assert [json.loads(text) for _, text in results] == files, results


@check
def an_input_that_is_no_document_costs_no_other_one(tool, folder):
    (folder / "torn.json").write_text("{")
    paths = [DOCUMENTS[0], str(folder / "torn.json"), DOCUMENTS[1]]
    results, _ = client.work_on(tool, make_request(action="encode"), paths, folder)
    assert [outcome["conclusion"] for outcome, _ in results] == ["done", "broken", "done"], results


@check
def a_limit_is_an_outcome(tool, folder):
    limits = {"lifted": False} | dict.fromkeys(LIMITS) | {"maxViews": 1}
    [(outcome, _)], _ = client.work_on(tool, make_request(limits=limits), DOCUMENTS[:1], folder)
    assert outcome["conclusion"] == "limit" and outcome["outputs"] == [], outcome
    assert [finding["code"] for finding in outcome["findings"]] == ["limit.views"], outcome


def refuse(tool, request, *frames):
    """Why the program ends, and its exit code."""
    try:
        worker = client.Worker(tool, request)
        for frame in frames:
            worker.send(*frame)
        worker.expect(client.ENDED)
    except client.Refused as refused:
        return refused.args
    raise AssertionError("nothing was refused")


@check
def what_is_wrong_is_refused_with_a_reason(tool, _folder):
    for reason, *frames in (("/formatVersion: ", make_request(formatVersion=9)), ("'gone'", make_request(rasters="gone")),
                            ("no proper task", make_request(), (client.TASK, b"{}")),
                            ("no frame that a client may send", make_request(), (client.READY,))):
        why, exit_code = refuse(tool, *frames)
        assert reason in why and exit_code == 2, (why, exit_code)


@check
def a_channel_that_is_closed_ends_the_program_with_all_its_processes(tool, folder):
    worker = client.Worker(tool, make_request(action="inspect"))
    os.mkfifo(folder / "endless")
    writer = os.open(folder / "endless", os.O_RDWR)
    task = client.Task(0, str(folder / "endless"), folder)
    reading, writing = os.pipe()
    task.errors.close()
    task.errors = open(writing, "wb")
    task.start(worker)
    task.close()
    assert worker.close() == 0
    assert select.select([reading], [], [], 60)[0] and os.read(reading, 1) == b"", "some process is left"
    os.close(writer)
    os.close(reading)


@check
def a_worker_that_is_killed_is_gone_for_its_client(tool, _folder):
    worker = client.Worker(tool, make_request())
    worker.program.send_signal(signal.SIGKILL)
    try:
        worker.expect(client.ENDED)
    except ConnectionError:
        assert worker.close() == -signal.SIGKILL
        return
    raise AssertionError("somebody answered")


def main():
    tool, examples = (os.path.abspath(word) for word in sys.argv[1:])
    os.chdir(examples)
    for function in CHECKS:
        with tempfile.TemporaryDirectory() as folder:
            function(tool, pathlib.Path(folder))
    print(f"{len(CHECKS)} checks passed")


if __name__ == "__main__":
    main()
