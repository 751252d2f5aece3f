#!/usr/bin/env python3
"""Carries out recipes of docs/architecture.md in a copy of the sources, and checks that they are complete.

    tests/recipes/run.py --build-dir build/dev [NAME...]
    tests/recipes/run.py --stale

A recipe is a module of this folder: the TITLES of its paragraphs in docs/architecture.md, its EDITS of the sources, and
carry_out(), which builds them and tries the result. A recipe may edit only files that its paragraphs name. The former
stores of a recipe are made by the programs in the build tree, with the demo journal. --stale only checks that the recipes
name their files and that their edits fit the sources.
"""
import argparse
import importlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True  # the sources stay clean

from stores import Postgres, Server, Sqlite  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
RECIPES = ["field", "rule", "table", "column"]


class Failed(Exception):
    """A recipe does not lead where it should."""


class Scratch:
    """A copy of the sources with a build tree. Recipes use it one after another."""

    def __init__(self, folder):
        self.folder = folder
        listed = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True, stdout=subprocess.PIPE, text=True).stdout
        self.files = [name for name in listed.split("\0") if name and (ROOT / name).is_file()]

    def restore(self):
        """The sources as they are; files that did not change keep their times."""
        wanted = set(self.files)
        for path in self.folder.rglob("*"):
            name = path.relative_to(self.folder).as_posix()
            if path.is_file() and not name.startswith("build/") and name not in wanted:
                path.unlink()
        for name in self.files:
            source, target = ROOT / name, self.folder / name
            if not target.exists() or source.read_bytes() != target.read_bytes():
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, target)

    def edit(self, edits):
        for name, text in edited(edits, self.folder):
            (self.folder / name).write_text(text, encoding="utf-8")

    def build(self, *targets):
        log = self.folder / "build.log"
        for command in (["cmake", "--preset", "dev"], ["ninja", "-C", "build/dev", *targets]):
            with open(log, "wb") as output:
                if subprocess.run(command, cwd=self.folder, stdout=output, stderr=subprocess.STDOUT).returncode:
                    raise Failed(f"{' '.join(command)}\n{log.read_text(encoding='utf-8', errors='replace')[-4000:]}")

    def run(self, program, *arguments, code=0):
        """The output of a program of the build tree, which must return this code."""
        return run(self.folder / "build/dev/bin" / program, *arguments, code=code)


def run(program, *arguments, code=0):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", TZ="Europe/Moscow")
    done = subprocess.run([str(program), *arguments], env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)
    if done.returncode != code:
        raise Failed(f"{program.name} {' '.join(arguments)} returned {done.returncode}\n{done.stdout}")
    return done.stdout


def edited(edits, folder):
    """Edits are the whole text of a new file, or pairs of a piece that occurs once and its replacement."""
    for name, changes in edits.items():
        text = changes if isinstance(changes, str) else (folder / name).read_text(encoding="utf-8")
        for old, new in [] if isinstance(changes, str) else changes:
            if text.count(old) != 1:
                raise Failed(f"{name} has {text.count(old)} times: {old}")
            text = text.replace(old, new)
        yield name, text


def require_named(titles, edits):
    """A recipe must name every file that it edits."""
    page = (ROOT / "docs/architecture.md").read_text(encoding="utf-8")
    paragraphs = dict(re.findall(r"^\*\*([^*]+)\.\*\* (.*?)(?=\n\n|\Z)", page, re.M | re.S))
    for title in titles:
        if title not in paragraphs:
            raise Failed(f"docs/architecture.md has no recipe: {title}")
    text = "\n".join(paragraphs[title] for title in titles)
    for name in edits:
        stem = re.sub(r"\d{4}", "NNNN", pathlib.Path(name).stem)
        if not re.search(rf"\b{stem}\b", text):
            raise Failed(f"the recipe does not name {name}")


class Kitchen:
    """What a recipe works with: the scratch copy, and stores of the present version on both engines."""

    def __init__(self, scratch, server, folder, present):
        self.scratch, self.server, self.folder = scratch, server, folder
        self.count = 0
        self.former = [Sqlite(folder / "former.vrk"), Postgres(server, "former")]
        for store in self.former:
            run(present, "demo", store.url)

    def stores(self):
        """On each engine a new store and an upgraded one, made by the programs of the scratch copy and clean."""
        made = []
        for former in self.former:
            self.count += 1
            upgraded = former.copy(f"upgraded{self.count}")
            self.scratch.run("vrk-admin", "upgrade", upgraded.url, "--no-backup")
            fresh = former.sibling(f"fresh{self.count}")
            self.scratch.run("vrk-admin", "init", fresh.url, "--starter")
            made += [upgraded, fresh]
        for store in made:
            self.check(store)
        return made

    def check(self, store):
        self.scratch.run("vrk-admin", "check", store.url)

    @staticmethod
    def require(found, wanted, place):
        if found != wanted:
            raise Failed(f"{place}: {found!r} instead of {wanted!r}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--build-dir", default="build/dev")
    parser.add_argument("--stale", action="store_true")
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    build = pathlib.Path(options.build_dir).resolve()
    failed = []
    recipes = [importlib.import_module(name) for name in options.names or RECIPES]
    for recipe in recipes:
        require_named(recipe.TITLES, recipe.EDITS)
        list(edited(recipe.EDITS, ROOT))
    if options.stale:
        return
    with tempfile.TemporaryDirectory(prefix="recipes-") as temporary:
        folder = pathlib.Path(temporary)
        os.chmod(folder, 0o755)
        scratch = Scratch(build.parent / "recipes")
        with Server(folder) as server:
            kitchen = Kitchen(scratch, server, folder, build / "bin/vrk-admin")
            for recipe in recipes:
                scratch.restore()
                try:
                    recipe.carry_out(kitchen)
                    print(f"carried out: {recipe.__name__}", flush=True)
                except Failed as why:
                    failed.append(recipe)
                    print(f"FAILED: {recipe.__name__}: {why}", flush=True)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    sys.modules["run"] = sys.modules["__main__"]  # recipes import this module
    main()
