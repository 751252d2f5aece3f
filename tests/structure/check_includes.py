#!/usr/bin/env python3
"""Compares every #include of the project with the list of allowed includes.

A floor of the platform includes itself and the floors below it; the plug-ins include the platform above the store and
nothing of each other; the host includes the platform above the store and no header of a plug-in; the admin tool includes hfn,
store and demo.
"""
import pathlib
import re
import sys

ALLOWED = {
    "platform/hfn": {"platform/hfn"},
    "platform/store": {"platform/hfn", "platform/store"},
    "platform/client": {"platform/hfn", "platform/store", "platform/client"},
    "platform/text": {"platform/hfn", "platform/client", "platform/text"},
    "platform/widgets": {"platform/hfn", "platform/client", "platform/text", "platform/widgets"},
    "plugin": {"platform/hfn", "platform/client", "platform/text", "platform/widgets", "plugin"},
    "archive": {"platform/hfn", "platform/client", "platform/text", "platform/widgets", "archive"},
    "workstation": {"platform/hfn", "platform/client", "platform/text", "platform/widgets", "workstation"},
    "demo": {"platform/hfn", "platform/store", "platform/text", "demo"},
    "admin": {"platform/hfn", "platform/store", "demo", "admin"},
}


def room_of(path):
    for room in ALLOWED:
        if path.startswith(room + "/"):
            return room
    return None


def main(root):
    sources = [p for room in ALLOWED for p in (root / room).rglob("*") if p.suffix in (".h", ".cpp")]
    rooms = {}
    faults = []
    for path in sources:
        if path.suffix == ".h":
            room = room_of(path.relative_to(root).as_posix())
            if path.name in rooms:
                faults.append(f"two headers are called {path.name}: in {rooms[path.name]} and {room}")
            rooms[path.name] = room
    count = 0
    for path in sources:
        name = path.relative_to(root).as_posix()
        room = room_of(name)
        for line in path.read_text(encoding="utf-8").splitlines():
            match = re.match(r'\s*#\s*include\s+"([^"]+)"', line)
            if not match:
                continue
            count += 1
            included = match.group(1).split("/")[-1]
            if included.startswith("ui_") or included.endswith(".moc") or included.startswith("moc_"):
                continue
            owner = rooms.get(included)
            if owner and owner not in ALLOWED[room]:
                faults.append(f"{name} includes {included} of {owner}")
    if count == 0:
        faults.append("no includes were found: the check looks at the wrong folder")
    print("\n".join(faults) if faults else f"{count} includes in {len(sources)} files keep to the floors")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))
