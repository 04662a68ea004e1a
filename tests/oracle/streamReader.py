"""Reads an object stream, as docs/formats/object-stream.md tells it: container, links and the order of the views."""

import struct
from dataclasses import dataclass, field

from model import Document, Finding
from payload import Budget, Payload
from recordReader import RecordReader

MARK = b"qvStream"
UNLISTED = "stream.unlisted-view"
LINK = "stream.link"
VERSION = "stream.version"
SEVERITIES = ("error", "warning", "info")


@dataclass
class Link:
    """The id of an object, and where it stands."""

    id: int
    offset: int


@dataclass(eq=False)
class Object:
    """One object of the container: where it begins, what type it is, and its payload as far as it is there."""

    id: int
    type: str | None
    offset: int
    payload_offset: int
    payload: bytes
    view: object = None
    links: list = field(default_factory=list)


class EndOfData(Exception):
    """The container ends within a field; says where the field begins."""

    def __init__(self, offset):
        super().__init__(f"the document ends within the field at byte {offset}")
        self.offset = offset


def is_counted(finding):
    """Whether a finding is one of the problems of which only so many are listed."""
    return finding.code not in (UNLISTED, VERSION) and (finding.code != LINK or finding.severity == "error")


def read_document(data, rules):
    """Reads the bytes of an object stream to a model.Document. Raises BeyondLimits where it announces too much."""
    return _StreamReader(data, rules).document()


class _StreamReader:
    def __init__(self, data, rules):
        self.data = data
        self.rules = rules
        self.budget = Budget()
        self.at = len(MARK)
        self.version = 0
        self.shown_version = 0
        self.result = Document("objectStream")
        self.objects = []

    def find(self, code, severity, offset=None):
        self.result.findings.append(Finding(code, severity, offset))

    def document(self):
        try:
            self.container()
        except EndOfData as end:
            self.find("stream.broken", "error", end.offset)
        self.result.views = [one.view for one in self.ordered_views()]
        self.cut_findings()
        if not self.result.views:
            self.conclude_empty()
        return self.result

    def cut_findings(self):
        """Beyond a number of problems one finding stands for the others."""
        problems = [one for one in self.result.findings if is_counted(one)]
        more = problems[self.rules.most_problems :]
        if more:
            worst = min((one.severity for one in more), key=SEVERITIES.index)
            self.result.findings = [one for one in self.result.findings if one not in more]
            self.find("stream.more", worst)

    def conclude_empty(self):
        """Without any view an error makes the document unreadable."""
        if any(finding.severity == "error" for finding in self.result.findings):
            self.result.readable = False
        else:
            self.find("document.no-views", "warning")

    def number(self, form):
        size = struct.calcsize(form)
        if self.at + size > len(self.data):
            raise EndOfData(self.at)
        self.at += size
        return struct.unpack_from(form, self.data, self.at - size)[0]

    def container(self):
        self.version = self.shown_version = self.number("<I")
        if self.version > self.rules.highest:
            self.find(VERSION, "warning", len(MARK))
            self.version = self.rules.newest
        for _ in range(self.number("<I")):
            if not self.object():
                return
        if self.at < len(self.data):
            self.find("stream.trailing-bytes", "warning", self.at)

    def object(self):
        """False where its payload is cut off, behind which there is nothing."""
        offset = self.at
        identifier = self.number("<I")
        length = self.number("<i")
        if length > self.rules.longest_type_name:
            raise EndOfData(self.at)
        name = self.bytes(max(length, 0))
        size = self.number("<Q")
        start = self.at
        payload = self.data[start : start + size]
        is_whole = len(payload) == size
        if not is_whole:
            self.find("stream.broken", "error", start)
        self.keep(Object(identifier, self.rules.type_names.get(name), offset, start, payload))
        self.at += len(payload)
        return is_whole

    def bytes(self, size):
        if self.at + size > len(self.data):
            raise EndOfData(self.at)
        self.at += size
        return self.data[self.at - size : self.at]

    def keep(self, one):
        taken = one.id != 0 and any(other.id == one.id for other in self.objects)
        if one.id == 0 or taken:
            self.find("stream.object-id", "error", one.offset)
        if taken:
            return
        self.objects.append(one)
        if one.type is None:
            self.find("stream.unknown-type", "warning", one.offset)
            return
        payload = Payload(one.payload, one.payload_offset, self.budget)
        self.load_object(one, payload)
        self.report(payload)

    def load_object(self, one, payload):
        if one.type == "view":
            one.view = RecordReader(payload, self.version, self.rules).view()
            one.view.version = self.shown_version
            return
        payload.string()
        payload.count()
        for _ in range(payload.count()):
            place = payload.place()
            link = payload.number("<I", None)
            if link is not None:
                one.links.append(Link(link, place))

    def report(self, payload):
        """One finding an object: its first fault, or what is left of the payload."""
        if payload.fault:
            code, place = payload.fault
            self.find(code, "error", place)
        elif payload.left:
            self.find("stream.under-read", "warning", payload.place())

    def ordered_views(self):
        """The views that are listed, each at its first place, then the others in the order of the objects."""
        listed = []
        lists = [one for one in self.objects if one.type == "metadata"]
        for one in lists:
            self.follow_links(one.links, listed)
        others = [one for one in self.objects if one.view and one not in listed]
        for other in others if lists else []:
            self.find(UNLISTED, "info", other.payload_offset)
        return listed + others

    def follow_links(self, links, listed):
        views = {one.id: one for one in self.objects if one.view and one.id}
        nowhere = [link for link in links if link.id == 0]
        again = []
        for link in links:
            view = views.get(link.id)
            if view is None and link.id:
                self.find(LINK, "error", link.offset)
            elif view in listed:
                again.append(link)
            elif view:
                listed.append(view)
        for severity, group in (("warning", nowhere), ("info", again)):
            if group:
                self.find(LINK, severity, group[0].offset)
