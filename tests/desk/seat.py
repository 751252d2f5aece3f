"""One dispatcher at one screen: the unmodified program, its widgets, and the keys and clicks that use it."""
import json
import os
import socket
import subprocess
import time

import checks
from screen import end

PATIENCE = 120  # seconds; for a loaded machine, not for the program
CALM = 0.03     # seconds between two looks that have to be the same
GIVE_UP = 10    # seconds after which a fault that does not go away is one


class Failure(Exception):
    """A step cannot be done; the scene ends."""


class Tree:
    """The widgets that a program shows, see probe/WidgetReport.h."""

    def __init__(self, report):
        self.report = report
        self.all, self.by_id = [], {}
        self.windows = report["windows"]
        for window in self.windows:
            self._add(window, None, window)

    def _add(self, widget, parent, window):
        widget["parent"], widget["window"] = parent, window
        self.all.append(widget)
        self.by_id[widget["id"]] = widget
        for child in widget.get("children", []):
            self._add(child, widget, window)

    def find(self, name=None, cls=None, text=None, inside=None):
        """All matching visible widgets, in the order of the tree; inside: the name or class of a widget around them."""
        return [w for w in self.all if "rect" in w and (name is None or w["name"] == name) and (cls is None or w["class"] == cls)
                and (text is None or w.get("text") == text) and (inside is None or self.is_inside(w, inside))]

    def one(self, name=None, **what):
        found = self.find(name, **what)
        return found[0] if found else None

    @staticmethod
    def is_inside(widget, around):
        while widget:
            if around in (widget["name"], widget["class"]):
                return True
            widget = widget["parent"]
        return False

    def shown(self, cls):
        """The window of this class (or name) that is shown."""
        return next((w for w in self.windows if w["shown"] and cls in (w["class"], w["name"])), None)

    def focus(self):
        return self.by_id.get(self.report["focus"])

    def focus_path(self):
        """The names of the widget with the focus and of those around it, the innermost first."""
        names, widget = [], self.focus()
        while widget:
            names.append(widget["name"] or widget["class"])
            widget = widget["parent"]
        return names

    def without_links(self):
        def strip(widget):
            return {k: [strip(c) for c in v] if k == "children" else v for k, v in widget.items() if k not in ("parent", "window")}
        return dict(self.report, windows=[strip(w) for w in self.windows])


class Seat:
    def __init__(self, name, screen, build, store, folder, faults):
        self.name, self.screen, self.build, self.store = name, screen, build, store
        self.folder, self.faults = folder, faults
        self.process = self.line = None
        self.starts = self.looks = 0
        self.steps = []  # what was done, for the report of a fault

    # -- the program

    def start(self, *arguments, asks=False):
        """Starts the workstation with the store of the desk, or without one if it "asks" for it."""
        self.run("vrk-workstation", *([] if asks else ["--store", self.store]), "--no-greeting", *arguments)

    def run(self, program, *arguments):
        """Starts a program and waits for its window."""
        self.starts += 1
        self.end()
        path = f"{self.folder}/probe-{self.starts}"
        environment = dict(self.screen.environment, TZ="Europe/Moscow", LANG="C.UTF-8", QT_QPA_PLATFORM="xcb",
                           QT_PLUGIN_PATH=f"{self.build}/tests/desk", QT_QPA_GENERIC_PLUGINS=f"deskprobe:{path}",
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="0", DBUS_SESSION_BUS_ADDRESS="disabled:", NO_AT_BRIDGE="1")
        for variable in ("VRK_STORE", "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME", "XDG_CURRENT_DESKTOP", "WAYLAND_DISPLAY"):
            environment.pop(variable, None)
        self.log = f"{self.folder}/{self.name}.log"
        with open(self.log, "ab") as log:
            self.process = subprocess.Popen([f"{self.build}/bin/{program}", *arguments],
                                            env=environment, stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        until = time.monotonic() + PATIENCE
        while not os.path.exists(path):
            if self.process.poll() is not None or time.monotonic() > until:
                raise Failure(f"the program does not start: {open(self.log).read()}")
            time.sleep(0.02)
        link = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        link.settimeout(PATIENCE)
        link.connect(path)
        self.line = link.makefile("rwb")
        self.wait(lambda tree: any(w["shown"] for w in tree.windows), "a window")

    def end(self):
        if self.line:
            try:
                self.line.close()
            except OSError:  # the other end is closed
                pass
            self.line = None
        end(self.process)
        self.process = None

    def ended(self):
        """Waits until the program has ended by itself; its exit code."""
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failure(f"{self.name}: the program does not end")

    def alive(self):
        return self.process is not None and self.process.poll() is None

    def tree(self):
        try:
            self.line.write(b"?\n")
            self.line.flush()
            answer = self.line.readline()
        except (BrokenPipeError, ConnectionResetError):
            answer = b""
        except socket.timeout:
            raise Failure(f"{self.name}: the program hangs")
        if not answer:
            code = self.process.wait(PATIENCE)
            raise Failure(f"{self.name}: the program has ended with {code}: {open(self.log).read()[-2000:]}")
        return Tree(json.loads(answer))

    def windows(self, tree=None):
        tree = tree or self.tree()
        known = next((w["wid"] for w in tree.windows), None)
        return self.screen.windows(self.screen.base_of(int(known))) if known else []

    def calm(self, keys=0, buttons=0, before=None):
        """Waits until all keys and clicks have arrived, and until nothing changes any more."""
        until = time.monotonic() + GIVE_UP
        last = None
        while True:
            self.screen.display.sync()
            tree = self.tree()
            windows = self.windows(tree)
            now = (json.dumps(tree.without_links(), sort_keys=True), repr(windows), self.screen.active())
            arrived = before is None or (tree.report["keys"] - before["keys"] >= keys
                                         and tree.report["buttons"] - before["buttons"] >= buttons)
            if (arrived and now == last) or time.monotonic() > until:
                return tree
            last = now
            time.sleep(CALM)

    def wait(self, condition, what):
        """Waits until the condition is true for the tree of widgets; returns its result."""
        until = time.monotonic() + PATIENCE
        while True:
            tree = self.tree()
            result = condition(tree)
            if result:
                return result
            if time.monotonic() > until:
                self.faults.keep(self, f"waiting for {what}", tree)
                raise Failure(f"{self.name}: waited in vain for {what}")
            time.sleep(CALM)

    # -- actions; each checks the windows afterwards

    def look(self, step):
        """Records visible errors that do not disappear."""
        self.looks += 1
        self.steps.append(step)
        until = time.monotonic() + GIVE_UP
        while True:
            tree = self.tree()
            wrong = checks.problems(self, tree)
            if not wrong:
                return
            if time.monotonic() > until:
                for problem in wrong:
                    self.faults.add(self, step, problem, tree)
                return
            time.sleep(CALM)

    def _done(self, step, keys, buttons, before):
        try:
            self.calm(keys, buttons, before)
            self.look(step)
        except Failure:
            if self.process.poll() != 0:  # else it has ended as it was asked to
                raise

    def press(self, *combinations):
        for combination in combinations:
            before = self.tree().report
            self._done(f"press {combination}", self.screen.press(combination), 0, before)

    def type(self, text):
        before = self.tree().report
        self._done(f"type {text}", self.screen.type(text), 0, before)

    def fill(self, *values):
        """Values for one field after another; Enter takes a suggestion and goes on. None does not change a field."""
        for value in values:
            if value is not None:
                self.type(value)
                if self.tree().shown("SuggestionPopup"):
                    self.press("Enter")
                    continue
            self.press("Tab")

    def click(self, what, times=1, button=1, **more):
        """A widget by its name, or a widget itself, or an item of one."""
        widget = self.revealed(what, **more) if isinstance(what, str) else what
        x, y, width, height = widget.get("seen") or widget["rect"]
        before = self.tree().report
        self.screen.click(x + width // 2, y + height // 2, button, times)
        label = widget.get("name") or widget.get("text") or widget.get("class")
        self._done(f"click {label}", 0, times, before)

    def revealed(self, name, **more):
        """A widget that can be clicked; scrolls to it if needed."""
        widget = self.widget(name, **more)
        while 0 in widget.get("seen", [1])[2:]:
            area = widget["parent"]
            while area and 0 in area.get("seen", area["rect"])[2:]:
                area = area["parent"]
            if not area:
                raise Failure(f"{self.name}: {name} cannot be seen")
            before = widget["rect"]
            x, y, width, height = area.get("seen") or area["rect"]
            self.screen.click(x + 5, y + height // 2, button=5 if widget["rect"][1] > y else 4)
            self.wait(lambda tree: (tree.one(name, **more) or widget)["rect"] != before, f"{name} to be scrolled to")
            widget = self.widget(name, **more)
        return widget

    def click_button(self, text, inside=None):
        """A button by its text."""
        find = lambda tree: next((w for w in tree.find(text=text, inside=inside) if "Button" in w["class"] and w["enabled"]), None)
        self.click(self.wait(find, f"a button {text}"))

    def widget(self, name, **more):
        return self.wait(lambda tree: tree.one(name, **more), f"widget {name}")

    def item(self, name, text, **more):
        """The item of a view, tab bar or menu that shows this text."""
        def find(tree):
            for widget in tree.find(name, **more):
                for item in widget.get("items", []):
                    if text in item["text"]:
                        return item
            return None
        return self.wait(find, f"{text} in {name}")

    def menu(self, *texts):
        """Chooses one entry after another of open menus."""
        for text in texts:
            def find(tree):
                for menu in tree.find():
                    for item in menu.get("items", []) if "Menu" in menu["class"] else []:
                        if item["text"].startswith(text):
                            return item
                return None
            item = self.wait(find, f"menu entry {text}")
            if not item["enabled"]:
                raise Failure(f"{self.name}: the menu entry {text} is off")
            self.click(item)

    def open(self, cls):
        """The window of this class, once it is shown and has the focus."""
        window = self.wait(lambda tree: tree.shown(cls), f"window {cls}")
        self.wait(lambda tree: (tree.by_id.get(tree.report["active"]) or {}).get("id") == window["id"], f"{cls} to be active")
        self.look(f"{cls} is open")
        return self.tree().by_id[window["id"]]

    def gone(self, cls):
        self.wait(lambda tree: not tree.shown(cls), f"{cls} to close")
        self.look(f"{cls} is closed")

    def expect(self, condition, what):
        """A fault unless it becomes true."""
        until = time.monotonic() + GIVE_UP
        while True:
            tree = self.tree()
            if condition(tree):
                return
            if time.monotonic() > until:
                self.faults.add(self, "expectation", what(tree) if callable(what) else what, tree)
                return
            time.sleep(CALM)

    def expect_focus(self, name):
        self.expect(lambda tree: name in tree.focus_path(),
                    lambda tree: f"the keyboard is at {' < '.join(tree.focus_path()[:3]) or 'nothing'}, expected at {name}")

    def drop(self, button, entry):
        """An entry of the menu behind a button of the tool bar, by its arrow."""
        x, y, width, height = self.widget(button)["rect"]
        before = self.tree().report
        self.screen.click(x + width - 6, y + height // 2)
        self._done(f"open the menu of {button}", 0, 0, before)
        self.menu(entry)

    def choose(self, name, text, **more):
        """Moves down in a list or a table with the arrow keys until its current row shows this text."""
        def current(tree):
            for widget in tree.find(name, **more):
                for item in widget.get("items", []):
                    if item["current"]:
                        return item["text"]
            return ""
        for key in ("Home", "Down"):
            for _ in range(200):
                before = current(self.tree())
                if text in before:
                    return
                self.press(key)
                if current(self.tree()) == before or key == "Home":
                    break
        raise Failure(f"{self.name}: no row with {text} in {name}")

    # -- actions of a window's frame

    def frame(self, cls):
        window = self.wait(lambda tree: tree.shown(cls), f"window {cls}")
        found = [w for w in self.windows() if w.wid == window["wid"]]
        if not found:
            raise Failure(f"{self.name}: {cls} has no window that can be seen")
        return found[0]

    def close_by_frame(self, what):
        """By the cross in the title bar of a window, or of the one of this class."""
        window = self.frame(what) if isinstance(what, str) else what
        frame, bar = window.frame, window.rect[1] - window.frame[1]
        self.screen.click(frame[0] + frame[2] - bar // 2 - 1, frame[1] + bar // 2 + 1)
        self._done(f"close {what} by its frame", 0, 0, None)

    def endure(self, cls, resizable=True):
        """Minimises, restores, moves and resizes a window: typed text is kept, everything is visible."""
        wid = int(self.frame(cls).wid)
        before = self.calm()
        listed = checks.entries(before, cls)
        self.screen.minimise(wid)
        self.wait(lambda tree: all(w.wid != wid for w in self.windows(tree)), f"{cls} to be minimised")
        self.look(f"{cls} is minimised")
        self.screen.activate(wid)
        self.wait(lambda tree: any(w.wid == wid for w in self.windows(tree)) and self.screen.active() == wid, f"{cls} to be restored")
        after = self.calm()
        self.look(f"{cls} is restored")
        for line in checks.changes(listed, checks.entries(after, cls)):
            self.faults.add(self, f"minimise and restore {cls}", line, after)
        self.expect(lambda tree: tree.focus_path() == before.focus_path(),
                    lambda tree: f"{cls}: after minimising the keyboard is at {tree.focus_path()[:2]}, it was at {before.focus_path()[:2]}")
        at = self.frame(cls)
        sizes = [(0, 0, None, None)]
        if resizable:
            room = (self.screen.width - (at.frame[2] - at.rect[2]), self.screen.height - (at.frame[3] - at.rect[3]))
            sizes += [(0, 0, *room), (0, 0, 1, 1)]
        sizes.append((*at.frame[:2], *at.rect[2:]))
        for x, y, width, height in sizes:
            self.screen.place(wid, x, y, width, height)
            self.calm()
            self.look(f"{cls} at {x}, {y} with the size {width}, {height}")
        for line in checks.changes(listed, checks.entries(self.calm(), cls)):
            self.faults.add(self, f"move and resize {cls}", line, self.tree())
