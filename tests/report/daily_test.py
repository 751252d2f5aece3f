#!/usr/bin/env python3
"""The daily report: a PDF of yesterday and the pages of workshifts in a folder, mail only if an address is set.

    daily_test.py SOURCE BIN
"""
import email
import email.policy
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

SOURCE, BIN = map(pathlib.Path, sys.argv[1:3])


class Daily(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.place = tempfile.TemporaryDirectory()
        cls.root = pathlib.Path(cls.place.name)
        cls.store = f"sqlite://{cls.root}/journal.sqlite"
        subprocess.run([BIN / "vrk-admin", "demo", cls.store], check=True, capture_output=True)
        sendmail = cls.root / "sendmail"
        sendmail.write_text('#!/bin/sh\necho "$*" >"$0.arguments"\ncat >"$0.letter"\n')
        sendmail.chmod(0o755)

    @classmethod
    def tearDownClass(cls):
        cls.place.cleanup()

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=self.root))
        for left in self.root.glob("sendmail.*"):
            left.unlink()

    def run_daily(self, **more):
        environment = {"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8", "HOME": "/nonexistent", "VRK_STORE": self.store,
                       "VRK_REPORT_FOLDER": str(self.folder), "VRK_REPORT_DEPARTMENT": "ЦДС",
                       "VRK_REPORT_SENDMAIL": str(self.root / "sendmail"), "VRK_REPORT_PROGRAM": str(BIN / "vrk-report")}
        environment.update({name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")})
        environment.update(more)
        return subprocess.run([SOURCE / "packaging/vrk-report-daily"], env=environment, capture_output=True, text=True)

    def reports(self):
        return sorted(path.name for path in self.folder.iterdir() if path.is_file())

    def test_writes_report_and_pages_without_mail(self):
        done = self.run_daily()
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(len(self.reports()), 1)
        self.assertTrue(self.reports()[0].startswith("ЦДС ") and self.reports()[0].endswith(".pdf"))
        self.assertTrue((self.folder / "shifts/index.html").exists())
        self.assertEqual(list(self.folder.glob("shifts/**/*.pdf")), [])
        self.assertFalse((self.root / "sendmail.letter").exists())
        self.assertEqual(self.run_daily().returncode, 0)  # again on the same day
        self.assertEqual(len(self.reports()), 1)

    def test_puts_files_beside_the_pages_on_request(self):
        self.assertEqual(self.run_daily(VRK_REPORT_FILES="yes").returncode, 0)
        self.assertTrue(list(self.folder.glob("shifts/**/*.pdf")))

    def test_sends_the_report_to_the_address(self):
        done = self.run_daily(VRK_REPORT_MAIL="chief@example.org")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual((self.root / "sendmail.arguments").read_text(), "-i -t\n")
        letter = email.message_from_bytes((self.root / "sendmail.letter").read_bytes(), policy=email.policy.default)
        self.assertEqual((letter["To"], letter["Subject"]), ("chief@example.org", "Отчёт за вчера"))
        text, pdf = letter.iter_parts()
        self.assertIn(self.reports()[0], text.get_content())
        self.assertEqual(pdf.get_content(), (self.folder / self.reports()[0]).read_bytes())
        self.assertEqual(pdf.get_filename(), "report.pdf")

    def test_takes_no_option_for_an_address(self):
        for address in ("-oQ/tmp", "a@b\nBcc: c@d", "a b"):
            done = self.run_daily(VRK_REPORT_MAIL=address)
            self.assertEqual(done.returncode, 2, address)
            self.assertEqual(self.reports(), [])

    def test_fails_with_the_report(self):
        done = self.run_daily(VRK_REPORT_DEPARTMENT="Нет", VRK_REPORT_MAIL="chief@example.org")
        self.assertEqual(done.returncode, 1)
        self.assertIn("Подразделения «Нет» нет", done.stderr)
        self.assertFalse((self.root / "sendmail.letter").exists())

    def test_names_what_is_missing(self):
        self.assertIn("VRK_REPORT_FOLDER", self.run_daily(VRK_REPORT_FOLDER="").stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
