#!/usr/bin/env python3
"""Writes tests/evidence/vectors.json: values that every implementation of docs/evidence-format.md must give.

    make_vectors.py            writes the file
    make_vectors.py --check    compares it with what would be written

Hashes are in hexadecimal digits. The index i of "trees", "pruned" and "consistency" stands for the leaf H(0x00 ‖ i in decimal
digits). "timeBits" is the time as the bytes of its real number, for readers of JSON that lose the sign of zero.
"""
import json
import pathlib
import random
import struct
import sys

sys.dont_write_bytecode = True  # the sources stay clean

import forge  # noqa: E402

FILE = pathlib.Path(__file__).resolve().with_name("vectors.json")
PUBLIC_INPUTS = ["", "00", "10", "2021", "3031", "40414243", "5051525354555657", "606162636465666768696a6b6c6d6e6f"]
PUBLIC_ROOTS = ["6e340b9c", "fac54203", "aeb6bcfe", "d37ee418", "4e3bbb1f", "76e67dad", "ddb89be4", "5dc9da79"]
TIMES = [0, -0.0, 1795372800, 1795372800.25, -1, 0.1, 1e-7, 5e-324, 2**53, 1.7e18, 1e21, 1.7976931348623157e308]


def row(table, key, event, old, new):
    return {"table": table, "key": key, "event": event, "old": old, "new": new}


def rows():
    text = json.dumps(["b7c1", "Отключён В-110 «Заря»", None, 1795372800.5, "quote \" backslash \\ line\nend"], ensure_ascii=False)
    return [row("LogbookRecords", "b7c1", 601, None, text), row("LogbookRecords", "b7c1", 603, text, None),
            row("LogbookRecords", "b7c1", 602, text, text.replace("В-110", "В-220")),
            row("LogbookRecords", "", 602, "", ""), row("LogbookRecords", "", 602, None, None),
            row("LogbookRecords", "", 602, "", None), row("LogbookRecords", "", 602, None, ""), row("", "", 0, None, None),
            row("", "null", -1, "null", "\0"), row("Таблица", "ключ", 601, None, "𝄞\u2028\ufeff"),
            row("LogbookFiles", "f", 601, None, "[\"f\",{\"sha256\":\"" + 64 * "0" + "\",\"length\":12}]"),
            row("ab", "c", 601, None, "x"), row("a", "bc", 601, None, "x"), row("Long", "k", 2**53 - 1, "я" * 500, None)]


def transactions():
    samples = rows()
    for number, time in enumerate(TIMES, 1):
        yield {"number": number, "batchKey": f"batch-{number}", "login": "petrov", "role": "person", "time": time,
               "rows": samples[:number]}
    for fields in ({"number": 2**53 - 1, "rows": []}, {"login": "Петров И. И.", "role": "loader"}, {"batchKey": "", "login": ""},
                   {"rows": [row("LogbookRecords", f"key-{place}", 601, None, f"[{place}]") for place in range(300)]}):
        yield {"number": 17, "batchKey": "b", "login": "ivanov", "role": "person", "time": 1795372800, "rows": samples[:1], **fields}


def numbered_leaves(count):
    return [forge.sha(b"\x00" + str(index).encode()) for index in range(count)]


def pruned():
    rng = random.Random(1)
    sets = [(0, []), (1, []), (1, [0]), (7, []), (7, [6]), (7, [0, 6]), (8, [3]), (8, list(range(8))), (1000, [0, 500, 999])]
    for _ in range(30):
        size = rng.randrange(2, 40)
        sets.append((size, sorted(rng.sample(range(size), rng.randrange(1, size)))))
    for size, shown in sets:
        leaves = numbered_leaves(size)
        yield {"size": size, "shown": shown, "hidden": [node.hex() for node in forge.hidden_hashes(leaves, shown)],
               "root": forge.tree_root(leaves).hex()}


def consistency():
    pairs = [(first, second) for second in range(1, 10) for first in range(1, second + 1)]
    for first, second in pairs + [(1, 1000), (512, 1000), (999, 1000), (600, 1000), (64, 65), (63, 64)]:
        path = forge.consistency(first, numbered_leaves(second))
        yield {"first": first, "second": second, "path": [node.hex() for node in path]}


def head():
    key = forge.Key("seal-vrk01", bytes(range(32)))
    next_key = forge.Key("seal-vrk02", bytes(range(32, 64)))
    origin, size, root, time = "vrk-logbook/4F1C2A90", 1000, forge.tree_root(numbered_leaves(1000)), "2026-11-22T18:40:00Z"
    return {"origin": origin, "size": size, "root": root.hex(), "time": time, "paper": f"{size} {root.hex()[:16]}",
            "keys": [{"name": k.name, "seed": k.seed.hex(), "public": k.public.hex(), "id": k.id.hex(), "line": k.line}
                     for k in (key, next_key)],
            "note": forge.make_note(origin, size, root, time, [key]).decode(),
            "noteOfBothKeys": forge.make_note(origin, size, root, time, [key, next_key]).decode()}


def public_vectors():
    leaves = [forge.sha(b"\x00" + bytes.fromhex(data)) for data in PUBLIC_INPUTS]
    roots = [forge.tree_root(leaves[:size]).hex() for size in range(1, 9)]
    for root, begin in zip(roots, PUBLIC_ROOTS):
        assert root.startswith(begin), f"the public vectors begin with {begin}, not with {root}"
    return {"inputs": PUBLIC_INPUTS, "roots": roots}


def vectors():
    return {"rows": [{**sample, "leaf": forge.row_leaf(sample).hex()} for sample in rows()],
            "transactions": [{**sample, "timeBits": struct.pack(">d", sample["time"]).hex(), "leaf": forge.transaction_leaf(sample).hex()}
                             for sample in transactions()],
            "trees": [{"size": size, "root": forge.tree_root(numbered_leaves(size)).hex()} for size in (*range(21), 1000)],
            "pruned": list(pruned()), "consistency": list(consistency()), "head": head(), "public": public_vectors()}


def text():
    """One value a line, so that a change is seen in a comparison."""
    parts = []
    for name, value in vectors().items():
        lines = [json.dumps(item, ensure_ascii=False) for item in value] if isinstance(value, list) else None
        parts.append(f"{json.dumps(name)}: " + ("[\n  " + ",\n  ".join(lines) + "\n]" if lines else json.dumps(value, ensure_ascii=False)))
    return "{\n" + ",\n".join(parts) + "\n}\n"


if __name__ == "__main__":
    if sys.argv[1:] == ["--check"]:
        sys.exit(0 if FILE.read_text("utf-8") == text() else "vectors.json is not what make_vectors.py writes")
    FILE.write_text(text(), "utf-8")
