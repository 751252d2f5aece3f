#!/usr/bin/env python3
"""Attacks exports of evidence and checks that admin/evidence/verify.py finds every attack and accepts honest exports.

    verify_test.py [-v] [TEST]...      VRK_LONG=1: 1,000 attacks and 1,000 honest histories instead of some hundreds
"""
import collections
import contextlib
import copy
import functools
import importlib.util
import io
import json
import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True  # the sources stay clean

import forge  # noqa: E402
import make_vectors  # noqa: E402

PROGRAM = pathlib.Path(__file__).resolve().parents[2] / "admin/evidence/verify.py"
module = importlib.util.spec_from_file_location("verify", PROGRAM)
verify = importlib.util.module_from_spec(module)
module.loader.exec_module(verify)
verify.is_signature = functools.lru_cache(None)(verify.is_signature)  # most attacks keep most heads

IS_LONG = "VRK_LONG" in os.environ
KEY, NEXT_KEY, STRANGER = (forge.Key(name, forge.sha(name.encode() + seed)) for name, seed in
                           (("seal-vrk01", b"1"), ("seal-vrk02", b"2"), ("seal-vrk01", b"3")))
WORDS = ["Отключён выключатель В-110", "", "РПН: \"вверх\"", "a\\b", "line\nbreak", "\0", "\u2028", "𝄞", "\udcff\udc80", "null", "0"]
LEAF_TEXTS = ("batchKey", "login", "role")


def run(folder, *arguments):
    """The exit code and the answer."""
    with contextlib.redirect_stdout(io.StringIO()) as answer:
        code = verify.main([str(folder), *map(str, arguments)])
    return code, answer.getvalue()


def random_row(rng):
    event = rng.choice((601, 602, 603))
    values = [json.dumps([rng.choice(WORDS), rng.randrange(100)], ensure_ascii=False) for _ in range(2)]
    return {"table": rng.choice(("LogbookRecords", "LogbookComments", "ShiftCrew")), "key": f"record-{rng.randrange(6)}",
            "event": event, "old": None if event == 601 else values[0], "new": None if event == 603 else values[1]}


def commit_some(store, rng, count):
    for _ in range(count):
        store.commit([random_row(rng) for _ in range(rng.choice((0, 1, 1, 1, 2, 3, 9)))], login=rng.choice(WORDS),
                     time=rng.choice((1795372800, 1795372800.25, 1e-7, -0.0, 2**53, 1.7e18)))


@functools.lru_cache(None)
def random_store(seed, epochs=True):
    """A history with seals, restores and a replaced key; the heads that a restore lost are beside it."""
    rng = random.Random(seed)
    store, lost = forge.Store("4F1C", [KEY]), []
    for round_ in range(rng.randrange(2, 7)):
        commit_some(store, rng, rng.randrange(1, 9))
        store.seal()
        if rng.random() < 0.2:
            store.replace_keys([KEY, NEXT_KEY] if store.keys == [KEY] else [NEXT_KEY])
        if epochs and rng.random() < 0.25:
            copy_size = rng.randrange(len(store.transactions) + 1)
            lost += [head for size, head in store.heads.items() if size > copy_size]
            store.restore(copy_size, f"epoch{round_}")
            store.seal()
    if rng.random() < 0.4:
        commit_some(store, rng, 3)
    return store, lost


def random_filter(rng):
    """Rows of one record, or those of some transactions."""
    if rng.random() < 0.5:
        key = f"record-{rng.randrange(7)}"
        return lambda transaction, row: row["key"] == key
    first, last = sorted(rng.randrange(40) for _ in range(2))
    return lambda transaction, row: first <= transaction["number"] <= last


def paper(store, size):
    return f"{size} {store.heads[size][1].hex()[:16]}"


def interval(store, number):
    """Where a change of this transaction shows: between the two heads around it."""
    good, bad = max([0, *(size for size in store.heads if size < number)]), min(s for s in store.heads if s >= number)
    return f"the transactions {good + 1} to {bad} do not give the head of {bad}"


def changed_text(rng, text):
    """The text with one character or byte replaced, added or removed."""
    place = rng.randrange(len(text) + 1)
    letter = rng.choice("Яx\"\\ \0\udc81")
    changed = rng.choice((text[:place] + letter + text[place + 1:], text[:place] + letter + text[place:],
                          text[:place] + text[place + 1:]))
    return changed if changed != text else text + letter


def change_row(rng, row):
    field = rng.choice(("table", "key", "event", "old", "new"))
    if field == "event":
        row["event"] = rng.choice([event for event in (601, 602, 603, 0, -1) if event != row["event"]])
    elif row[field] is None:
        row[field] = rng.choice(("", "null"))
    else:
        row[field] = rng.choice((changed_text(rng, row[field]), None)) if field in ("old", "new") else changed_text(rng, row[field])


def change_name(rng, transaction):
    field = rng.choice((*LEAF_TEXTS, "time"))
    transaction[field] = transaction[field] + 2**33 if field == "time" and transaction[field] < 1e18 \
        else transaction[field] / 2 if field == "time" else changed_text(rng, transaction[field])


def changeable(store):
    """The sealed transactions with rows, without those that change the epoch."""
    return [t for t in store.transactions[:store.size] if t["rows"] and t["rows"][0]["table"] != "StoreProperties"]


# The attacks. Each gets a history, and returns an export, arguments and what the answer must contain.
def row_rewritten(rng, store):
    export = store.export()
    number = rng.choice(changeable(store))["number"]
    change_row(rng, rng.choice(export.line(number)["rows"]))
    return export, [], f", transaction {number}: it was altered"


def row_rewritten_and_rehashed(rng, store):
    forged = store.copy()
    number = rng.choice(changeable(store))["number"]
    change_row(rng, rng.choice(forged.transactions[number - 1]["rows"]))
    return forged.export(), [], interval(store, number)


def name_altered(rng, store):
    export = store.export()
    line = rng.choice(export.lines[:store.size])
    change_name(rng, line)
    return export, [], f", transaction {line['number']}: it was altered"


def name_altered_and_rehashed(rng, store):
    forged = store.copy()
    transaction = rng.choice(forged.transactions[:store.size])
    change_name(rng, transaction)
    return forged.export(), [], interval(store, transaction["number"])


def rows_of_a_transaction(rng, store):
    forged = store.copy()
    transaction = rng.choice(changeable(forged))
    rows = transaction["rows"]
    kind = rng.choice(("added", "removed", "doubled", "turned"))
    if kind == "added":
        rows.insert(rng.randrange(len(rows) + 1), {**random_row(rng), "key": "added"})
    elif kind == "doubled":
        rows.append(dict(rows[-1]))
    elif kind == "removed" or rows == rows[::-1]:
        rows.pop(rng.randrange(len(rows)))
    else:
        rows.reverse()
    return forged.export(), [], interval(store, transaction["number"])


def row_left_out(rng, store):
    export = store.export()
    line = export.line(rng.choice(changeable(store))["number"])
    line["rows"].pop(rng.randrange(len(line["rows"])))
    line["rowCount"] -= rng.randrange(2)
    return export, [], f"log.jsonl, line {line['number']}"


def tail_cut(rng, store):
    export = store.export()
    kept = rng.randrange(store.size)
    export.lines = export.lines[:kept]
    return export, [], f"the transactions {kept + 1} to {store.size} are missing"


def transaction_removed(rng, store):
    export = store.export()
    number = rng.randrange(1, store.size)
    export.lines.remove(export.line(number))
    return export, [], f"the transactions {number} to {number} are missing before this line"


def transaction_removed_and_rehashed(rng, store):
    forged = store.copy()
    del forged.transactions[rng.randrange(store.size)]
    forged.renumber()
    if len(forged.transactions) < store.size:
        commit_some(forged, rng, 1)
    return forged.export(), [], "do not give the head of"


def transaction_inserted(rng, store):
    export = store.export()
    line = copy.deepcopy(rng.choice(export.lines[:store.size]))
    export.lines.insert(line["number"], line)
    return export, [], f"transaction {line['number']} was inserted after {line['number']}"


def transaction_inserted_and_rehashed(rng, store):
    forged = store.copy()
    place = rng.randrange(store.size)
    forged.transactions.insert(place, {**forged.transactions[place], "rows": [random_row(rng)], "batchKey": "inserted"})
    forged.renumber()
    return forged.export(), [], interval(store, place + 1)


def lines_swapped(rng, store):
    export = store.export()
    first = rng.randrange(store.size - 1)
    export.lines[first:first + 2] = export.lines[first + 1], export.lines[first]
    return export, [], f"the transactions {first + 1} to {first + 1} are missing"


def transactions_swapped(rng, store):
    forged, hints = store.copy(), store.export().lines
    first, second = sorted(rng.sample(range(store.size), 2))
    rows = forged.transactions
    rows[first], rows[second] = rows[second], rows[first]
    forged.renumber()
    export, is_rehashed = forged.export(), rng.random() < 0.5
    for line, hint in zip(export.lines, hints):
        line["leaf"] = line["leaf"] if is_rehashed else hint["leaf"]
    return export, [], interval(store, first + 1) if is_rehashed else f"line {first + 1}, transaction {first + 1}: it was altered"


def shown_line_of_a_pruned_export(rng, store):
    export = store.export(random_filter(rng))
    lines = [line for line in export.lines if line["number"] <= store.size and line["rows"][0]["table"] != "StoreProperties"]
    if not lines:
        return None
    line = rng.choice(lines)
    kind = rng.choice(("row", "name", "removed", "hint", "place"))
    if kind == "removed":
        export.lines.remove(line)
        return export, [], "FAILED"
    if kind == "hint":  # a line with its leaf, rewritten together
        change_name(rng, line)
        line["leaf"] = forge.encode64(rng.randbytes(32))
        return export, [], "do not give the head of"
    if kind == "place" and line["rowCount"] > 1 and line["rows"][0]["place"] > 0:
        line["rows"][0]["place"] -= 1  # either the root of the rows is another, or the hidden hashes do not fit
        return export, [], f"log.jsonl, line {export.lines.index(line) + 1}"
    change_row(rng, rng.choice(line["rows"])) if kind == "row" else change_name(rng, line)
    return export, [], f", transaction {line['number']}: it was altered"


def hidden_hashes(rng, store):
    export = store.export(random_filter(rng))
    lists = [line["hidden"] for line in export.lines if line["number"] <= store.size] + [export.proof["hidden"]]
    lists += [nodes for nodes in export.proof["consistency"].values()]
    nodes = rng.choice([nodes for nodes in lists if nodes] or [export.proof["hidden"]])
    kind = rng.choice(("changed", "removed", "added"))
    is_proof = any(nodes is path for path in export.proof["consistency"].values())
    if kind == "added" or not nodes:
        nodes.insert(rng.randrange(len(nodes) + 1), forge.encode64(rng.randbytes(32)))
        expected = "the log does not contain this head, or its proof is missing" if is_proof else "there are too many hidden hashes"
    elif kind == "removed":
        del nodes[rng.randrange(len(nodes))]
        expected = ".txt: this cannot be read: IndexError" if is_proof else "a hidden hash is missing"
    else:
        nodes[rng.randrange(len(nodes))] = forge.encode64(rng.randbytes(32))
        expected = "the log does not contain this head, or its proof is missing" if is_proof else "FAILED"
    return export, [], expected


def head_forged(rng, store):
    export = store.export(rng.choice((None, random_filter(rng))))
    name = rng.choice(list(export.heads))
    note = export.heads[name].decode()
    lines = note.split("\n")
    kind = rng.choice(("origin", "size", "root", "time", "more", "signature"))
    if kind == "origin":
        lines[0] += "0"
    elif kind == "size":
        lines[1] = str(int(lines[1]) + 1)
    elif kind == "root":
        lines[2] = forge.encode64(rng.randbytes(32))
    elif kind == "time":
        lines[3] = "time 2026-11-23T18:40:00Z"
    elif kind == "more":
        lines.insert(3, "note")
    else:
        dash, signer, code = lines[5].split(" ")
        data = bytearray(verify.base64.b64decode(code))
        data[rng.randrange(4, 68)] ^= 1 << rng.randrange(8)
        lines[5] = f"{dash} {signer} {forge.encode64(bytes(data))}"
    export.heads[name] = "\n".join(lines).encode()
    return export, [], f"{name}: the signature of seal-vrk0"


def newest_head_of_another_key(rng, store):
    forged = store.copy()
    change_name(rng, rng.choice(forged.transactions[:store.size]))
    export = forged.export()
    origin, root = store.origin, forge.tree_root(forged.leaves()[:store.size])
    note = forge.make_note(origin, store.size, root, "2026-11-22T18:40:00Z", [STRANGER])
    expected = "no trusted key signed this head"
    if rng.random() < 0.5:  # with the id of the known key
        signer = store.keys[0]
        head, _, signature = note.decode().rpartition(" ")
        data = signer.id + verify.base64.b64decode(signature)[4:]
        note = (head.replace(STRANGER.name, signer.name) + " " + forge.encode64(data) + "\n").encode()
        expected = "the signature of seal-vrk0"
    export.heads[f"{store.size:012}.txt"] = note
    return export, [], expected


def key_replaced(rng, store):
    """Everything is written again and signed with a key of the attacker, who puts it into keys.txt."""
    forged = store.copy()
    number = rng.randrange(1, store.size + 1)
    change_name(rng, forged.transactions[number - 1])
    forged.keys = forged.known_keys = [STRANGER]
    leaves = forged.leaves()
    for size, (origin, _, _) in store.heads.items():
        root = forge.tree_root(leaves[:size])
        forged.heads[size] = origin, root, forge.make_note(origin, size, root, "2026-11-22T18:40:00Z", [STRANGER])
    return forged.export(), one_fact(rng, store, [size for size in store.heads if size >= number]), "FAILED"


def one_fact(rng, store, sizes):
    """What an outsider may remember: the key, a head or a head on paper."""
    size = rng.choice(sizes)
    return rng.choice((["--key", store.known_keys[0].line], ["--paper", paper(store, size)], ["--head", size]))


def older_log(rng, store):
    """The log as it was at an older head; the newer heads are gone."""
    older = store.copy()
    sizes = sorted(store.heads)
    kept = rng.choice(sizes[:-1])
    older.transactions = older.transactions[:kept]
    older.heads = {size: head for size, head in store.heads.items() if size <= kept}
    size = rng.choice([size for size in sizes if size > kept])
    commit_some(older, rng, rng.randrange(3))
    if rng.random() < 0.5:
        older.seal()
    return older.export(rng.choice((None, random_filter(rng)))), head_or_paper(rng, store, size), "the log does not contain this head"


def head_or_paper(rng, store, size):
    return rng.choice((["--paper", paper(store, size)], ["--head", size]))


def fork(rng, store):
    """Two histories with one beginning, both sealed by the true key."""
    other = store.copy()
    size = rng.choice(sorted(store.heads))
    start = rng.randrange(size)
    other.transactions = other.transactions[:start]
    other.heads = {at: head for at, head in other.heads.items() if at <= start}
    commit_some(other, rng, rng.randrange(1, 20))
    other.seal()
    return other.export(rng.choice((None, random_filter(rng)))), head_or_paper(rng, store, size), "the log does not contain this head"


def restore_that_ends_nothing(rng, store):
    """A change of the epoch to itself must not excuse an older log."""
    other = store.copy()
    start = rng.randrange(store.size)
    other.transactions = other.transactions[:start]
    other.heads = {at: head for at, head in other.heads.items() if at <= start}
    epoch = json.dumps(["epoch", other.epoch])
    other.commit([{"table": "StoreProperties", "key": "epoch", "event": 602, "old": epoch, "new": epoch}])
    commit_some(other, rng, rng.randrange(5))
    other.seal()
    return other.export(), ["--head", store.size], "the log does not contain this head"


def other_store(rng, store):
    other = forge.Store("99AA", store.keys)
    commit_some(other, rng, len(store.transactions))
    other.seal()
    return other.export(), ["--head", store.size], "this head is of another log, vrk-logbook/"


ATTACKS = [row_rewritten, row_rewritten_and_rehashed, name_altered, name_altered_and_rehashed, rows_of_a_transaction, row_left_out,
           tail_cut, transaction_removed, transaction_removed_and_rehashed, transaction_inserted,
           transaction_inserted_and_rehashed, lines_swapped, transactions_swapped, shown_line_of_a_pruned_export,
           hidden_hashes, head_forged, newest_head_of_another_key, key_replaced, older_log, fork,
           restore_that_ends_nothing, other_store]
WITHOUT_RESTORES = {older_log, fork, restore_that_ends_nothing, row_rewritten_and_rehashed, transaction_inserted_and_rehashed,
                    name_altered_and_rehashed, rows_of_a_transaction, transactions_swapped}


class Verifier(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def heads_as_files(self, arguments, store):
        """Writes the heads that are asked for by their size."""
        (self.folder / "kept").mkdir(exist_ok=True)
        for place, argument in enumerate(arguments):
            if isinstance(argument, int):
                arguments[place] = self.folder / "kept" / f"{argument}.txt"
                arguments[place].write_bytes(store.heads[argument][2])
        return arguments

    def assertOk(self, answer, message=None):
        self.assertEqual(0, answer[0], answer[1] if message is None else f"{message}: {answer[1]}")
        self.assertRegex(answer[1], r"\AOK up to \d+, head [0-9a-f]{16}, signed by ")

    def assertFails(self, answer, expected, message=None):
        self.assertEqual(1, answer[0], f"{message}: {answer[1]}")
        self.assertRegex(answer[1], r"\AFAILED: .*\n\Z", message)
        self.assertIn(expected, answer[1], message)

    def testFindsAttacks(self):
        found, kinds = collections.Counter(), collections.Counter()
        for seed in range(1000 if IS_LONG else 330):
            rng = random.Random(seed)
            attack = ATTACKS[seed % len(ATTACKS)]
            case = None
            while case is None:
                store, _ = random_store(rng.randrange(1000 if IS_LONG else 40), attack not in WITHOUT_RESTORES)
                if len(store.heads) > 1 and store.size > 2 and changeable(store):
                    case = attack(rng, store)
            export, arguments, expected = case
            export.write(self.folder)
            answer = run(self.folder, *self.heads_as_files(arguments, store))
            kinds[attack.__name__] += 1
            with self.subTest(attack=attack.__name__, seed=seed):
                self.assertFails(answer, expected)
                found[attack.__name__] += 1
        for name, count in kinds.items():
            print(f"{name}: {found[name]} of {count} found")

    def testAcceptsHonestHistories(self):
        for seed in range(1000 if IS_LONG else 60):
            rng = random.Random(seed)
            store, lost = random_store(seed)
            is_shown = random_filter(rng) if seed % 2 else None
            store.export(is_shown).write(self.folder)
            arguments = [argument for size in store.heads for argument in ("--paper", paper(store, size)) if size]
            arguments += [argument for size in store.heads for argument in ("--head", size)]
            for place, (_, _, note) in enumerate(lost):
                (self.folder / f"lost-{place}.txt").write_bytes(note)
                arguments += ["--head", self.folder / f"lost-{place}.txt"]
            if rng.random() < 0.5:
                arguments += [argument for key in store.known_keys for argument in ("--key", key.line)]
            with self.subTest(seed=seed):
                code, answer = run(self.folder, *self.heads_as_files(arguments, store))
                self.assertOk((code, answer))
                self.assertEqual("--key" not in arguments, "the keys came with the export" in answer)
                self.assertEqual(is_shown is not None, "shown are " in answer)
                tail = len(store.transactions) > store.size
                self.assertTrue(is_shown or tail == ("not sealed yet" in answer), answer)
                restores = [t["number"] for t in store.transactions[:store.size] if t["login"] == "root"]
                self.assertEqual([f"restored as transaction {number}" for number in restores],
                                 re.findall(r"^restored as transaction \d+", answer, re.M))

    def testPassesTheVectors(self):
        self.assertEqual(make_vectors.FILE.read_text("utf-8"), make_vectors.text(), "run make_vectors.py")
        vectors = json.loads(make_vectors.FILE.read_text("utf-8"))
        store = forge.Store("4F1C", [KEY])
        for transaction in vectors["transactions"]:
            store.transactions.append({name: transaction[name] for name in (*LEAF_TEXTS, "number", "time", "rows")})
        store.seal()
        for transaction, line in zip(vectors["transactions"], store.export().lines):
            line = verify.check_fields(verify.decode_json(json.dumps(line)), verify.LINE)
            self.assertEqual(transaction["leaf"], verify.transaction_leaf(line).hex())
            self.assertEqual(transaction["timeBits"], verify.real(line["time"]).hex())
        for sample in vectors["rows"]:
            shown = json.dumps({"place": 0, **{name: sample[name] for name in sample if name != "leaf"}})
            line = {"number": 1, "batchKey": "", "login": "", "role": "", "time": 0, "rowCount": 1, "hidden": []}
            self.assertEqual(
                verify.transaction_leaf({**line, "rows": [verify.decode_json(shown)]}),
                verify.transaction_leaf({**line, "rows": [], "hidden": [forge.encode64(bytes.fromhex(sample["leaf"]))]}))
        leaves = make_vectors.numbered_leaves(1000)
        roots = {tree["size"]: bytes.fromhex(tree["root"]) for tree in vectors["trees"]}
        self.assertEqual(roots, verify.tree_roots(enumerate(leaves), 1000, [], set(roots)))
        for sample in vectors["pruned"]:
            shown = [(index, leaves[index]) for index in sample["shown"]]
            hidden = [forge.encode64(bytes.fromhex(node)) for node in sample["hidden"]]
            self.assertEqual(sample["root"], verify.tree_roots(shown, sample["size"], hidden)[sample["size"]].hex())
        for sample in vectors["consistency"]:
            old, new = (forge.tree_root(leaves[:sample[name]]) for name in ("first", "second"))
            path = [bytes.fromhex(node) for node in sample["path"]]
            self.assertEqual((old, new), tuple(verify.consistent_roots(sample["first"], sample["second"], old, path)))
            self.assertEqual([], path)
        public = [forge.sha(b"\0" + bytes.fromhex(data)) for data in vectors["public"]["inputs"]]
        self.assertEqual(vectors["public"]["roots"], [verify.tree_roots(enumerate(public[:size]), size, [])[size].hex()
                                                      for size in range(1, 9)])
        keys = [verify.read_key(key["line"]) for key in vectors["head"]["keys"]]
        for name, trusted, signers in (("note", keys, 1), ("noteOfBothKeys", keys, 2), ("noteOfBothKeys", keys[1:], 1)):
            (self.folder / "head.txt").write_text(vectors["head"][name], "utf-8")
            head = verify.read_head(self.folder / "head.txt", dict(trusted), True)
            self.assertEqual((vectors["head"]["origin"], 1000, vectors["head"]["root"], signers),
                             (head.origin, head.size, head.hex, len(head.signers)))

    def testChecksEd25519AsPublished(self):
        # RFC 8032, section 7.1, tests 1 to 3.
        for public, message, signature in (
                ("d75a980182b10ab7d54bfed3c964073a0ee172f3daa62325af021a68f707511a", "",
                 "e5564300c360ac729086e2cc806e828a84877f1eb8e5d974d873e065224901555fb8821590a33bacc61e39701cf9b46b"
                 "d25bf5f0595bbe24655141438e7a100b"),
                ("3d4017c3e843895a92b70aa74d1b7ebc9c982ccf2ec4968cc0cd55f12af4660c", "72",
                 "92a009a9f0d4cab8720e820b5f642540a2b27b5416503f8fb3762223ebdb69da085ac1e43e15996e458f3613d0f11d8c"
                 "387b2eaeb4302aeeb00d291612bb0c00"),
                ("fc51cd8e6218a1a38da47ed00230f0580816ed13ba3303ac5deb911548908025", "af82",
                 "6291d657deec24024827e69c3abe01a30ce548a284743a445e3680d7db5ac3ac18ff9b538d16f290ae67f760984dc659"
                 "4a7c15e9716ed28dc027beceea1ec40a")):
            public, message, signature = map(bytes.fromhex, (public, message, signature))
            self.assertTrue(verify.is_signature(public, message, signature))
            self.assertFalse(verify.is_signature(public, message + b"x", signature))
            self.assertFalse(verify.is_signature(public, message, signature + b"\0"))
            self.assertFalse(verify.is_signature(public, message, signature[:40] + bytes([signature[40] ^ 1]) + signature[41:]))
            # The same s plus the order of the group must not pass as a second signature of the text.
            larger = int.from_bytes(signature[32:], "little") + forge.ORDER
            self.assertFalse(verify.is_signature(public, message, signature[:32] + larger.to_bytes(32, "little")))

    def testRefusesWrongKeys(self):
        name, key_id, code = KEY.line.split("+", 2)
        other = forge.encode64(b"\2" + KEY.public)
        for line in (f"{name}+00000000+{code}", f"{name}0+{key_id}+{code}",
                     f"{name}+{forge.sha(name.encode() + bytes([10, 2]) + KEY.public)[:4].hex()}+{other}"):
            with self.assertRaisesRegex(ValueError, "this is not a key"):
                verify.read_key(line)
        # No point of the curve; a coordinate above the prime; the point (0, 1) with the sign of another.
        for public in ((2).to_bytes(32, "little"), (2**255 - 16).to_bytes(32, "little"), (1 | 1 << 255).to_bytes(32, "little")):
            with self.assertRaisesRegex(ValueError, "this is not a public key"):
                verify.decode_point(public)

    def testRefusesHeadsOfAnotherForm(self):
        root = forge.encode64(forge.sha(b""))
        path = self.folder / "head.txt"
        for size, change, reason in (
                ("0", str, None), ("00", str, "not a signed head"), ("-1", str, "not a signed head"), ("१", str, "not a signed head"),
                ("9" * 19, str, "not a signed head"), ("0", lambda note: note[:-1], "not a signed head"),
                ("0", lambda note: note.replace("\n", "\r\n"), ""), ("0", lambda note: note.partition("\n\n")[0] + "\n", ""),
                ("0", lambda note: note.replace("—", "-"), "a signature line is malformed"),
                ("0", lambda note: note + "— other AAAA\n", "a signature line is malformed"),
                ("0", lambda note: note + f"— {KEY.name} {forge.encode64(KEY.id + bytes(63))}\n", "the signature of seal-vrk01 is not valid"),
                ("0", lambda note: note + f"— {KEY.name} {forge.encode64(KEY.id + bytes(64))}\n", "the signature of seal-vrk01 is not valid"),
                ("0", lambda note: note + f"— {KEY.name} {forge.encode64(NEXT_KEY.id + bytes(64))}\n", None)):
            text = f"vrk-logbook/4F1C\n{size}\n{root}\ntime 2026-11-22T18:40:00Z\n"
            note = change(text + "\n" + KEY.signature_line(text.encode()))
            path.write_text(note, "utf-8", newline="")
            with self.subTest(note=note):
                if reason is None:
                    self.assertEqual([KEY.name], verify.read_head(path, dict([verify.read_key(KEY.line)]), True).signers)
                else:
                    with self.assertRaisesRegex(ValueError, reason):
                        verify.read_head(path, dict([verify.read_key(KEY.line)]), True)

    def testRefusesWhatNobodyProves(self):
        store = forge.Store("4F1C", [KEY])
        for _ in range(3):
            store.commit([random_row(random.Random(1)), random_row(random.Random(2))])
        store.seal()

        def check(change, expected):
            export = store.export()
            change(export)
            export.write(self.folder)
            with self.subTest(expected=expected):
                self.assertFails(run(self.folder), expected)

        wrong_field = "a field is missing, unknown, repeated or of the wrong kind"
        check(lambda export: export.line(2).update(comment="x"), f"line 2: {wrong_field}")
        check(lambda export: export.line(2).pop("role"), f"line 2: {wrong_field}")
        check(lambda export: export.line(2).update(time="1795372800"), f"line 2: {wrong_field}")
        check(lambda export: export.line(2)["rows"][1].update(comment="x"), f"line 2: {wrong_field}")
        check(lambda export: export.line(2).update(rows=[5]), f"line 2: {wrong_field}")
        check(lambda export: export.proof.update(comment="x"), f"proof.json: {wrong_field}")
        check(lambda export: export.proof.update(format=3), "origin, size or format in proof.json is wrong")
        check(lambda export: export.proof.update(origin="vrk-logbook/77D0"), "origin, size or format in proof.json is wrong")
        more = forge.encode64(bytes(32))
        check(lambda export: export.proof["hidden"].append(more), "log.jsonl: there are too many hidden hashes")
        check(lambda export: export.line(2)["hidden"].append(more), "line 2: there are too many hidden hashes")
        pruned = store.export(lambda transaction, row: row == transaction["rows"][0])
        check(lambda export: export.lines.__setitem__(1, pruned.line(2)), "line 2: rows are missing")
        export = store.export()
        export.write(self.folder)
        text = (self.folder / "log.jsonl").read_text("utf-8")
        (self.folder / "log.jsonl").write_text(text.replace('"login": ', '"login": "sidorov", "login": ', 1), "utf-8")
        self.assertFails(run(self.folder), f"line 1: {wrong_field}")
        (self.folder / "heads/000000000002.txt").write_bytes(export.heads["000000000003.txt"])
        (self.folder / "proof.json").write_text(json.dumps({**export.written_proof(), "size": 2}), "utf-8")
        self.assertFails(run(self.folder), "000000000002.txt: origin, size or format in proof.json is wrong")

    def testReadsTheFormatBefore(self):
        """In format 1 the hashes of proof.json are lists."""
        for seed in range(20):
            store, _ = random_store(seed)
            export = store.export(random_filter(random.Random(seed)))
            export.write(self.folder)
            answer = run(self.folder)
            self.assertOk(answer)
            length = (self.folder / "proof.json").stat().st_size
            export.proof["format"] = 1
            export.write(self.folder)
            self.assertEqual(answer, run(self.folder))
            self.assertLessEqual(length, (self.folder / "proof.json").stat().st_size)

    def testRefusesHashesThatAreNotWhole(self):
        store, _ = random_store(1)
        export = store.export(lambda transaction, row: transaction["number"] == 1)
        export.write(self.folder)
        written = export.written_proof()
        for change in (lambda text: text[:-4], lambda text: text[:-1], lambda text: text + "\n", lambda text: text + text):
            changed = change(written["hidden"])
            (self.folder / "proof.json").write_text(json.dumps({**written, "hidden": changed}), "utf-8")
            with self.subTest(hidden=changed):
                self.assertFails(run(self.folder), "FAILED: ")

    def testReportsMalformedFilesInOneLine(self):
        """Bytes of the files changed, cut off or added, and values of another kind."""
        store, _ = random_store(3)
        for seed in range(2000 if IS_LONG else 250):
            rng = random.Random(seed)
            export = store.export(rng.choice((None, random_filter(rng))))
            export.write(self.folder)
            path = rng.choice([path for path in sorted(self.folder.rglob("*")) if path.is_file() and path.stat().st_size])
            data = bytearray(path.read_bytes())
            place = rng.randrange(len(data))
            kind = rng.choice(("byte", "cut", "more", "kind", "kind"))
            if kind == "byte":
                data[place] ^= 1 << rng.randrange(8)
            elif kind == "cut":
                del data[place:]
            elif kind == "more" or path.suffix == ".txt":
                data[place:place] = rng.choice((b"\xff", b"\n", b"[" * 100000, b"9" * 5000, b"=", b"e400", b"{\"number\": 1}"))
            else:
                fields = list(re.finditer(rb'": ', data))
                at = rng.choice(fields).end()
                value = rng.choice((b"null", b"true", b"-1", b"1e999", b"[]", b"{}", b"[1]", b'"x"', b"NaN", b"-0", b"2" + b"0" * 400))
                end = at + min(length for length in (data[at:].find(b","), data[at:].find(b"}"), len(data) - at) if length >= 0)
                data[at:end] = value
            path.write_bytes(data)
            code, answer = run(self.folder)
            with self.subTest(seed=seed, file=path.name, kind=kind):
                if code:
                    self.assertFails((code, answer), "FAILED: ")
                    self.assertNotIn("Traceback", answer)
                else:
                    self.assertOk((code, answer))
                    self.assert_same_content(export)

    def assert_same_content(self, export):
        """An export that is accepted says of proven transactions what the untouched one says."""
        written = [json.loads(line) for line in
                   (self.folder / "log.jsonl").read_bytes().decode("utf-8", "surrogateescape").split("\n")[:-1]]
        lines = [[line for line in lines if line["number"] <= export.proof["size"]] for lines in (written, export.lines)]
        for line in lines[0] + lines[1]:
            line.pop("leaf")
            line.pop("hidden")
        self.assertEqual(lines[1], lines[0])

    def testRunsAsAProgramInAnyLocale(self):
        """The script lies in the export; names cannot write a line or a command of a terminal into the answer."""
        store = forge.Store("4F1C", [KEY])
        store.commit([random_row(random.Random(1))])
        store.seal()
        store.restore(1, "77D0")
        store.transactions[-1]["login"] = "Петров\nOK up to 9\x1b[2J\udcff"
        store.seal()
        store.export().write(self.folder)
        (self.folder / "verify.py").write_bytes(PROGRAM.read_bytes())
        for locale in ("C.UTF-8", "C"):
            program = [sys.executable, "-I", "-W", "error", str(self.folder / "verify.py")]
            environment = {"LC_ALL": locale, "PYTHONCOERCECLOCALE": "0"}
            done = subprocess.run(program, env=environment, capture_output=True, timeout=60)
            lines = done.stdout.decode().split("\n")
            self.assertEqual((0, b"", 5), (done.returncode, done.stderr, len(lines)), done)
            self.assertIn("OK up to 2, head ", lines[0])
            self.assertTrue(lines[3].startswith("restored as transaction 2 at 2026-11-22T18:41:00Z by "), lines)
            self.assertTrue(lines[3].endswith(": heads of the former epoch above 1 are not contained"), lines)
            (self.folder / "damaged").mkdir(exist_ok=True)
            done = subprocess.run([*program, str(self.folder / "damaged")], env=environment, capture_output=True, timeout=60)
            self.assertEqual((1, b""), (done.returncode, done.stderr))
            self.assertRegex(done.stdout, rb"\AFAILED: [^\n]*keys.txt[^\n]*\n\Z")

    def testIsShortAndNeedsTheStandardLibraryOnly(self):
        source = PROGRAM.read_text("utf-8")
        self.assertLess(len(source.splitlines()), 200)
        modules = re.findall(r"^(?:import|from) (.*)$", source, re.M)
        self.assertLessEqual(set(", ".join(modules).split(", ")), set(sys.stdlib_module_names) - {"socket", "urllib", "http"})

    def testComparesHeadsOfReplacedKeysIfKnown(self):
        store = forge.Store("4F1C", [KEY])
        commit_some(store, random.Random(1), 2)
        store.seal()
        store.replace_keys([NEXT_KEY])
        commit_some(store, random.Random(2), 2)
        store.seal()
        store.export().write(self.folder)
        for keys, count in (((NEXT_KEY,), 1), ((KEY, NEXT_KEY), 2)):
            answer = run(self.folder, *(argument for key in keys for argument in ("--key", key.line)))
            self.assertOk(answer)
            self.assertIn(f"heads compared: {count} of 2\n", answer[1])

    def testComparesHeadsAboveTheNewest(self):
        """The export lost its newest head, which somebody kept: the lines after the head before it still give its root."""
        store = forge.Store("4F1C", [KEY])
        for seed in range(2):
            commit_some(store, random.Random(seed), 3)
            store.seal()
        (self.folder / "kept.txt").write_bytes(store.heads.pop(6)[2])
        store.export().write(self.folder)
        self.assertOk(run(self.folder, "--head", self.folder / "kept.txt"))
        changed = store.export()
        changed.lines[4]["login"] += "x"
        changed.write(self.folder)
        self.assertOk(run(self.folder))
        self.assertFails(run(self.folder, "--head", self.folder / "kept.txt"), "kept.txt: the log does not contain this head")

    def testHeadsOfReplacedEpochsWereLost(self):
        """Of any size: the copy of the second restore is longer than the log was at the first one."""
        store = forge.Store("4F1C", [KEY])
        commit_some(store, random.Random(1), 9)
        store.seal()
        copy_ = store.copy()
        store.restore(3, "77D0")
        store.seal()
        (self.folder / "lost.txt").write_bytes(store.heads[4][2])
        copy_.restore(9, "88E0", replaced=store)
        copy_.seal()
        copy_.export().write(self.folder)
        self.assertOk(run(self.folder, "--head", self.folder / "lost.txt"))
        # The epoch of the copy still has its heads.
        copy_.transactions[5]["login"] += "x"
        copy_.seal()
        copy_.export().write(self.folder)
        self.assertFails(run(self.folder), "000000000009.txt: the log does not contain this head")

    def testSaysWhichHeadsCannotBeCompared(self):
        """A head of an epoch that the log does not name, of a size that a pruned export has no proof for, or of no known key."""
        store = forge.Store("4F1C", [KEY])
        commit_some(store, random.Random(1), 4)
        store.seal()
        commit_some(store, random.Random(2), 4)
        store.restore(6, "77D0")
        store.seal()
        lost = store.heads[7][2]
        store.restore(5, "88E0", names_replaced=False)  # the copy is older than the restore before
        store.seal()
        store.export().write(self.folder)
        (self.folder / "lost.txt").write_bytes(lost)
        self.assertFails(run(self.folder, "--head", self.folder / "lost.txt"), "lost.txt: this head is of another log, vrk-logbook/77D0")
        store.export(lambda transaction, row: False).write(self.folder)
        root = forge.tree_root(store.leaves()[:3]).hex()[:16]
        self.assertFails(run(self.folder, "--paper", f"3 {root}"), f"paper 3 {root}: the log does not contain this head, or its proof")
        self.assertOk(run(self.folder, "--paper", paper(store, 4).upper()))
        self.assertFails(run(self.folder, "--paper", "4"), "--paper: a size and 16 hexadecimal digits belong here")
        (self.folder / "strange.txt").write_bytes(forge.make_note(*store.heads[6][:1], 6, store.heads[6][1], "x", [STRANGER]))
        self.assertFails(run(self.folder, "--head", self.folder / "strange.txt"), "strange.txt: no trusted key signed this head")
        self.assertFails(run(self.folder, "--key", NEXT_KEY.line), "no trusted key signed this head")
        self.assertFails(run(self.folder, "--key", KEY.line[:-2]), "keys.txt: ")


if __name__ == "__main__":
    unittest.main()
