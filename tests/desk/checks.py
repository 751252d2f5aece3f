"""The checks after every step of every scene."""

# Qt's own dialogs: their content is not ours.
NOT_OURS = {"QFileDialog", "QPrintDialog", "QPrintPropertiesDialog", "QUnixPrintWidget"}

EDGE = 3  # pixels of a line around a window


def owner_chain(tree, window):
    """The windows that a window belongs to."""
    chain = []
    while window and window["owner"]:
        widget = tree.by_id.get(window["owner"])
        window = widget["window"] if widget else None
        if window is None or any(window is known for known in chain):
            break
        chain.append(window)
    return chain


def label(window):
    return f"{window['class']} \"{window['title'] or window['name']}\""


def inside(rect, screen):
    x, y, width, height = rect
    slack = 0 if screen.letters == 100 else 1  # one and a half pixels are one or two
    return x >= -slack and y >= -slack and x + width <= screen.width + slack and y + height <= screen.height + slack


def problems(seat, tree):
    screen = seat.screen
    windows = seat.windows(tree)
    by_wid = {int(w["wid"]): w for w in tree.windows}
    found = []
    for window in windows:
        known = by_wid.get(window.wid)
        if not known:
            found.append(f"{window} belongs to no widget")
            continue
        if not known["shown"]:
            found.append(f"{label(known)} is hidden, its {window} is not")
            continue
        if not inside(window.frame, screen):
            found.append(f"{label(known)}, {window}, reaches out of the screen")
        if not window.managed:
            for owner in owner_chain(tree, known)[:1]:
                if not owner["shown"] or owner["minimized"]:
                    found.append(f"{label(known)} is left behind by its window")
    if windows and (not windows[-1].managed or windows[-1].wid == screen.active()):
        x, y, width, height = windows[-1].rect
        # Without the frame and the scroll bar: they show even if nothing else does.
        width, height, data = screen.picture((x + EDGE, y + EDGE, width * 3 // 4, height - 2 * EDGE))
        if data == data[:4] * (width * height):
            found.append(f"{windows[-1]} is empty")
    seen = {w.wid for w in windows}
    for window in tree.windows:
        if window["shown"] and not window["minimized"] and int(window["wid"]) not in seen \
                and not any(w and w["minimized"] for w in owner_chain(tree, window)):
            found.append(f"{label(window)} is shown but cannot be seen")
    found += focus_problems(tree, windows, screen)
    for widget in tree.all:
        if "cut" in widget and widget["window"]["class"] not in NOT_OURS:
            found.append(f"{label(widget['window'])}: {widget['class']} {widget['name']} is cut: {widget['cut']}")
    return found


def focus_problems(tree, windows, screen):
    if not any(w.managed for w in windows):
        return []
    active = tree.by_id.get(tree.report["active"])
    if not active:
        return ["no window has the keyboard"]
    found = []
    if int(active["wid"]) != screen.active():
        found.append(f"the program takes {label(active)} for active, the window manager does not")
    modal = tree.by_id.get(tree.report["modal"])
    if modal and modal["window"] is not active["window"] and active["window"] not in \
            [w for w in tree.windows if modal["window"] in owner_chain(tree, w)]:
        found.append(f"{label(modal)} waits for an answer, {label(active)} is active")
    focus = tree.focus()
    if not focus:
        found.append(f"nothing in {label(active)} has the keyboard")
    elif not focus["enabled"]:
        found.append(f"{focus['class']} {focus['name']} has the keyboard and is off")
    return found


def entries(tree, cls):
    """The values that a user has entered in a window."""
    window = tree.shown(cls)
    made = []
    for widget in tree.all if window else []:
        if widget["window"] is not window:
            continue
        kind = widget["class"]
        if "Table" in kind or "Tree" in kind or "List" in kind:
            value = [(i["text"], i["selected"], i.get("checked")) for i in widget.get("items", [])]
        elif "Edit" in kind or "Line" in kind or "Combo" in kind or "Spin" in kind:
            value = widget.get("text", "")
        elif "checked" in widget:
            value = widget["checked"]
        elif "Button" in kind:
            value = "on" if widget["enabled"] else "off"
        else:
            continue
        made.append((f"{kind} {widget['name']}", value))
    return made


def changes(before, after):
    if len(before) != len(after):
        return [f"{len(before)} fields were there, now {len(after)}"]
    return [f"{was[0]}: {was[1]!r} has become {now[1]!r}" for was, now in zip(before, after) if was != now]
