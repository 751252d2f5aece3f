"""A screen of its own: an X server in memory, a window manager, and a keyboard and a mouse that both take for real.

Keys and clicks go through the XTEST extension, on the connection that also reads windows and pictures: no process for each
key, and what was typed is known to have reached the server. The keyboard is that of a Russian workplace, two layouts with
Scroll Lock between them, so that shortcuts are pressed with the Russian one in force.
"""
import os
import struct
import subprocess
import time
import zlib

from Xlib import X, XK, Xatom, display
from Xlib.ext import xtest
from Xlib.protocol import event

MODIFIERS = {"Ctrl": "Control_L", "Shift": "Shift_L", "Alt": "Alt_L"}
LATIN, RUSSIAN = 0, 1
LAYOUT_KEY = 0xfe08  # ISO_Next_Group
DOUBLE_CLICK = 0.6  # seconds, more than Qt's interval
GRACE = 5  # seconds that a process has to end by itself


def end(process):
    if process and process.poll() is None:
        process.terminate()
        try:
            process.wait(GRACE)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


class Window:
    """A visible window: that of the program, and the frame that the window manager has added."""

    def __init__(self, wid, rect, frame, managed):
        self.wid, self.rect, self.frame, self.managed = wid, rect, frame, managed

    def __repr__(self):
        return f"window {self.wid:#x} at {self.rect}" + (f" in the frame {self.frame}" if self.managed else "")


class Screen:
    def __init__(self, folder, width=1280, height=720, letters=100):
        self.width, self.height, self.letters = width, height, letters
        self.environment = dict(os.environ, HOME=folder, XDG_CONFIG_HOME=f"{folder}/config", XDG_CACHE_HOME=f"{folder}/cache",
                                XDG_DATA_HOME=f"{folder}/data", XDG_RUNTIME_DIR=folder)
        self.server = self.manager = self.display = None
        self.layout = LATIN
        self.clicked = (0, 0, 0)
        try:
            self._start(folder, letters)
        except BaseException:
            self.close()
            raise

    def _start(self, folder, letters):
        reading, writing = os.pipe()
        with open(f"{folder}/xvfb.log", "wb") as log:
            self.server = subprocess.Popen(
                ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{self.width}x{self.height}x24", "-dpi", "96",
                 "-nolisten", "tcp", "-noreset"], pass_fds=[writing], stdout=log, stderr=log)
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError(f"Xvfb does not start: {open(f'{folder}/xvfb.log').read()}")
        self.environment["DISPLAY"] = f":{number}"
        os.environ.pop("XAUTHORITY", None)
        self.environment.pop("XAUTHORITY", None)
        subprocess.run(["setxkbmap", "-layout", "us,ru", "-option", "grp:sclk_toggle"], env=self.environment, check=True)
        self.display = display.Display(self.environment["DISPLAY"])
        self.root = self.display.screen().root
        self.atom = self.display.intern_atom
        # The setting of a desktop for larger letters.
        self.root.change_property(Xatom.RESOURCE_MANAGER, Xatom.STRING, 8, f"Xft.dpi:\t{96 * letters // 100}\n".encode())
        self._learn_keyboard()
        with open(f"{folder}/openbox.log", "wb") as log:
            self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment, stdout=log, stderr=log)
        self._wait(lambda: self.root.get_full_property(self.atom("_NET_SUPPORTING_WM_CHECK"), Xatom.WINDOW))
        self._toggle()
        self.display.sync()

    def close(self):
        end(self.manager)
        if self.display:
            try:
                self.display.close()
            except Exception:  # the server may have ended
                pass
        end(self.server)

    @staticmethod
    def _wait(condition, seconds=60):
        until = time.monotonic() + seconds
        while not condition():
            if time.monotonic() > until:
                raise RuntimeError("the window system does not start")
            time.sleep(0.02)

    # -- keyboard and mouse

    def _learn_keyboard(self):
        """Which key, with Shift or without, types which letter in which layout."""
        low, high = self.display.display.info.min_keycode, self.display.display.info.max_keycode
        self.codes, self.keys = {}, {}
        for offset, symbols in enumerate(self.display.get_keyboard_mapping(low, high - low + 1)):
            for column, symbol in enumerate(symbols[:4]):
                if not symbol:
                    continue
                layout, shift = divmod(column, 2)
                if not shift:
                    self.codes.setdefault(symbol, low + offset)
                letter = self._letter(symbol)
                if letter:
                    self.keys.setdefault((letter, layout), (low + offset, shift))

    @staticmethod
    def _letter(symbol):
        if 0x20 <= symbol <= 0xff:
            return chr(symbol)
        if symbol == 0x6b0:
            return "№"
        if 0x6a0 <= symbol <= 0x6ff:  # the keyboard numbers of Cyrillic letters are those of KOI8-R
            return {0x6a3: "ё", 0x6b3: "Ё"}.get(symbol) or (bytes([symbol & 0xff]).decode("koi8-r") if symbol >= 0x6c0 else None)
        return None

    def _fake(self, kind, detail):
        xtest.fake_input(self.display, kind, detail)

    def press_key(self, name, modifiers=()):
        symbol = XK.string_to_keysym(name)
        code = self.codes.get(symbol)
        if not code:
            raise ValueError(f"no key {name}")
        held = [self.codes[XK.string_to_keysym(MODIFIERS[m])] for m in modifiers]
        for key in held:
            self._fake(X.KeyPress, key)
        self._fake(X.KeyPress, code)
        self._fake(X.KeyRelease, code)
        for key in reversed(held):
            self._fake(X.KeyRelease, key)
        self.display.sync()

    def press(self, combination):
        """Such as "Ctrl+Shift+U", "Down"; returns the number of released keys."""
        *modifiers, key = combination.split("+") if combination != "+" else ["plus"]
        key = {"Enter": "Return", "Space": "space"}.get(key, key)
        self.press_key(key.lower() if len(key) == 1 else key, modifiers)
        return len(modifiers) + 1

    def type(self, text):
        """Returns the number of released keys."""
        keys = 0
        shift_key = self.codes[XK.string_to_keysym("Shift_L")]
        for letter in text:
            if (letter, self.layout) not in self.keys:
                other = LATIN if self.layout == RUSSIAN else RUSSIAN
                if (letter, other) not in self.keys:
                    raise ValueError(f"no key types {letter!r}")
                self._toggle()
                keys += 1
            code, shift = self.keys[letter, self.layout]
            if shift:
                self._fake(X.KeyPress, shift_key)
            self._fake(X.KeyPress, code)
            self._fake(X.KeyRelease, code)
            if shift:
                self._fake(X.KeyRelease, shift_key)
                keys += 1
            keys += 1
        if self.layout != RUSSIAN:
            self._toggle()
            keys += 1
        self.display.sync()
        return keys

    def _toggle(self):
        code = self.codes[LAYOUT_KEY]
        self._fake(X.KeyPress, code)
        self._fake(X.KeyRelease, code)
        self.layout = LATIN if self.layout == RUSSIAN else RUSSIAN

    def point(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=int(x), y=int(y))
        self.display.sync()

    def click(self, x, y, button=1, times=1):
        if (x, y) == self.clicked[:2]:  # avoids a double click with the previous one
            time.sleep(max(0, self.clicked[2] + DOUBLE_CLICK - time.monotonic()))
        self.clicked = (x, y, time.monotonic())
        self.point(x, y)
        for _ in range(times):
            self._fake(X.ButtonPress, button)
            self._fake(X.ButtonRelease, button)
        self.display.sync()

    def drag(self, start, stop):
        self.point(*start)
        self._fake(X.ButtonPress, 1)
        for step in range(1, 5):
            self.point(start[0] + (stop[0] - start[0]) * step / 4, start[1] + (stop[1] - start[1]) * step / 4)
        self._fake(X.ButtonRelease, 1)
        self.display.sync()

    # -- what the window manager does for a panel or a frame

    def _ask(self, wid, kind, data):
        message = event.ClientMessage(window=wid, client_type=self.atom(kind), data=(32, (data + [0] * 5)[:5]))
        self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.sync()

    def minimise(self, wid):
        self._ask(wid, "WM_CHANGE_STATE", [3])

    def activate(self, wid):
        """Like a click in a panel; also restores."""
        self._ask(wid, "_NET_ACTIVE_WINDOW", [2])

    def ask_to_close(self, wid):
        self._ask(wid, "_NET_CLOSE_WINDOW", [0, 2])

    def place(self, wid, x, y, width, height):
        """The frame's corner and the size of its content; None changes nothing."""
        flags = 1 | 2 << 12  # the corner of the frame, requested like a pager does
        for bit, value in enumerate((x, y, width, height)):
            flags |= (1 << (8 + bit)) if value is not None else 0
        self._ask(wid, "_NET_MOVERESIZE_WINDOW", [flags] + [int(v or 0) for v in (x, y, width, height)])

    # -- what can be seen

    def focus(self):
        """The window with the focus."""
        window = self.display.get_input_focus().focus
        return window.id if hasattr(window, "id") else 0

    def active(self):
        found = self.root.get_full_property(self.atom("_NET_ACTIVE_WINDOW"), Xatom.WINDOW)
        return found.value[0] if found else 0

    def windows(self, base):
        """The windows of a program (the upper part of their numbers), from the lowest to the topmost."""
        mask = ~self.display.display.info.resource_id_mask
        seen = []

        def look(window, frame):
            attributes = window.get_attributes()
            if attributes.map_state != X.IsViewable or attributes.win_class != X.InputOutput:
                return
            where = window.get_geometry()
            at = window.translate_coords(self.root, 0, 0)
            rect = (-at.x, -at.y, where.width, where.height)
            if window.id & mask == base:
                seen.append(Window(window.id, rect, frame or rect, frame is not None))
                return
            for child in window.query_tree().children:
                look(child, frame or (rect[0] - where.border_width, rect[1] - where.border_width,
                                      where.width + 2 * where.border_width, where.height + 2 * where.border_width))

        for window in self.root.query_tree().children:
            try:
                look(window, None)
            except Exception as error:  # it was closed in the meantime
                if "BadWindow" not in repr(error) and "BadDrawable" not in repr(error):
                    raise
        return seen

    def base_of(self, wid):
        return wid & ~self.display.display.info.resource_id_mask

    def picture(self, rect=None):
        """Width, height, and the bytes of a part of the screen, four for each pixel."""
        x, y, width, height = rect or (0, 0, self.width, self.height)
        right, bottom = min(self.width, x + width), min(self.height, y + height)
        x, y = max(0, x), max(0, y)
        width, height = max(1, right - x), max(1, bottom - y)
        image = self.root.get_image(x, y, width, height, X.ZPixmap, 0xffffffff)
        return width, height, image.data

    def save_picture(self, path):
        width, height, data = self.picture()
        rows = bytearray()
        for y in range(height):
            line = data[y * width * 4:(y + 1) * width * 4]
            rgb = bytearray(width * 3)
            rgb[0::3], rgb[1::3], rgb[2::3] = line[2::4], line[1::4], line[0::4]
            rows += b"\0" + rgb

        def chunk(kind, content):
            return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))

        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
                       + chunk(b"IDAT", zlib.compress(bytes(rows), 3)) + chunk(b"IEND", b""))
