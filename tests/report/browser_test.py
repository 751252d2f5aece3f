#!/usr/bin/env python3
"""The archive of workshifts in a browser without a window, from a folder that nobody may write, as on a file share: pages are
shown, links lead somewhere, nothing is refused or run, and paper has the records on A4 with a heading on each page. Skipped
where there is no Chromium.

    browser_test.py BIN
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

import check_pages

BIN = pathlib.Path(sys.argv[1])
BROWSER = shutil.which("chromium") or shutil.which("chromium-browser")
SKIPPED = 77
SECONDS = 120


class Links(check_pages.Page):
    """A page as the browser has built it; it adds nothing that the checks would refuse."""

    def __init__(self, text, path):
        self.given = text
        super().__init__(path)

    def feed(self, _):
        super().feed(self.given)


class Browser(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.place = tempfile.TemporaryDirectory()
        cls.root = pathlib.Path(cls.place.name)
        store = f"sqlite://{cls.root}/journal.sqlite"
        cls.share = cls.root / "Общий диск # 1"  # a share has names like this
        subprocess.run([BIN / "vrk-admin", "demo", store], check=True, capture_output=True)
        subprocess.run([BIN / "vrk-report", "archive", store, cls.share, "--files"], check=True, capture_output=True)
        for path in [*cls.share.rglob("*"), cls.share]:
            path.chmod(0o555 if path.is_dir() else 0o444)
        cls.pages = sorted(path for path in cls.share.rglob("*.html") if path.name != "index.html")
        cls.with_files = next(path for path in cls.pages if (path.parent / f"{path.stem}_files").is_dir())

    @classmethod
    def tearDownClass(cls):
        for path in [cls.share, *cls.share.rglob("*")]:
            path.chmod(0o755)
        cls.place.cleanup()

    def browse(self, page, *options):
        """Its standard output; a message of the page, such as a refused resource, is a fault."""
        command = [BROWSER, "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run",
                   f"--user-data-dir={self.root}/profile", "--enable-logging=stderr", *options, page.as_uri()]
        done = subprocess.run(command, capture_output=True, text=True, timeout=SECONDS)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertNotRegex(done.stderr, r"CONSOLE|Refused to")
        return done.stdout

    def built(self, page):
        return Links(self.browse(page, "--dump-dom"), page)

    def printed(self, page):
        file = self.root / "page.pdf"
        self.browse(page, "--no-pdf-header-footer", "--print-to-pdf-no-header", f"--print-to-pdf={file}")
        sizes = subprocess.run(["pdfinfo", file], check=True, capture_output=True, text=True).stdout
        text = subprocess.run(["pdftotext", "-layout", file, "-"], check=True, capture_output=True, text=True).stdout
        return sizes, [sheet for sheet in text.split("\f") if sheet.strip()]

    def test_links_lead_from_the_start_to_a_file(self):
        wanted = [self.share / "index.html", self.with_files.parent / "index.html", self.with_files]
        following = wanted[1:] + [self.with_files.parent / f"{self.with_files.stem}_files"]
        for page, after in zip(wanted, following):
            built = self.built(page)
            self.assertEqual(built.faults, [])
            targets = [(page.parent / urllib.parse.unquote(link)).resolve() for link in built.links]
            for target in targets:
                self.assertTrue(target.is_file(), target)
            self.assertTrue(any(target == after or target.parent == after for target in targets), after)

    def test_comments_and_files_stand_with_their_record(self):
        text = "".join(self.built(self.with_files).cells)
        self.assertRegex(text, r"Комментарий, [^:]+ \d\d\.\d\d\.\d{4} \d\d:\d\d: \w")
        self.assertRegex(text, r"Файл, \d+ (байт|КБ): \w")

    def test_paper_has_the_records_without_the_links_above(self):
        sizes, sheets = self.printed(self.with_files)
        self.assertRegex(sizes, r"Page size: +84[12]\.?\d* x 59[45]")  # A4, landscape
        self.assertGreater(len(sheets), 1)
        for sheet in sheets:
            self.assertTrue(re.search(r"Автор\b.*Текст", sheet), sheet[:400])
        whole = " ".join(" ".join(sheets).split())
        self.assertNotIn("Все месяцы", whole)
        self.assertIn("Комментарий, ", whole)
        self.assertIn("Смена ", sheets[0])


if __name__ == "__main__":
    if not BROWSER:
        print("skipped: no Chromium is installed")
        sys.exit(SKIPPED)
    unittest.main(argv=sys.argv[:1])
