"""A store's evidence in Python, written from docs/evidence-format.md: histories, seals, restores and exports for the tests.

Shares no line with admin/evidence/verify.py, so that a mistake in one of them shows in the other.
"""
import base64
import copy
import hashlib
import json
import struct

# Ed25519 of RFC 8032, in projective coordinates (x = X/Z, y = Y/Z).
PRIME = 2**255 - 19
ORDER = 2**252 + 27742317777372353535851937790883648493
CURVE = -121665 * pow(121666, PRIME - 2, PRIME) % PRIME
BASE_Y = 4 * pow(5, PRIME - 2, PRIME) % PRIME
BASE_X = 15112221349535400772501151409588531511454012693041857206046113283949847762202


def add_points(p, q):
    a = p[2] * q[2] % PRIME
    b = a * a % PRIME
    c, d = p[0] * q[0] % PRIME, p[1] * q[1] % PRIME
    e = CURVE * c * d % PRIME
    f, g = b - e, b + e
    x = a * f * ((p[0] + p[1]) * (q[0] + q[1]) - c - d) % PRIME
    return x, a * g * (d + c) % PRIME, f * g % PRIME


BASE_POWERS = [(BASE_X, BASE_Y, 1)]
for _ in range(255):
    BASE_POWERS.append(add_points(BASE_POWERS[-1], BASE_POWERS[-1]))


def multiply_base(factor):
    result = (0, 1, 1)
    for place, power in enumerate(BASE_POWERS):
        if factor >> place & 1:
            result = add_points(result, power)
    inverse = pow(result[2], PRIME - 2, PRIME)
    x, y = result[0] * inverse % PRIME, result[1] * inverse % PRIME
    return (y | (x & 1) << 255).to_bytes(32, "little")


class Key:
    """A private key with its name."""

    def __init__(self, name, seed):
        self.name, self.seed = name, seed
        digest = hashlib.sha512(seed).digest()
        self.scalar = int.from_bytes(digest[:32], "little") & (1 << 254) - 8 | 1 << 254
        self.prefix = digest[32:]
        self.public = multiply_base(self.scalar)
        self.id = hashlib.sha256(name.encode() + b"\n\x01" + self.public).digest()[:4]
        self.line = f"{name}+{self.id.hex()}+{encode64(bytes([1]) + self.public)}"

    def sign(self, message):
        r = int.from_bytes(hashlib.sha512(self.prefix + message).digest(), "little") % ORDER
        commitment = multiply_base(r)
        k = int.from_bytes(hashlib.sha512(commitment + self.public + message).digest(), "little")
        return commitment + ((r + k * self.scalar) % ORDER).to_bytes(32, "little")

    def signature_line(self, message):
        return f"— {self.name} {encode64(self.id + self.sign(message))}\n"


def encode64(data):
    return base64.b64encode(data).decode()


def join64(codes):
    return encode64(b"".join(base64.b64decode(code) for code in codes))


# Trees, by the definitions of RFC 9162.
def sha(data):
    return hashlib.sha256(data).digest()


def split(size):
    k = 1
    while 2 * k < size:
        k *= 2
    return k


def tree_root(leaves):
    if not leaves:
        return sha(b"")
    if len(leaves) == 1:
        return leaves[0]
    k = split(len(leaves))
    return sha(b"\x01" + tree_root(leaves[:k]) + tree_root(leaves[k:]))


def consistency(first, leaves, is_complete=True):
    """SUBPROOF of section 2.1.4.1 from the first leaves to all of them."""
    if first == len(leaves):
        return [] if is_complete else [tree_root(leaves)]
    k = split(len(leaves))
    if first <= k:
        return consistency(first, leaves[:k], is_complete) + [tree_root(leaves[k:])]
    return consistency(first - k, leaves[k:], False) + [tree_root(leaves[:k])]


def hidden_hashes(leaves, shown, begin=0):
    """The hashes that an export needs beside the leaves with the indexes in "shown"."""
    if not leaves:
        return []
    if not any(begin <= index < begin + len(leaves) for index in shown):
        return [tree_root(leaves)]
    if len(leaves) == 1:
        return []
    k = split(len(leaves))
    return hidden_hashes(leaves[:k], shown, begin) + hidden_hashes(leaves[k:], shown, begin + k)


# Leaves.
def to_bytes(text):
    return text.encode("utf-8", "surrogateescape")


def sized(text):
    return struct.pack(">q", len(to_bytes(text))) + to_bytes(text)


def optional(text):
    return b"\x00" if text is None else b"\x01" + sized(text)


def row_leaf(row):
    return sha(b"\x00" + sized(row["table"]) + sized(row["key"]) + struct.pack(">q", row["event"])
               + optional(row["old"]) + optional(row["new"]))


def transaction_leaf(transaction):
    rows = [row_leaf(row) for row in transaction["rows"]]
    return sha(b"\x00" + struct.pack(">q", transaction["number"]) + sized(transaction["batchKey"])
               + sized(transaction["login"]) + sized(transaction["role"]) + struct.pack(">d", transaction["time"])
               + struct.pack(">q", len(rows)) + tree_root(rows))


def make_note(origin, size, root, time, keys):
    text = f"{origin}\n{size}\n{encode64(root)}\ntime {time}\n"
    return (text + "\n" + "".join(key.signature_line(text.encode()) for key in keys)).encode()


class Store:
    """The change log of a store with the heads that it remembers."""

    def __init__(self, epoch, keys):
        self.epoch, self.keys, self.known_keys = epoch, list(keys), list(keys)
        self.transactions, self.heads = [], {}  # the heads by size: (origin, root, note)

    def copy(self):
        return copy.deepcopy(self)

    @property
    def origin(self):
        return f"vrk-logbook/{self.epoch}"

    @property
    def size(self):
        return max(self.heads)

    def commit(self, rows, **fields):
        transaction = {"number": len(self.transactions) + 1, "batchKey": f"batch-{len(self.transactions)}",
                       "login": "petrov", "role": "person", "time": 1795372800 + 60 * len(self.transactions)}
        self.transactions.append({**transaction, **fields, "rows": rows})

    def renumber(self):
        for number, transaction in enumerate(self.transactions, 1):
            transaction["number"] = number

    def leaves(self):
        return [transaction_leaf(transaction) for transaction in self.transactions]

    def seal(self):
        root, size = tree_root(self.leaves()), len(self.transactions)
        note = make_note(self.origin, size, root, "2026-11-22T18:40:00Z", self.keys)
        self.heads[size] = self.origin, root, note
        return size

    def replace_keys(self, keys):
        self.keys = list(keys)
        self.known_keys += [key for key in keys if key not in self.known_keys]

    def epochs(self):
        """The epochs that the log names, each with the number of the transaction that began it."""
        rows = [(t["number"], row) for t in self.transactions for row in t["rows"] if row["table"] == "StoreProperties"]
        first = json.loads(rows[0][1]["old"])[1] if rows else self.epoch
        return {first: 1, **{json.loads(row["new"])[1]: number for number, row in rows}}

    def restore(self, size, epoch, names_replaced=True, replaced=None):
        """Continues with the copy that was made at this size. Names the epochs of the replaced store that the copy lacks."""
        present = (replaced or self).epochs()
        former = max((begin, place) for place, begin in enumerate(self.epochs().values()) if begin <= max(size, 1))[1]
        former = list(self.epochs())[former]
        self.epoch = epoch
        self.transactions = self.transactions[:size]
        self.heads = {at: head for at, head in self.heads.items() if at <= size}
        known = self.epochs()
        names = [former, *(name for name in present if names_replaced and name not in known and name != former), epoch]
        self.commit([{"table": "StoreProperties", "key": "epoch", "event": 602,
                      "old": json.dumps(["epoch", one]), "new": json.dumps(["epoch", next_])}
                     for one, next_ in zip(names, names[1:])], login="root", role="loader")

    def export(self, is_shown=None):
        """A whole export, or one with the rows for which is_shown(transaction, row) holds, and those of the epoch."""
        lines, leaves, shown = [], self.leaves(), set()
        for index, transaction in enumerate(self.transactions):
            places = [place for place, row in enumerate(transaction["rows"])
                      if not is_shown or row["table"] == "StoreProperties" or is_shown(transaction, row)]
            if is_shown and not places:
                continue
            shown.add(index)
            hidden = hidden_hashes([row_leaf(row) for row in transaction["rows"]], places)
            line = {name: transaction[name] for name in ("number", "batchKey", "login", "role", "time")}
            line["leaf"] = encode64(leaves[index]) if index < self.size else None
            line["rowCount"] = len(transaction["rows"])
            line["hidden"] = [encode64(node) for node in hidden]
            line["rows"] = [{"place": place, **transaction["rows"][place]} for place in places]
            lines.append(line)
        proof = {"format": 2, "origin": self.heads[self.size][0], "size": self.size, "isWhole": not is_shown,
                 "hidden": [encode64(node) for node in hidden_hashes(leaves[:self.size], shown)] if is_shown else [],
                 "consistency": {}}
        if is_shown:
            proof["consistency"] = {str(size): [encode64(node) for node in consistency(size, leaves[:self.size])]
                                    for size in self.heads if 0 < size < self.size}
        return Export(lines, proof, {f"{size:012}.txt": head[2] for size, head in self.heads.items()},
                      "# keys of the store\n" + "".join(key.line + "\n" for key in self.known_keys))


class Export:
    """The files of an export, to be changed and written."""

    def __init__(self, lines, proof, heads, keys):
        self.lines, self.proof, self.heads, self.keys = lines, proof, heads, keys

    def line(self, number):
        return next(line for line in self.lines if line["number"] == number)

    def written_proof(self):
        """From format 2 on, the hashes of a list are one text."""
        if self.proof["format"] == 1:
            return self.proof
        return {**self.proof, "hidden": join64(self.proof["hidden"]),
                "consistency": {size: join64(codes) for size, codes in self.proof["consistency"].items()}}

    def write(self, folder):
        (folder / "heads").mkdir(parents=True, exist_ok=True)
        for old in (folder / "heads").iterdir():
            old.unlink()
        text = "".join(json.dumps(line, ensure_ascii=False) + "\n" for line in self.lines)
        (folder / "log.jsonl").write_bytes(to_bytes(text))
        (folder / "proof.json").write_text(json.dumps(self.written_proof()), "utf-8")
        (folder / "keys.txt").write_text(self.keys, "utf-8")
        for name, note in self.heads.items():
            (folder / "heads" / name).write_bytes(note)
