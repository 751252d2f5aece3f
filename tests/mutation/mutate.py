#!/usr/bin/env python3
"""Checks whether the tests notice changes: changes one line of the sources at a time, builds the tests of its room,
runs them, and lists the changes that no test caught.

    tests/mutation/mutate.py --count 20 --seed 1 --build-dir build/dev 'platform/hfn/*.cpp' 'plugin/journal/*.cpp'
    tests/mutation/mutate.py --safeguards tests/mutation/safeguards.txt --build-dir build/dev [NAME...]

The room of a source is its folder, or the floor that the folder divides; its tests have this name as their label. A
change that does not compile is replaced by another one. Some survivors have no visible effect (a hint of a size, an order that does not matter): each
needs a decision, either a missing test or a reason why none can be written.

A list of safeguards contains the changes, each with the tests that must fail with it; its head explains the notation.
After each change it must still be possible to create a store and sign in, so that an error in the list does not count
as a failed test; and every change must be caught.

    tests/mutation/mutate.py --behaviours tests/mutation/behaviours -j2 --build-dir build/dev [NAME...]

A list of behaviours, or a folder of such lists, has the same notation: one change for each documented behaviour of the
program. 95 in 100 must be caught. Changed sources are compiled and linked outside the build tree, each once with all
its changes, so that several are tested at the same time and nothing has to be restored.
"""
import argparse
import concurrent.futures
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile

from apart import Apart, BuildFailed, Change, switched

ROOT = pathlib.Path(__file__).resolve().parents[2]

# The patterns to find in a line, and their replacements.
SWAPS = [
    (r"==", "!="),
    (r"!=", "=="),
    (r"(?<=\s)<=(?=\s)", "<"),
    (r"(?<=\s)>=(?=\s)", ">"),
    (r"(?<=\s)<(?=\s)", "<="),
    (r"(?<=\s)>(?=\s)", ">="),
    (r"&&", "||"),
    (r"\|\|", "&&"),
    (r"(?<=\s)\+(?=\s)", "-"),
    (r"(?<=\s)-(?=\s)", "+"),
    (r"(?<=\w|\s|\()\+\+(?=\w|\)|;)", "--"),
    (r"\btrue\b", "false"),
    (r"\bfalse\b", "true"),
    (r"(?<=\s)\+=", "-="),
    (r"(?<=\s)-=", "+="),
    (r"\bif \((?!constexpr)(.+)\)(?= \{$|$)", r"if (!(\1))"),
    (r"(?<=\()!(?=\w)", ""),
    (r"(?<=return )(?!false|true|-?\d|\{)(\w+ (?:&&|\|\|) .+)(?=;)", r"!(\1)"),
]
NUMBER = re.compile(r"(?<![\w.\"'])(\d+)(?=[UL]*\b)(?![\w.]*[\"'xX.])")
# A statement that can be removed: a call or an assignment on its own line, not a declaration.
STATEMENT = re.compile(r"^\s+(?:[\w:>.\-\[\]*]+(?:\(.*\)|\s[-+|&^]?=\s.*)|\+\+\S+|delete\s.*|emit\s.*);$")
NO_STATEMENT = re.compile(r"^\s+(?:return|using|throw|break|continue|case)\b")


def masked(line):
    """The line with the content of texts and comments blanked, so that nothing is changed there."""
    line = re.sub(r'"(?:[^"\\]|\\.)*"', lambda m: '"' + "_" * (len(m.group()) - 2) + '"', line)
    line = re.sub(r"'(?:[^'\\]|\\.)'", lambda m: "'" + "_" * (len(m.group()) - 2) + "'", line)
    return re.sub(r"//.*", lambda m: " " * len(m.group()), line)


def mutations(path):
    """All changes that can be made to a source: (line number, old line, new line)."""
    found = []
    comment = False
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines()):
        if "/*" in line:
            comment = "*/" not in line
            continue
        if comment:
            comment = "*/" not in line
            continue
        if re.match(r"\s*(#|//|static_assert|template|Q_|tr\()", line):
            continue
        plain = masked(line)
        news = []
        for pattern, replacement in SWAPS:
            for match in re.finditer(pattern, plain):
                shown = re.match(pattern, line[match.start():]) if "(.+)" in pattern else None
                text = (shown or match).expand(replacement)
                news.append(line[:match.start()] + text + line[match.end():])
        for match in NUMBER.finditer(plain):
            news.append(line[:match.start()] + str(int(match.group(1)) + 1) + line[match.end():])
        if STATEMENT.match(plain.rstrip()) and not NO_STATEMENT.match(plain):
            news.append("")
        found += [(number, line, new) for new in dict.fromkeys(news) if new != line]
    return found


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)


def known_tests(build, *choice):
    return re.findall(r"Test\s+#\d+: (\S+)", run(["ctest", "--test-dir", build, "-N", *choice]).stdout)


class Tests:
    """The tests of one room in a build tree, or the named ones."""

    def __init__(self, build, room=None):
        self.build = build
        self.names = known_tests(build, *(["-L", f"^{room}$"] if room else ["-LE", "^desk$"]))
        targets = run(["ninja", "-C", build, "-t", "targets", "all"]).stdout
        self.programs = set(re.findall(r"^(\S+): phony$", targets, re.M))
        self.failed = []  # the names of those that failed in the last run

    def of(self, path):
        """Those with the name of the source's class; they run first, since they cover most."""
        return [name for name in self.names if name.startswith(path.stem.split("_")[0])]

    def make(self, names):
        # The clusters of the server's tests are also filled by the changed sources.
        wanted = {name.replace("_on_postgresql", "") for name in names} | {"make_test_clusters"}
        programs = wanted & self.programs
        return run(["ninja", "-C", self.build, "-j2", *sorted(programs)]).returncode == 0

    def passes(self, names):
        one = "|".join(re.escape(name) for name in names)
        command = ["ctest", "--test-dir", self.build, "-R", f"^({one})$", "-j2", "--stop-on-failure", "--timeout",
                   "240"]
        done = run(command)
        self.failed = re.findall(r"^\s*\d+ - (\S+) \(.*\)$", done.stdout, re.M)
        return done.returncode == 0

    def judge(self, path):
        """None if it does not compile, otherwise whether a test failed."""
        first = self.of(path)
        for names in (first, [name for name in self.names if name not in first]):
            if names and not self.make(names):
                return None
            if names and not self.passes(names):
                return True
        return False


class Safeguard:
    """One change that removes something on which others rely."""

    def __init__(self, name, path, old, new, tests, ends=None):
        self.name, self.path, self.old, self.new, self.tests, self.ends = name, path, old, new, tests, ends

    def canaries(self):
        """The tests that must still pass, so that the change does not break everything unnoticed."""
        if self.ends:
            return []
        on_server = [name.startswith("Postgres") or name.endswith("_on_postgresql") for name in self.tests]
        return (["Store_login_test"] if not all(on_server) else []) + \
               (["Store_login_test_on_postgresql"] if any(on_server) else [])


def field_lists(rules, path):
    """The fields of each list {name} in a rule file, by its name, from the steps of the schema next to it."""
    steps = "".join(step.read_text(encoding="utf-8") for step in sorted(path.parent.glob("sqlite-[0-9]*.sql")))
    lists = {}
    for name, table, free in re.findall(r"^FIELDS (\w+) OF (\w+) BUT([\w,\s]*);", rules, re.M):
        body = re.search(rf"CREATE TABLE {table} \((.*?)\n\)", steps, re.S)[1]
        columns = re.findall(r"^ +(\w+) [A-Z]", body, re.M) + re.findall(rf"ALTER TABLE {table} ADD (\w+)", steps)
        lists[name] = [one for one in columns if one not in ["KeyLink", *re.findall(r"\w+", free)]]
    return lists


def refusals(name, path, tests):
    """One change for each refusal of a rule file, which removes it, and for each column that a rule lists."""
    text = path.read_text(encoding="utf-8")
    lists = field_lists(text, path)

    def rule_of(match):
        return ([""] + re.findall(r"^RULE (\w+)", text[:match.start()], re.M))[-1]

    for match in re.finditer(r"REFUSE '([^']*)'\s+WHERE\s+([^;]*);", text):
        if rule_of(match):
            yield Safeguard(f"{name}: {rule_of(match)}: {match[1]}", path, (match.start(), match[0]),
                            f"REFUSE '{match[1]}' WHERE 1 = 0 AND ({match[2]});", tests)
    for match in re.finditer(r"CHANGED\(([^)]*[,{][^)]*)\)", text):
        words = re.sub(r"\{(\w+)\}", lambda found: ", ".join(lists[found[1]]), match[1])
        columns = [column.strip() for column in words.split(",")]
        for column in columns if rule_of(match) else []:
            left = ", ".join(other for other in columns if other != column)
            yield Safeguard(f"{name}: {rule_of(match)}: {column}", path, (match.start(), match[0]), f"CHANGED({left})",
                            tests)


class Stale(Exception):
    """A list names something that no longer exists."""


def place_of(words, source):
    """The position of the piece to change: once in the file, or first after the text of "after"."""
    text = source.read_text(encoding="utf-8") if source.exists() else ""
    start = 0
    if "after" in words:
        if text.count(words["after"]) != 1:
            raise Stale(f"{words['file']} has {text.count(words['after'])} times: {words['after']}")
        start = text.index(words["after"]) + len(words["after"])
        if words["old"] not in text[start:]:
            raise Stale(f"{words['file']} does not have behind {words['after']}: {words['old']}")
    elif text.count(words["old"]) != 1:
        raise Stale(f"{words['file']} has {text.count(words['old'])} times: {words['old']}")
    return text.index(words["old"], start)


def blocks(path):
    """The blocks of a list: the name and the entries of each."""
    for block in re.split(r"\n\s*\n", path.read_text(encoding="utf-8")):
        lines = [line for line in block.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        words = {}
        for word, value in (re.match(r"(\w+): ?(.*)", line).groups() for line in lines[1:]):
            words[word] = f"{words[word]}\n{value}" if word in words else value
        yield lines[0], words


def safeguards(path):
    for name, words in blocks(path):
        source = ROOT / words["file"]
        if "old" not in words:
            yield from refusals(name, source, words["tests"].split())
            continue
        try:
            place = place_of(words, source)
        except Stale as why:
            sys.exit(f"{name}: {why}")
        yield Safeguard(name, source, (place, words["old"]), words["new"], words["tests"].split(), words.get("ends"))


def take_away(build, path, names, share):
    """Removes each safeguard of the list; returns the names of those that no test missed."""
    tests = Tests(build)
    chosen = share.of([one for one in safeguards(path) if not names or any(name in one.name for name in names)])
    wanted = sorted({name for one in chosen for name in one.tests + one.canaries()})
    unknown = set(wanted) - set(tests.names)
    if unknown:
        sys.exit(f"there are no such tests in {build}: {' '.join(sorted(unknown))}")
    if not (tests.make(wanted) and tests.passes(wanted)):
        sys.exit(f"these fail before any change: {' '.join(tests.failed) or 'the build'}")
    survivors = []
    for one in chosen:
        original = one.path.read_bytes()
        place, old = one.old
        text = original.decode("utf-8")
        try:
            one.path.write_bytes((text[:place] + one.new + text[place + len(old):]).encode("utf-8"))
            if not tests.make(one.canaries() + one.tests) or one.canaries() and not tests.passes(one.canaries()):
                verdict = "RUIN"
            else:
                verdict = "SURVIVED" if tests.passes(one.tests) else "caught"
        finally:
            one.path.write_bytes(original)
        if verdict != "caught":
            survivors.append(one.name)
        print(f"{verdict:8} {one.name}", flush=True)
    # The build tree and the clusters that other runs copy have the original sources again.
    tests.make(wanted)
    tests.passes(["make_test_clusters"])
    print(f"\n{len(chosen)} safeguards, the loss of {len(survivors)} was noticed by no test")
    return survivors


class Share:
    """The entries K, K + N, K + 2N… of a list, written K/N; of many short runs, N in a row try all of them."""

    def __init__(self, text):
        match = re.fullmatch(r"(\d+)/(\d+)", text)
        if not match or not 1 <= int(match[1]) <= int(match[2]):
            raise argparse.ArgumentTypeError(f"{text} is no share like 3/10")
        self.first, self.step = int(match[1]) - 1, int(match[2])

    def of(self, entries):
        return entries[self.first::self.step]


class Behaviours:
    """Tries the changes of lists of behaviours."""

    wanted = 95  # in 100

    def __init__(self, build, lists, names, jobs, share):
        self.build = build
        self.apart = Apart(build)
        self.pool = concurrent.futures.ThreadPoolExecutor(jobs)
        # Tests are ended at their first failure, so what they leave in the temporary folder is removed here. A stack of
        # a crash takes long.
        self.temporary = tempfile.mkdtemp(prefix="behaviours-")
        self.environment = {**os.environ, "QTEST_DISABLE_STACK_DUMP": "1", "TMPDIR": self.temporary}
        self.verdicts = {}  # by name; None while undecided
        self.changes = []
        self.texts = {}
        entries = [(path, f"{path.stem}: {name}", words) for path in lists for name, words in blocks(path)]
        for entry in share.of([entry for entry in entries if not names or any(one in entry[1] for one in names)]):
            self.take(*entry)

    def take(self, path, name, words):
        if name in self.verdicts:
            sys.exit(f"{path} has twice: {name}")
        self.verdicts[name] = None
        source = ROOT / words["file"]
        try:
            place = place_of(words, source)
        except Stale as why:
            self.tell(name, f"STALE {why}")
            return
        if source not in self.texts:  # files edited during the run are ignored
            self.texts[source] = source.read_text(encoding="utf-8")
        self.changes.append(Change(len(self.changes) + 1, name, source, self.texts[source], place, words["old"],
                                   words["new"], words["tests"].split()))

    def tell(self, name, verdict):
        self.verdicts[name] = verdict
        print(f"{verdict:8} {name}" if " " not in verdict else f"{verdict} ({name})", flush=True)

    def programs(self, change):
        return list(dict.fromkeys(self.apart.tests[name].program for name in change.tests))

    def check(self):
        """Builds the named tests and runs them without a change."""
        wanted = list(dict.fromkeys(name for change in self.changes for name in change.tests))
        unknown = [name for name in wanted if name not in self.apart.tests]
        if unknown:
            sys.exit(f"there are no such tests in {self.build}: {' '.join(unknown)}")
        programs = sorted({self.apart.tests[name].program for name in wanted})
        done = run(["ninja", "-C", self.build, *programs])
        if done.returncode:
            sys.exit(done.stdout)
        built = pathlib.Path(self.build) / "bin"
        passed = self.pool.map(lambda test: test.measure(built / test.program, self.environment),
                               [self.apart.tests[name] for name in wanted])
        failed = [name for name, one in zip(wanted, passed) if not one]
        if failed:
            sys.exit(f"these fail before any change: {' '.join(failed)}")

    def judge(self, change, programs):
        """Runs the tests of a change in these programs until one fails."""
        environment = {**self.environment, "VRK_CHANGE": str(change.number)}
        for name in change.tests:
            test = self.apart.tests[name]
            if not test.passes(programs[test.program], environment):
                return "caught"
        return "SURVIVED"

    def judge_alone(self, change):
        """Builds a single change."""
        folder = self.apart.folder(change.name)
        try:
            objects = [self.apart.compile(folder, change.source, change.made())]
            return self.judge(change, {one: self.apart.link(folder, one, objects) for one in self.programs(change)})
        except BuildFailed as why:
            return f"RUIN {why}"
        finally:
            shutil.rmtree(folder, ignore_errors=True)

    def judge_in_place(self, change):
        """For code that the programs load from a library or include from a header: changes the build tree itself."""
        original = change.source.read_bytes()
        try:
            change.source.write_bytes(change.made().encode("utf-8"))
            if run(["ninja", "-C", self.build, *self.programs(change)]).returncode:
                return "RUIN"
            built = pathlib.Path(self.build) / "bin"
            return self.judge(change, {one: built / one for one in self.programs(change)})
        finally:
            change.source.write_bytes(original)

    def each(self, operation, items):
        """Runs an operation on all items, several at a time, and yields each item with its result."""
        waiting = {self.pool.submit(operation, item): item for item in items}
        for done in concurrent.futures.as_completed(waiting):
            yield waiting[done], done.result()

    def compile(self, changes):
        """One object for each source with all its changes; returns those that cannot be built together."""
        sources = {}
        for change in changes:
            sources.setdefault(change.source, []).append(change)
        objects, alone = {}, []

        def make(source):
            text, left = switched(self.texts[source], sources[source])
            if len(left) == len(sources[source]):
                return None, left
            try:
                return self.apart.compile(self.apart.folder(str(source.relative_to(ROOT))), source, text), left
            except BuildFailed:
                return None, sources[source]

        for source, (made, left) in self.each(make, sources):
            objects[source] = made
            alone += left
        return objects, alone

    def try_together(self, changes):
        """Tests the changes that can be built together; returns the others."""
        folder = self.apart.folder("together")
        objects, alone = self.compile(changes)
        together = [change for change in changes if change not in alone]
        needed = {}
        for change in together:
            for program in self.programs(change):
                needed.setdefault(program, set()).add(objects[change.source])
        linked = dict(self.each(lambda one: self.apart.link(folder, one, needed[one]), needed))
        for change, verdict in self.each(lambda one: self.judge(one, linked), together):
            self.tell(change.name, verdict)
        return alone

    def run(self):
        self.check()
        apart, in_place = [], []
        for change in self.changes:
            (apart if self.apart.can_take(change.source, self.programs(change)) else in_place).append(change)
        alone = self.try_together(apart)
        for change, verdict in self.each(self.judge_alone, alone):
            self.tell(change.name, verdict)
        for change in in_place:
            self.tell(change.name, self.judge_in_place(change))
        if in_place:
            run(["ninja", "-C", self.build, *{one for change in in_place for one in self.programs(change)}])


def try_behaviours(build, path, names, jobs, share):
    """Whether enough changes of this list, or of the lists in this folder, were caught."""
    behaviours = Behaviours(build, sorted(path.glob("*.txt")) if path.is_dir() else [path], names, jobs, share)
    try:
        behaviours.run()
    finally:
        behaviours.pool.shutdown(cancel_futures=True)
        for folder in (behaviours.apart.work, behaviours.temporary):
            shutil.rmtree(folder, ignore_errors=True)
    survivors = [name for name, verdict in behaviours.verdicts.items() if verdict != "caught"]
    count = len(behaviours.verdicts)
    caught = count - len(survivors)
    print(f"\ncaught {caught} of {count}; {Behaviours.wanted} in 100 are wanted")
    for name in survivors:
        print(f"not caught: {name}")
    return count > 0 and 100 * caught >= Behaviours.wanted * count


def stale(build, paths):
    """Prints each entry of the lists that names a place or a test that no longer exists; returns their number."""
    tests, count = set(known_tests(build)), 0
    for path in paths:
        for name, words in blocks(path):
            missing = [test for test in words["tests"].split() if test not in tests]
            try:
                if "old" in words:
                    place_of(words, ROOT / words["file"])
                elif not (ROOT / words["file"]).exists():
                    raise Stale(f"there is no {words['file']}")
                if missing:
                    raise Stale(f"there is no {' '.join(missing)}")
            except Stale as why:
                count += 1
                print(f"{path.relative_to(ROOT)}: {name}: {why}")
    return count


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("globs", nargs="*", default=["platform/hfn/*.cpp"], help="sources, relative to the root")
    parser.add_argument("--count", type=int, default=10, help="changes to try (default 10)")
    parser.add_argument("--seed", type=int, default=1, help="the same seed draws the same changes")
    parser.add_argument("--build-dir", default="build/dev", help="a configured build with tests")
    parser.add_argument("--safeguards", metavar="FILE", help="take away what a list names; NAMEs choose some of them")
    parser.add_argument("--behaviours", metavar="LIST", help="try the changes of a list, or of the lists in a folder")
    parser.add_argument("--stale", action="store_true", help="only say which entries of all lists no longer fit")
    parser.add_argument("-j", type=int, default=2, dest="jobs", help="behaviours tried at the same time (default 2)")
    parser.add_argument("--share", metavar="K/N", type=Share, default="1/1",
                        help="of the lists every Nth entry, from the Kth; of the changes drawn an Nth")
    options = parser.parse_args()
    build = str((ROOT / options.build_dir).resolve())
    os.environ.pop("VRK_LONG", None)  # each change is tested by the daily tests
    names = options.globs if options.globs != parser.get_default("globs") else []
    if options.stale:
        folder = ROOT / "tests/mutation"
        sys.exit(1 if stale(build, [folder / "safeguards.txt", *sorted(folder.glob("behaviours/*.txt"))]) else 0)
    if options.behaviours:
        sys.exit(0 if try_behaviours(build, ROOT / options.behaviours, names, options.jobs, options.share) else 1)
    if options.safeguards:
        sys.exit(1 if take_away(build, ROOT / options.safeguards, names, options.share) else 0)

    sources = sorted({path for pattern in options.globs for path in ROOT.glob(pattern)})
    choices = [(path, *change) for path in sources for change in mutations(path)]
    if not choices:
        sys.exit("nothing to change in these sources")
    random.Random(options.seed).shuffle(choices)

    rooms = {}
    caught, survivors, unbuilt = 0, [], 0
    for path, number, old, new in choices:
        if caught + len(survivors) >= options.count / options.share.step:
            break
        room = path.relative_to(ROOT).parts[:-1][:2][-1]
        if room not in rooms:
            rooms[room] = Tests(build, room)
            names = rooms[room].names
            if not names:
                sys.exit(f"{room} has no tests in {build}")
            if not (rooms[room].make(names) and rooms[room].passes(names)):
                sys.exit(f"these fail before any change: {' '.join(rooms[room].failed) or 'the build'}")
        place = f"{path.relative_to(ROOT)}:{number + 1}"
        original = path.read_bytes()
        lines = original.decode("utf-8").split("\n")
        lines[number] = new
        try:
            path.write_bytes("\n".join(lines).encode("utf-8"))
            is_caught = rooms[room].judge(path)
        finally:
            path.write_bytes(original)
        if is_caught is None:
            unbuilt += 1
            continue
        if is_caught:
            caught += 1
        else:
            survivors.append((place, old, new))
        verdict = "caught" if is_caught else "SURVIVED"
        print(f"{verdict:8} {place}\n    - {old.strip()}\n    + {new.strip() or '(nothing)'}", flush=True)

    for room in rooms.values():
        room.make(room.names)  # the build tree has the original sources again
    print(f"\n{caught} caught, {len(survivors)} survived, {unbuilt} did not compile; "
          f"{len(choices)} changes are possible in {len(sources)} sources")
    for place, old, new in survivors:
        print(f"SURVIVED {place}\n    - {old.strip()}\n    + {new.strip() or '(nothing)'}")


if __name__ == "__main__":
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    main()
