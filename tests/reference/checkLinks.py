"""Each relative link of the checkout's documents leads to a file or folder in it, and to a heading where it names one.

Usage: checkLinks.py SOURCE_FOLDER, or checkLinks.py --self-test
"""

import os
import pathlib
import re
import sys
import tempfile
import urllib.parse

LINK = re.compile(r"!?\[(?:[^\[\]]|\[[^\]]*\])*\]\(\s*<?([^)\s>]+)>?(?:\s+\"[^\"]*\")?\s*\)")
IMAGE = re.compile(r"<(?:img|a|source)\s[^>]*?(?:src|href|srcset)=\"([^\"]+)\"")
CODE = re.compile(r"^(```|~~~).*?^\1\s*$|`[^`\n]*`", re.MULTILINE | re.DOTALL)
HEADING = re.compile(r"^#{1,6}\s+(.*?)\s*#*$", re.MULTILINE)
ELSEWHERE = re.compile(r"^[a-z][a-z0-9+.-]*:", re.IGNORECASE)
PASSED_OVER = {"build", ".git", "node_modules"}


def documents_in(source):
    for folder, folders, files in os.walk(source):
        folders[:] = sorted(name for name in folders if name not in PASSED_OVER)
        yield from (pathlib.Path(folder, name) for name in sorted(files) if name.endswith(".md"))


def anchors_in(document):
    """Headings as links name them: in lower case, without signs, blanks as hyphens."""
    text = re.sub(r"^(```|~~~).*?^\1\s*$", "", document.read_text(), flags=re.MULTILINE | re.DOTALL)
    words = [re.sub(r"[`*]|\[([^\]]*)\]\([^)]*\)", r"\1", heading).lower() for heading in HEADING.findall(text)]
    return {re.sub(r"[^\w\- ]", "", heading).replace(" ", "-") for heading in words}


def problem_of(source, document, link):
    path, _, anchor = urllib.parse.unquote(link).partition("#")
    target = (document.parent / path).resolve() if path else document
    if not target.is_relative_to(source):
        return "leads out of the checkout"
    if not target.exists():
        return "leads nowhere"
    if anchor and target.suffix == ".md" and anchor not in anchors_in(target):
        return "names no heading there"
    return ""


def check(source):
    """The number of relative links, and what is wrong with them."""
    source = pathlib.Path(source).resolve()
    count, problems = 0, []
    for document in documents_in(source):
        text = CODE.sub("", document.read_text())
        for link in LINK.findall(text) + IMAGE.findall(text):
            if ELSEWHERE.match(link):
                continue
            count += 1
            if problem := problem_of(source, document, link):
                problems.append(f"{document.relative_to(source)}: the link {link} {problem}")
    return count, problems


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        place = pathlib.Path(folder)
        (place / "docs").mkdir()
        (place / "docs" / "a.md").write_text("# One, `two`\n[x](../b.md) [y](#one-two) ![z](no.png)\n")
        (place / "b.md").write_text(
            "[a](docs/a.md#one-two) [b](docs/a.md#three) [c](../c.md) [d](https://e) `[e](f)`\n```\n[g](h)\n```\n[i](docs)\n"
        )
        count, problems = check(folder)
    expected = [
        "b.md: the link docs/a.md#three names no heading there",
        "b.md: the link ../c.md leads out of the checkout",
        "docs/a.md: the link no.png leads nowhere",
    ]
    return [] if (count, problems) == (7, expected) else [f"found {count} links and {problems}"]


def main():
    if sys.argv[1] == "--self-test":
        count, problems = 1, self_test()
    else:
        count, problems = check(sys.argv[1])
    if count == 0:
        problems.append("there is no link at all: is this the source folder?")
    print("\n".join(problems) or "all links lead somewhere")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
