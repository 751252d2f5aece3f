#!/usr/bin/env python3
"""Checks an export of the journal's evidence with Python 3.9 or later alone: no other library, no network.
    python3 verify.py [DIR] [--key KEY]... [--head FILE]... [--paper "SIZE HEX16"]...
DIR: folder of the export (default: that of this script). KEY: a public key as in keys.txt. FILE: a signed head that was
kept outside. SIZE HEX16: a head from paper. The answer begins with OK (exit code 0) or FAILED (exit code 1)."""
import argparse, base64, collections, functools, hashlib, itertools, json, pathlib, re, struct, sys, time, types
def require(condition, message):
    if not condition:
        raise ValueError(message)
# Ed25519, RFC 8032 section 5.1. A point (X, Y, Z, T) is x = X/Z, y = Y/Z, xy = T/Z.
P, L = 2**255 - 19, 2**252 + 27742317777372353535851937790883648493
D, ZERO = -121665 * pow(121666, -1, P) % P, (0, 1, 1, 0)
def add(p, q):
    a, b = (p[1] - p[0]) * (q[1] - q[0]) % P, (p[1] + p[0]) * (q[1] + q[0]) % P
    c, d = 2 * p[3] * q[3] * D % P, 2 * p[2] * q[2] % P
    return (b - a) * (d - c) % P, (d + c) * (b + a) % P, (d - c) * (d + c) % P, (b - a) * (b + a) % P
@functools.lru_cache(None)
def doublings(point):
    return list(itertools.accumulate(range(252), lambda p, _: add(p, p), initial=point))
def times(factor, point):
    return functools.reduce(add, (p for bit, p in enumerate(doublings(point)) if factor >> bit & 1), ZERO)
def decode_point(data):
    sign, y = divmod(int.from_bytes(data, "little"), 2**255)
    square = (y * y - 1) * pow(D * y * y + 1, -1, P) % P
    x = pow(square, (P + 3) // 8, P)
    x = x if x * x % P == square else x * pow(2, (P - 1) // 4, P) % P
    require(y < P and x * x % P == square and (x or not sign), "this is not a public key")
    x = x if x % 2 == sign else P - x
    return x, y, 1, x * y % P
BASE = decode_point(b"\x58" + 31 * b"\x66")
def is_signature(public, message, signature):
    """Whether R = s B - k A, with R and s from the signature and the public key A."""
    s, k = int.from_bytes(signature[32:], "little"), hashlib.sha512(signature[:32] + public + message).digest()
    x, y, z, t = decode_point(public)
    x, y, z, t = add(times(s, BASE), times(int.from_bytes(k, "little") % L, (P - x, y, z, P - t)))
    x, y = x * pow(z, -1, P) % P, y * pow(z, -1, P) % P
    return len(signature) == 64 and s < L and (y + x % 2 * 2**255).to_bytes(32, "little") == signature[:32]
# Trees, RFC 9162 section 2.1.
def sha256(data): return hashlib.sha256(data).digest()
def inner(left, right): return sha256(b"\1" + left + right)
def tree_roots(leaves, size, hidden, sizes=()):
    """The root of the tree of the known leaves, given as (index, leaf), and those of its beginnings of the other sizes.
    "hidden" has the hashes of the largest parts without a known leaf, from left to right."""
    hidden, nodes, end, roots = hashes(hidden)[::-1], [], 0, {0: sha256(b"")}
    for index, leaf in itertools.chain(leaves, [(size, None)]):
        while end < index or leaf and end == index:
            span, node = 1, leaf
            if end < index:
                require(hidden, "a hidden hash is missing")
                span, node = end & -end or 2**62, hidden.pop()
                while index < min(size, end + span):
                    span //= 2
            end = min(end + span, max(size, end + 1))
            while nodes and nodes[-1][0] == span:  # two halves make a complete subtree
                node, span = inner(nodes.pop()[1], node), 2 * span
            nodes.append((span, node))
            if end in sizes or end == size:
                roots[end] = functools.reduce(lambda right, left: inner(left, right), [hash_ for _, hash_ in nodes[::-1]])
    require(not hidden, "there are too many hidden hashes")
    return roots
def consistent_roots(first, second, first_root, path):
    """The roots of a tree and of the larger one that begins with it, by the proof of section 2.1.4.1."""
    if first == second:
        return 2 * [first_root or path.pop(0)]
    middle = 2 ** ((second - 1).bit_length() - 1)
    if first <= middle:
        old, new = consistent_roots(first, middle, first_root, path)
        return old, inner(new, path.pop(0))
    old, new = consistent_roots(first - middle, second - middle, None, path)
    left = path.pop(0)
    return inner(left, old), inner(left, new)
# Keys and heads.
def hashes(codes):  # in one text, or in a list as in format 1
    codes = [codes] if isinstance(codes, str) else codes
    return [one for code in codes for one, in struct.iter_unpack("32s", base64.b64decode(code, validate=True))]
def unbase64(code, length): return struct.unpack(f"{length}s", base64.b64decode(code, validate=True))[0]
Head = collections.namedtuple("Head", "name origin size hex signers")
def read_key(line):
    name, key_id, code = line.strip().split("+", 2)
    public = unbase64(code, 33)
    require(sha256(name.encode() + b"\n" + public)[:4].hex() == key_id.lower() and public[0] == 1, "this is not a key")
    return (name, key_id.lower()), public[1:]
def read_head(path, keys, is_needed):
    require.place, signers = path.name, []
    note, _, signatures = path.read_bytes().decode().partition("\n\n")
    origin, size, root = note.split("\n")[:3]
    require(re.fullmatch("0|[1-9][0-9]{0,17}", size) and signatures[-1:] == "\n", "this is not a signed head")
    for dash, name, code in (line.split(" ") for line in signatures[:-1].split("\n")):
        data = base64.b64decode(code, validate=True)
        require(dash == "—" and len(data) > 4, "a signature line is malformed")
        if (key := (name, data[:4].hex())) in keys:
            require(is_signature(keys[key], (note + "\n").encode(), data[4:]), f"the signature of {name} is not valid")
            signers.append(name)
    require(signers or not is_needed, "no trusted key signed this head")
    return Head(path.name, origin, int(size), unbase64(root, 32).hex(), signers)
# The log.
ROW = dict(place=int, table=str, key=str, event=int, old=(str, type(None)), new=(str, type(None)))
LINE = dict(number=int, batchKey=str, login=str, role=str, time=(int, float), leaf=(str, type(None)), rowCount=int,
            hidden=list, rows=list)
PROOF = dict(format=int, origin=str, size=int, hidden=(str, list), isWhole=bool, consistency=tuple)
integer, real, decode_json = struct.Struct(">q").pack, struct.Struct(">d").pack, json.JSONDecoder(object_pairs_hook=tuple).decode
def check_fields(pairs, kinds):
    fields = dict(pairs) if type(pairs) is tuple and len(pairs) == len(kinds) else {}
    is_good = fields.keys() == kinds.keys() and all(map(isinstance, fields.values(), map(kinds.get, fields)))
    require(is_good, "a field is missing, unknown, repeated or of the wrong kind")
    return fields
def text(value): return integer(len(data := value.encode("utf-8", "surrogateescape"))) + data
def option(value): return b"\0" if value is None else b"\1" + text(value)
def transaction_leaf(line):
    leaves, last, line["rows"] = [], -1, [check_fields(row, ROW) for row in line["rows"]]
    for row in line["rows"]:
        require(last < (last := row["place"]) < line["rowCount"], "the places of the rows are wrong")
        leaves.append((last, sha256(b"\0" + text(row["table"]) + text(row["key"]) + integer(row["event"])
                                    + option(row["old"]) + option(row["new"]))))
    root = tree_roots(leaves, line["rowCount"], line["hidden"])[line["rowCount"]]
    return sha256(b"\0" + integer(line["number"]) + text(line["batchKey"]) + text(line["login"]) + text(line["role"])
                  + real(line["time"]) + integer(line["rowCount"]) + root)
def read_lines(folder, log, by_hints=False):
    """The (index, leaf) of each line, and in "log" the count, the restores and the first line unlike its hint."""
    require.place, log.last, log.count, log.altered, log.restores = "log.jsonl", 0, 0, None, []
    with open(folder / "log.jsonl", "rb") as file:
        for log.count, line in enumerate(file, 1):
            require.place = f"log.jsonl, line {log.count}"
            line = check_fields(decode_json(line.decode("utf-8", "surrogateescape")), LINE)
            number, leaf, due = line["number"], transaction_leaf(line), log.last + 1
            hint = unbase64(line["leaf"], 32) if line["leaf"] else leaf
            require(number >= due, f"transaction {number} was inserted after {log.last}")
            require(number == due or not log.isWhole, f"the transactions {due} to {number - 1} are missing before this line")
            require(len(line["rows"]) == line["rowCount"] or not log.isWhole, "rows are missing")
            log.last = number
            if number <= log.size:
                log.altered = log.altered or hint != leaf and f"{require.place}, transaction {number}"
                for row in line["rows"]:
                    if (row["table"], row["event"]) == ("StoreProperties", 602) and decode_json(row["old"])[0] == "epoch":
                        is_first = all(line is not other for _, other, _ in log.restores[-1:])  # the next were replaced
                        log.restores.append((number * is_first, line, "vrk-logbook/" + decode_json(row["old"])[1]))
            if number <= log.size or log.isWhole:
                yield number - 1, hint if by_hints else leaf
    require.place = "log.jsonl"
    require(log.last >= log.size or not log.isWhole, f"the transactions {log.last + 1} to {log.size} are missing")
def check(folder, options):
    require.place = "keys.txt"
    lines = options.key or (folder / "keys.txt").read_text("utf-8").split("\n")
    keys = dict(read_key(line) for line in lines if line.strip() and line[0] != "#")
    require.place = "proof.json"
    log = types.SimpleNamespace(**check_fields(decode_json((folder / "proof.json").read_text("utf-8")), PROOF))
    size, proofs = log.size, dict(log.consistency)
    newest = read_head(folder / "heads" / f"{size:012}.txt", keys, True)
    require((newest.origin, newest.size) == (log.origin, size) and 0 < log.format < 3, "origin, size or format in proof.json is wrong")
    heads = [read_head(path, keys, False) for path in sorted((folder / "heads").glob("*.txt"))]
    heads += [read_head(pathlib.Path(path), keys, True) for path in options.head]
    require.place, papers = "--paper", [re.fullmatch("([0-9]{1,18}) ([0-9a-f]{16})", line.lower()) for line in options.paper]
    require(all(papers), "a size and 16 hexadecimal digits belong here")
    heads += [Head(f"paper {paper[0]}", log.origin, int(paper[1]), paper[2], ["paper"]) for paper in papers]
    def contains(head): return roots.get(head.size, b"").hex().startswith(head.hex)
    roots = tree_roots(read_lines(folder, log), size, log.hidden, {head.size for head in heads} if log.isWhole else ())
    ended = {former: number for number, _, former in log.restores} | {log.origin: 2**62}
    due = [head for head in heads if head.signers and head.size < ended.get(head.origin, 2**62)]
    if not contains(newest):
        compared = due if log.isWhole else [newest]
        good = max([0] + [head.size for head in compared if contains(head)])
        bad = min(head.size for head in compared if not contains(head))
        roots = tree_roots(read_lines(folder, log, by_hints=True), size, log.hidden)
        require.place = log.altered if log.altered and contains(newest) else "log.jsonl"
        require(require.place != log.altered, "it was altered")
        require(False, f"the transactions {good + 1} to {bad} do not give the head of {bad}: there something was altered")
    for head in due:
        require.place = head.name
        require(head.origin in ended, f"this head is of another log, {head.origin}")
        if head.size < size and len(head.hex) == 64 and str(head.size) in proofs:
            path, root = hashes(proofs[str(head.size)]), bytes.fromhex(head.hex)
            if consistent_roots(head.size, size, root, path) == (root, roots[size]) and not path:
                roots[head.size] = root
        require(contains(head), "the log does not contain this head" + (not log.isWhole) * ", or its proof is missing")
    yield f"OK up to {size}, head {newest.hex[:16]}, signed by {', '.join(newest.signers)}"
    yield f"heads compared: {len(due)} of {len(heads)}"
    notes = {f"shown are {log.count} transactions, and not always all rows of them": not log.isWhole,
             f"not sealed yet: the transactions above {size}, up to {log.last}": log.last > size,
             "the keys came with the export: compare keys.txt with the keys that you know from elsewhere": not options.key}
    yield from (note for note, applies in notes.items() if applies)
    for number, line, _ in filter(lambda restore: restore[0], log.restores):
        at = time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(line["time"])) + f" by {line['login']}"
        yield f"restored as transaction {number} at {at}: heads of the former epoch above {number - 1} are not contained"
def main(arguments=None):
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", nargs="?", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent)
    for name in "--key", "--head", "--paper":
        parser.add_argument(name, action="append", default=[])
    options = parser.parse_args(arguments)
    try:
        answer = list(check(options.folder, options))
    except Exception as error:
        reason = error if type(error) is ValueError else f"this cannot be read: {error!r}"
        answer = [f"FAILED: {require.place}: {reason}"]
    print("\n".join("".join(c if c.isprintable() else f"\\x{ord(c):02x}" for c in line) for line in answer))
    return 0 if answer[0].startswith("OK") else 1
if __name__ == "__main__":
    sys.stdout.reconfigure(errors="backslashreplace")
    sys.exit(main())
