#!/usr/bin/env python3
"""The packages and the archive, as a site gets them.

Builds the packages twice, compares the bytes, and lets lintian read them. In a fresh system without the toolkit the archive
runs from a folder with a blank and Russian letters in its name. In the same system the packages of a former version are
installed, upgraded while a workstation uses a journal, and removed and purged, after which nothing of them is left.

    packages_test.py [--folder FOLDER] [--cached] [unittest's arguments]

Without FOLDER everything is made in a temporary one. Packages that FOLDER already has are not built again: for work on
this test. --cached lets the second build use the cache of the compiler, which then hides what the compiler makes of the place.
Only root can make a system; without root, or without the right to mount, the tests are skipped.
"""
import argparse
import contextlib
import hashlib
import os
import pathlib
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
FORMER = "2.1.0~1"
PACKAGES = ("libvrk-logbook", "vrk-admin", "vrk-directory", "vrk-logbook", "vrk-logbook-demo", "vrk-logbook-dev", "vrk-logbook-doc", "vrk-report",
            "vrk-workstation")
UNITS = {"vrk-report-daily.timer", "vrk-seal-closings.service", "vrk-seal.timer", "vrk-watchdog.timer"}
# What the page docs/install.ru.md requires of a system for the archive.
FOR_ARCHIVE = ["libcups2", "libdbus-1-3", "libfontconfig1", "libfreetype6", "libgl1", "libegl1", "libglib2.0-0", "libharfbuzz0b",
               "libpng16-16", "libx11-6", "libx11-xcb1", "libxcb1", "libxrender1", "libsm6", "fonts-dejavu-core", "tzdata", "xz-utils"]
arguments = None


def run(*command, status=0, **more):
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **more)
    if done.returncode != status:
        raise AssertionError(f"{' '.join(map(str, command))} returned {done.returncode}\n{done.stdout[-8000:]}")
    return done.stdout


def apt_sources():
    """The files that name where this system has its own distribution from."""
    codename = re.search(r"^VERSION_CODENAME=(\S+)", pathlib.Path("/etc/os-release").read_text(), re.M).group(1)
    own = re.compile(rf"^(Suites:(.*\s)?|deb\s+(\[[^]]*\]\s+)?\S+\s+){codename}(-\S+)?(\s|$)", re.M)
    files = [pathlib.Path("/etc/apt/sources.list"), *sorted(pathlib.Path("/etc/apt/sources.list.d").glob("*"))]
    return codename, [file for file in files if file.is_file() and own.search(file.read_text())]


def build(folder, **environment):
    """The packages of these sources by their names."""
    if not any(folder.glob("*.changes")):
        run(SOURCE / "packaging/packages.sh", folder, env=dict(os.environ, **environment))
    return {file.name.split("_")[0]: file for file in sorted(folder.glob("*.deb"))}


def as_version(packages, version, folder):
    """The same packages under another version."""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir()
    for name, file in packages.items():
        own = run("dpkg-deb", "--field", file, "Version").strip()
        run("dpkg-deb", "--raw-extract", file, folder / name)
        control = folder / name / "DEBIAN/control"
        control.write_text(re.sub(rf"(?m)^Version: .*|(?<= ){re.escape(own)}(?=\))",
                                  lambda found: found[0].replace(own, version), control.read_text()))
        run("dpkg-deb", "--root-owner-group", "-Znone", "--build", folder / name, folder / f"{name}_{version}.deb")
        shutil.rmtree(folder / name)
    return {name: folder / f"{name}_{version}.deb" for name in packages}


def digest(file):
    return hashlib.sha256(file.read_bytes()).hexdigest()


class System:
    """A fresh system of this distribution in a folder."""

    def __init__(self, folder):
        self.root = folder / "system"
        codename, sources = apt_sources()
        shutil.rmtree(self.root, ignore_errors=True)
        run("mmdebstrap", "--mode=root", "--variant=apt", "--skip=cleanup/apt/lists", "--dpkgopt=force-unsafe-io", codename, self.root, *sources)
        for name, owner in (("packages", 0), ("home/dispatcher", 1000)):
            (self.root / name).mkdir()
            os.chown(self.root / name, owner, owner)

    def command(self, *command, user=None):
        before = ["setpriv", "--reuid=1000", "--regid=1000", "--clear-groups"] if user else []
        # What is mounted for a command ends with it, so the folder can be deleted at any time.
        return ["unshare", f"--mount-proc={self.root}/proc", "chroot", str(self.root), *before, "env", "-i", "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "HOME=/home/dispatcher",
                "XDG_RUNTIME_DIR=/tmp", "LC_ALL=C.UTF-8", "QT_QPA_PLATFORM=offscreen", "DEBIAN_FRONTEND=noninteractive",
                *map(str, command)]

    def run(self, *command, user=None, **more):
        return run(*self.command(*command, user=user), **more)

    def apt(self, *command):
        return self.run("apt-get", "-y", "-q", "-o", "Dpkg::Use-Pty=0", *command)

    def install(self, packages):
        folder = self.root / "packages"
        for file in folder.iterdir():
            file.unlink()
        for file in packages.values():
            shutil.copy(file, folder)
        return self.apt("install", *(f"/packages/{file.name}" for file in packages.values()))

    def files(self):
        """Every file that an installation may leave behind, without the lists and caches of apt and dpkg."""
        own = re.compile(r"^/(proc|dev|tmp|packages|home|site)(/|$)|^/var/(cache|log|lib/(apt|dpkg))/|__pycache__")
        names = set()
        for folder, folders, files in os.walk(self.root):
            place = "/" + os.path.relpath(folder, self.root)
            folders[:] = [name for name in folders if not own.search(os.path.normpath(f"{place}/{name}"))]
            names |= {os.path.normpath(f"{place}/{name}") for name in folders + files}
        return {name for name in names if not own.search(name)}

    @contextlib.contextmanager
    def started(self, *command):
        process = subprocess.Popen(self.command(*command, user=1000), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        try:
            yield process
        finally:
            if process.poll() is None:
                process.send_signal(signal.SIGTERM)
            process.communicate(timeout=60)


def content(store):
    """All rows of a journal."""
    with contextlib.closing(sqlite3.connect(f"file:{store}?mode=ro", uri=True)) as database:
        tables = [name for name, in database.execute("SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE '%search%'")]
        return {table: sorted(map(repr, database.execute(f'SELECT * FROM "{table}"'))) for table in tables}


def may_make_systems():
    return os.geteuid() == 0 and subprocess.run(["unshare", "--mount", "true"], capture_output=True).returncode == 0


@unittest.skipUnless(may_make_systems(), "only root, with the right to mount, can make a system to install into")
class Packages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(arguments.folder or tempfile.mkdtemp(prefix="vrk-packages-")).resolve()
        if not arguments.folder:
            cls.addClassCleanup(shutil.rmtree, cls.folder, ignore_errors=True)
        cls.packages = build(cls.folder / "now")
        cls.system = System(cls.folder)

    def test1PackagesPassLintian(self):
        self.assertEqual(tuple(sorted(self.packages)), PACKAGES)
        changes, = (self.folder / "now").glob("*.changes")
        run("lintian", "--allow-root", "--fail-on", "error", changes)

    def test2MenuEntriesAndMetadataAreValid(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("vrk-workstation", "vrk-logbook-demo"):
                run("dpkg-deb", "--extract", self.packages[name], folder)
            share = pathlib.Path(folder) / "usr/share"
            entries = sorted((share / "applications").glob("*.desktop"))
            self.assertEqual(len(entries), 2)
            run("desktop-file-validate", *entries)
            run("appstreamcli", "validate", "--no-net", *(share / "metainfo").glob("*.xml"))

    def test3SecondBuildGivesTheSameBytes(self):
        """In another folder, later, and compiled once more."""
        other = {} if arguments.cached else {"CCACHE_DISABLE": "1"}
        again = build(self.folder / "a-much-longer-name-of-a-folder", **other)
        self.assertEqual(sorted(again), sorted(self.packages))
        different = [name for name in again if digest(again[name]) != digest(self.packages[name])]
        self.assertEqual(different, [])

    def test4ArchiveRunsFromAnyFolder(self):
        self.system.apt("install", "--no-install-recommends", *FOR_ARCHIVE)
        self.assertEqual(list(self.system.root.rglob("libQt5Core*")), [])  # what runs brings its own
        run(SOURCE / "packaging/tarball.sh", self.folder / "now")
        archive, = (self.folder / "now").glob("*.tar.xz")
        place = self.system.root / "tmp/Мой журнал"
        shutil.rmtree(place, ignore_errors=True)
        place.mkdir()
        run("tar", "--extract", "--file", archive, "--directory", place)
        top, = place.iterdir()
        inside = pathlib.Path("/tmp/Мой журнал") / top.name
        self.assertRegex(self.system.run(inside / "bin/vrk-admin", "--version"), r"^vrk-admin \d+\.\d+\.\d+")
        store = "sqlite:///tmp/archive.sqlite"
        self.system.run(inside / "bin/vrk-admin", "demo", store, user=1000)
        self.system.run(inside / "bin/vrk-admin", "check", store, user=1000)
        modules = self.system.run(inside / "bin/vrk-workstation", "--modules")
        self.assertIn(str(inside / "lib/vrk-logbook/lib/libVrkArchive.so"), re.sub(r"bin/\.\./", "", modules))
        self.playTour(inside / "bin/vrk-workstation")
        # From the folder of the archive and from nowhere else; a window system's plug-in has all its libraries, too.
        for file in sorted(top.rglob("*.so*")) + sorted((top / "lib/vrk-logbook/bin").iterdir()):
            if file.is_file() and file.read_bytes()[:4] == b"\x7fELF":
                self.assertNotIn("not found", self.system.run("ldd", inside / file.relative_to(top)), file)

    def test5UpgradeKeepsAJournalInUse(self):
        system = self.system
        names = [name for name in PACKAGES if name != "vrk-logbook-dev"]  # that one brings a compiler
        former = as_version(self.packages, FORMER, self.folder / "former")
        # What others install for ours is there before; it stays after them.
        depends = {part.strip() for name in names for field in ("Depends", "Recommends")
                   for part in run("dpkg-deb", "--field", former[name], field).split(",")}
        system.apt("satisfy", *sorted(part for part in depends if part and "vrk-" not in part))
        before = system.files()
        system.install({name: former[name] for name in names})
        self.assertEqual(self.version(), FORMER)

        site = system.root / "site"
        shutil.rmtree(site, ignore_errors=True)
        site.mkdir()
        os.chown(site, 1000, 1000)
        system.run("vrk-admin", "demo", "sqlite:///site/journal.sqlite", user=1000)
        written = content(site / "journal.sqlite")
        self.assertGreater(sum(map(len, written.values())), 100)
        restarted = self.recordRestarts()
        opened = ("vrk-workstation", "--store", "sqlite:///site/journal.sqlite", "--user", "ozerov", "--department", "ЦДС")
        with system.started(*opened) as workstation:
            self.waitForLibrary(workstation, "libVrkLogBook")
            system.install({name: self.packages[name] for name in names})
            self.assertIsNone(workstation.poll(), "the workstation ended during the upgrade")
        self.assertNotEqual(self.version(), FORMER)
        self.assertEqual(set(re.findall(r"vrk-\S+", restarted.read_text())) & UNITS, UNITS)
        self.assertNotRegex(restarted.read_text(), r"(?m)^(start|enable) ")
        self.assertEqual(content(site / "journal.sqlite"), written)
        system.run("vrk-admin", "check", "sqlite:///site/journal.sqlite", user=1000)
        self.playTour("vrk-workstation")

        self.doCleanups()  # the true systemctl again
        system.apt("remove", *names)
        self.assertEqual(content(site / "journal.sqlite"), written)
        system.run("dpkg", "--purge", *names)
        self.assertNotIn("vrk", system.run("dpkg-query", "--show", "--showformat", "${Package} ${Status}\n"))
        left = {name for name in system.files() - before if not (system.root / name[1:]).is_dir() or "vrk" in name}
        owned = set(system.run("sh", "-c", "cat /var/lib/dpkg/info/*.list").splitlines())
        self.assertEqual(sorted(left - owned), [])

    def playTour(self, program):
        folder = self.system.root / "tmp/tour"
        shutil.rmtree(folder, ignore_errors=True)
        self.system.run(program, "--tour", "/tmp/tour", user=1000, timeout=1800)
        page = (folder / "index.html").read_text(encoding="utf-8")
        pictures = re.findall(r'<img[^>]+src="([^"]+)"', page)
        self.assertGreater(len(pictures), 10)
        for name in pictures:
            self.assertGreater((folder / name).stat().st_size, 1000, name)

    def version(self):
        return self.system.run("dpkg-query", "--show", "--showformat", "${Version}", "vrk-workstation")

    def recordRestarts(self):
        """A system that seems to be started by systemd, whose services only write down what is done to them."""
        (self.system.root / "run/systemd/system").mkdir(parents=True, exist_ok=True)
        self.addCleanup(shutil.rmtree, self.system.root / "run/systemd")
        log = self.system.root / "tmp/restarts"
        log.touch()
        for name in ("systemctl", "deb-systemd-invoke"):
            program = self.system.root / "usr/bin" / name
            existed = program.exists()
            if existed:
                program.rename(program.with_suffix(".true"))
                self.addCleanup(program.with_suffix(".true").rename, program)
            else:
                self.addCleanup(program.unlink)
            program.write_text('#!/bin/sh\necho "$@" >>/tmp/restarts\n')
            program.chmod(0o755)
        return log

    def waitForLibrary(self, process, name):
        until = time.monotonic() + 120
        while name not in pathlib.Path(f"/proc/{process.pid}/maps").read_text():
            if process.poll() is not None or time.monotonic() > until:
                raise AssertionError(f"the workstation did not load {name}: {process.stdout.read() if process.poll() is not None else ''}")
            time.sleep(0.1)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--folder")
    parser.add_argument("--cached", action="store_true")
    arguments, others = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + ["--verbose"] + others)
