#!/usr/bin/env python3
"""Reads a folder of pages as a browser on another machine would: every link leads to a page of the folder, every page can be
reached from index.html, nothing is loaded or run, and the tags are those that the program itself writes. Attached files lie
in folders of their pages, each is reached, and a browser runs none of them.

    check_pages.py FOLDER [TEXT...]     each TEXT stands on some page, letter for letter, as text
    check_pages.py FILE.html [TEXT...]  the same for one page
"""
import html.parser
import pathlib
import re
import sys
import urllib.parse

TAGS = set("html head meta title style body nav a header h1 p table thead tbody tr th td br b i u s sup sub span ul li svg path "
           "footer".split())
VOID = {"meta", "br"}
FILE_NAME = re.compile(r"[0-9a-f]{16}\.(bin|csv|jpg|pdf|png|txt|xlsx)$")  # those of the tests


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__(convert_charrefs=True)
        self.path, self.links, self.text, self.open, self.faults, self.cells = path, [], [], [], [], []
        self.feed(path.read_text(encoding="utf-8"))
        self.close()
        if self.open:
            self.faults.append(f"not closed: {self.open}")

    def handle_starttag(self, tag, attributes):
        if tag not in TAGS:
            self.faults.append(f"<{tag}>")
        if tag not in VOID:
            self.open.append(tag)
        for name, value in attributes:
            if name.startswith("on") or (name == "src") or name == "style":
                self.faults.append(f"{name}={value}")
            if name == "href" and tag == "a":
                self.links.append(value)
            elif name == "href":
                self.faults.append(f"loads {value}")
        if tag == "td":
            self.cells.append("")

    def handle_startendtag(self, tag, attributes):
        self.handle_starttag(tag, attributes)
        if tag not in VOID:
            self.open.pop()

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> in the wrong place")

    def handle_data(self, data):
        self.text.append(data)
        if "td" in self.open:
            self.cells[-1] += data


def main(target, *texts):
    target = pathlib.Path(target)
    faults, pages, attached = [], {}, set()
    waiting = [target / "index.html" if target.is_dir() else target]
    while waiting:
        path = waiting.pop().resolve()
        if path in pages or path in attached:
            continue
        if not path.is_file():
            faults.append(f"no page {path}")
            continue
        if path.parent.name.endswith("_files"):
            attached.add(path)
            if not FILE_NAME.match(path.name):
                faults.append(f"unsafe name: {path}")
            continue
        page = pages[path] = Page(path)
        faults += [f"{path.name}: {fault}" for fault in page.faults]
        for link in page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme or parts.netloc or parts.path.startswith("/"):
                faults.append(f"{path.name}: not relative: {link}")
            else:
                waiting.append(path.parent / urllib.parse.unquote(parts.path))
    if target.is_dir():
        faults += [f"not reached: {path}" for path in target.rglob("*.html") if path.resolve() not in pages]
        faults += [f"not reached: {path}" for path in target.rglob("*_files/*") if path.resolve() not in attached]
    # Between the parts of a name stand no-break spaces.
    whole = "\n".join(cell for page in pages.values() for cell in page.cells).replace("\u00a0", " ")
    faults += [f"not shown: {text}" for text in texts if text not in whole]
    print("\n".join(faults) if faults else f"{len(pages)} pages")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
