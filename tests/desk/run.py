#!/usr/bin/python3
"""Plays scenes at desks: the real programs under an X server and a window manager, with real keys and clicks.

    run.py BUILD [--scenes NAME,...] [--letters 100,150] [--seed N] [--keys N]

With VRK_LONG=1 each scene is played three times, and the monkey presses twenty times as many keys.

A scene is a function of the module `scenes` that gets a Desk. Faults are printed at once, and a picture of the screen and the
tree of widgets are left in BUILD/tests/desk/faults.
"""
import argparse
import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import traceback

import scenes
from screen import Screen
from seat import Failure, Seat


class Faults:
    """The findings, each once."""

    def __init__(self, folder):
        self.folder, self.known = folder, []

    def add(self, seat, step, problem, tree):
        if problem in self.known:
            return
        self.known.append(problem)
        print(f"FAULT at {seat.name}, {step}:\n      {problem}", flush=True)
        self.keep(seat, step, tree)

    def keep(self, seat, step, tree):
        os.makedirs(self.folder, exist_ok=True)
        path = f"{self.folder}/{len(os.listdir(self.folder)):03}-{seat.name}"
        seat.screen.save_picture(path + ".png")
        with open(path + ".json", "w") as file:
            json.dump({"step": step, "before": seat.steps[-20:], **tree.without_links()}, file, ensure_ascii=False, indent=1)
        print(f"      {path}.png", flush=True)


class Desk:
    """Seats that share one store, each with its own screen, in a folder that is removed afterwards."""

    def __init__(self, build, letters, faults, options):
        self.build, self.letters, self.faults, self.options = build, letters, faults, options
        self.folder = tempfile.mkdtemp(prefix="vrk-desk-")
        self.store = f"sqlite://{self.folder}/store.sqlite"
        self.seats = []

    def seat(self, name):
        folder = f"{self.folder}/{len(self.seats)}"
        os.mkdir(folder, 0o700)
        screen = Screen(folder, letters=self.letters)
        self.seats.append(Seat(name, screen, self.build, self.store, folder, self.faults))
        return self.seats[-1]

    def close(self):
        for seat in self.seats:
            seat.end()
            seat.screen.close()
        shutil.rmtree(self.folder, ignore_errors=True)


def make_demo(build, folder):
    """One demo store for all scenes of a run; its path."""
    store = f"{folder}/demo.sqlite"
    made = subprocess.run([f"{build}/bin/vrk-admin", "demo", f"sqlite://{store}", "--old", "--old-templates", "60"], stdin=subprocess.DEVNULL,
                          stdout=subprocess.DEVNULL, env=dict(os.environ, TZ="Europe/Moscow"))
    if made.returncode:
        sys.exit("the demo store cannot be made")
    return store


def play(build, demo, name, letters, options):
    print(f"== {name} at {letters} %", flush=True)
    started = time.monotonic()
    faults = Faults(f"{build}/tests/desk/faults/{name}-{letters}")
    shutil.rmtree(faults.folder, ignore_errors=True)
    desk = Desk(build, letters, faults, options)
    broken = None
    try:
        shutil.copy(demo, f"{desk.folder}/store.sqlite")
        getattr(scenes, name)(desk)
    except Exception as error:
        broken = error
        print(f"BROKEN {error if isinstance(error, Failure) else traceback.format_exc()}", flush=True)
        for line in traceback.extract_tb(error.__traceback__):
            if line.filename.endswith("scenes.py"):
                print(f"      line {line.lineno}: {line.line}")
        for seat in desk.seats:
            if seat.alive():
                try:
                    faults.keep(seat, str(error), seat.tree())
                except Exception as second:
                    print(f"      no picture: {second}")
    finally:
        desk.close()
    looks = sum(seat.looks for seat in desk.seats)
    print(f"   {looks} steps, {len(faults.known)} faults, {time.monotonic() - started:.0f} s", flush=True)
    return not faults.known and not broken


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build")
    parser.add_argument("--scenes", default="door,night,past,handover,dialogs,configurator,converter,directory,archive")
    parser.add_argument("--letters", default="100,150")
    parser.add_argument("--seed", type=int, default=int(time.time()))
    parser.add_argument("--keys", type=int, default=60, help="how many keys and clicks the scene monkey makes")
    options = parser.parse_args()
    is_long = bool(os.environ.get("VRK_LONG"))
    options.keys *= 20 if is_long else 1
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # also ends the started programs
    build = os.path.abspath(options.build)
    with tempfile.TemporaryDirectory(prefix="vrk-desk-") as folder:
        demo = make_demo(build, folder)
        fine = [play(build, demo, scene, int(letters), options) for _ in range(3 if is_long else 1)
                for scene in options.scenes.split(",") for letters in options.letters.split(",")]
    return 0 if all(fine) else 1


if __name__ == "__main__":
    sys.exit(main())
