#!/usr/bin/env python3
"""Compares every #include of the project with the list of allowed includes.

A floor of the platform includes itself and the floors below it; the plug-ins include the platform above the store and
nothing of each other; the host includes the platform above the store and no header of a plug-in; the admin tool includes
hfn, store, demo and the text floor, of which it links only what reads texts; the reports also what the plug-ins print
with, the window of the reference data the admin tool and the host's look. The rooms of the journal's plug-in and of the
store are floors, too. A form counts as the header that is made of it.
A file belongs to the longest entry that matches its path, so an entry may also be a single file.
"""
import pathlib
import re
import sys

SCHEMA = {"platform/hfn", "platform/store/schema"}
STORE = SCHEMA | {"platform/store"}  # what both engines share
EVIDENCE = {"platform/store/evidence"}
SQLITE = STORE | EVIDENCE | {"platform/store/sqlite"}
POSTGRES = STORE | EVIDENCE | {"platform/store/postgres"}
STORE_ADMIN = STORE | EVIDENCE | {"platform/store/admin"}
ABOVE_STORE = {"platform/hfn", "platform/client", "platform/text", "platform/widgets"}


def plugin(*rooms):
    return ABOVE_STORE | {f"plugin/{room}" for room in rooms}


ALLOWED = {
    "platform/hfn": {"platform/hfn"},
    "platform/store/schema": SCHEMA,
    "platform/store": STORE,
    "platform/store/evidence": STORE | EVIDENCE,
    "platform/store/sqlite": SQLITE,
    "platform/store/postgres": POSTGRES,
    "platform/store/Store.cpp": SQLITE | POSTGRES,  # opens a store of either engine
    "platform/store/admin": SQLITE | POSTGRES | STORE_ADMIN,
    "platform/client": STORE | EVIDENCE | {"platform/client"},
    "platform/text": {"platform/hfn", "platform/client", "platform/text"},
    "platform/widgets": ABOVE_STORE,
    "plugin/base": plugin("base"),
    "plugin/records": plugin("base", "records"),
    "plugin/workshift": plugin("base", "records", "workshift"),
    "plugin/comments": plugin("base", "records", "comments"),
    "plugin/dialogs": plugin("base", "records", "dialogs"),
    "plugin/journal": plugin("base", "records", "workshift", "dialogs", "journal"),
    "plugin/templates": plugin("base", "templates"),
    "plugin/converter": plugin("base", "converter"),
    "plugin/window": plugin("base", "records", "workshift", "comments", "dialogs", "journal", "templates", "converter",
                            "window"),
    "archive": ABOVE_STORE | {"archive"},
    "workstation": ABOVE_STORE | {"workstation"},
    "report": STORE | ABOVE_STORE | {"plugin/base", "plugin/records", "plugin/journal", "archive", "report"},
    "directory": STORE_ADMIN | ABOVE_STORE | {"workstation", "demo", "admin", "directory"},
    "demo": STORE_ADMIN | {"platform/text", "demo"},
    "admin": STORE_ADMIN | {"platform/text", "demo", "admin"},
}


def room_of(path):
    rooms = [room for room in ALLOWED if path == room or path.startswith(room + "/")]
    return max(rooms, key=len, default=None)


def provided(path):
    """The name under which others include the file; None for a source."""
    if path.suffix == ".ui":
        return f"ui_{path.stem}.h"
    return path.name if path.suffix == ".h" else None


def main(root):
    files = {}
    rooms = {}
    faults = []
    for house in sorted({room.split("/")[0] for room in ALLOWED}):
        for path in (root / house).rglob("*"):
            if path.suffix not in (".h", ".cpp", ".ui"):
                continue
            room = files[path] = room_of(path.relative_to(root).as_posix())
            if room is None:
                faults.append(f"{path.relative_to(root)} belongs to no room")
            header = provided(path)
            if header in rooms:
                faults.append(f"two headers are called {header}: in {rooms[header]} and {room}")
            if header:
                rooms[header] = room
    count = 0
    sources = {path: room for path, room in files.items() if room and path.suffix != ".ui"}
    for path, room in sources.items():
        name = path.relative_to(root).as_posix()
        for line in path.read_text(encoding="utf-8").splitlines():
            match = re.match(r'\s*#\s*include\s+"([^"]+)"', line)
            if not match:
                continue
            count += 1
            included = match.group(1).split("/")[-1]
            owner = rooms.get(included)
            if owner and owner not in ALLOWED[room]:
                faults.append(f"{name} includes {included} of {owner}")
    if count == 0:
        faults.append("no includes were found: the check looks at the wrong folder")
    print("\n".join(faults) if faults else f"{count} includes in {len(sources)} files keep to the floors")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve()))
