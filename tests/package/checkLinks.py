"""Checks that the links of the pages in the Debian packages lead to files in the packages.

Usage: checkLinks.py PACKAGE_FOLDER
"""

import pathlib
import re
import subprocess
import sys
import tempfile

LINK = re.compile(r"\]\(([^)\s]+)\)")
CODE = re.compile(r"^```.*?^```|`[^`\n]*`", re.MULTILINE | re.DOTALL)
ELSEWHERE = re.compile(r"[a-z]+:|#")
PAGES = {"README.md", "CHANGELOG.md", "embedding.md", "limits.md", "porting.md", "variant.md", "object-stream.md",
         "worker-protocol.md"}


def links_in(text):
    return [link for link in LINK.findall(CODE.sub("", text)) if not ELSEWHERE.match(link)]


def dead_links(page, root):
    dead = []
    for link in links_in(page.read_text(encoding="utf-8")):
        target = (page.parent / link.split("#")[0]).resolve()
        if not target.exists() or root not in target.parents:
            dead.append(f"{page.relative_to(root)}: '{link}' leads nowhere")
    return dead


def self_check(root):
    page = root / "page.md"
    page.write_text("[a](b.md) `[c](d.md)` [e](#f) [g](page.md#h) [i](/bin)", encoding="utf-8")
    found = len(dead_links(page, root))
    page.unlink()
    return [] if found == 2 else [f"the check itself finds {found} dead links of 2"]


def main(folder):
    with tempfile.TemporaryDirectory() as name:
        root = pathlib.Path(name).resolve()
        problems = self_check(root)
        for package in sorted(pathlib.Path(folder).glob("*.deb")):
            subprocess.run(["dpkg-deb", "--extract", package, root], check=True)
        pages = sorted(root.rglob("*.md"))
        problems += [f"no page {page}" for page in sorted(PAGES - {page.name for page in pages})]
        problems += [problem for page in pages for problem in dead_links(page, root)]
    print("\n".join(problems) or f"the links of {len(pages)} pages lead to files")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
