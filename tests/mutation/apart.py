"""Builds one changed source and the tests that link it outside a build tree, which is not changed."""
import hashlib
import json
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess
import threading
import time


class BuildFailed(Exception):
    pass


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          **options)


class Test:
    """A test as ctest starts it: its program, its environment, its duration without changes."""

    def __init__(self, name, command, properties):
        values = {one["name"]: one["value"] for one in properties}
        self.name = name
        # ctest does not know the command of a program that is not built; such a program has the name of its
        # test.
        self.program = pathlib.Path(command[0]).name if command else name.replace("_on_postgresql", "")
        self.arguments = command[1:]
        self.environment = dict(one.split("=", 1) for one in values.get("ENVIRONMENT", []))
        self.folder = values.get("WORKING_DIRECTORY")
        self.limit = values.get("TIMEOUT", 600)

    def passes(self, program, environment):
        """Also false for a test that does not end. A change often makes a test wait forever."""
        command = [str(program), *self.arguments]
        process = subprocess.Popen(command, cwd=self.folder, env={**environment, **self.environment},
                                   stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, start_new_session=True)
        limit = threading.Timer(self.limit, self.end, (process,))
        limit.start()
        try:
            # One failed function is enough; QTest would run all the others after it.
            return not any(line.startswith(b"FAIL!") for line in process.stdout) and process.wait() == 0
        finally:
            limit.cancel()
            self.end(process)
            process.wait()
            process.stdout.close()

    @staticmethod
    def end(process):
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)

    def measure(self, program, environment):
        """Sets the limit by a run without a change; returns whether it passed."""
        started = time.monotonic()
        passed = self.passes(program, environment)
        self.limit = min(self.limit, 20 + 10 * (time.monotonic() - started))
        return passed


class Change:
    """One change of a source: a piece of its text and the replacement."""

    def __init__(self, number, name, source, text, place, old, new, tests):
        self.number, self.name, self.source, self.text, self.place = number, name, source, text, place
        self.old, self.new, self.tests = old, new, tests

    def made(self):
        text = self.text
        return text[:self.place] + self.new + text[self.place + len(self.old):]


# A function as clang-format leaves it, outside of any class: its head, a brace of its own, its body, a brace.
FUNCTION = re.compile(r"^(?!enum|class|struct|namespace|union|using|template)\S[^\n]*(?:\n(?![{}#]|\n)[^\n]*)*\n\{\n"
                      r"(?P<body>(?:(?!\}\n)[^\n]*\n)*)\}\n", re.M)


def object_of(source):
    """Matches the object of this source in the command of a linker."""
    return rf"\s\S+\.dir/(\S+/)?{re.escape(source.stem)}\.cpp\.o(?=\s)"


SWITCH = """#include <cstdlib>
namespace
{
bool vrkIsChanged(int number)
{
    static const char* const chosen = std::getenv("VRK_CHANGE");
    static const int wanted = chosen ? std::atoi(chosen) : 0;
    return wanted == number;
}
}
#line 1
"""


def switched(text, changes):
    """A text with all these changes, each selected by its number at run time, and the changes that cannot be selected:
    those outside of functions. A function is repeated as a whole, so that a change may be any piece of it."""
    bodies = [match.span("body") for match in FUNCTION.finditer(text) if "constexpr" not in match[0].split("\n{\n")[0]]
    groups, left = {}, []
    for one in changes:
        span = next((span for span in bodies if span[0] <= one.place and one.place + len(one.old) <= span[1]), None)
        if span:
            groups.setdefault(span, []).append(one)
        else:
            left.append(one)
    for (begin, end), group in sorted(groups.items(), reverse=True):
        body = "".join(f"if (vrkIsChanged({one.number})) {{\n"
                       f"{text[begin:one.place]}{one.new}{text[one.place + len(one.old):end]}}} else\n" for one in group)
        text = text[:begin] + body + "{\n" + text[begin:end] + "}\n" + text[end:]
    return SWITCH + text, left


class Apart:
    """Changed copies of sources, each compiled by the command of its original and linked before the libraries, whose
    objects are then not used. Changes inside functions are compiled once for all changes of a source; the variable
    VRK_CHANGE selects the one for a test."""

    def __init__(self, build):
        self.build = pathlib.Path(build)
        self.work = self.build / f"changed-{os.getpid()}"
        self.launcher = [path for path in [shutil.which("ccache")] if path]
        database = json.loads((self.build / "compile_commands.json").read_text())
        # The first command is that of the tested library; others build a part of it for another program.
        self.compilers = {}
        for entry in database:
            self.compilers.setdefault(entry["file"], (entry["command"], entry["directory"]))
        self.linkers = {}
        listed = json.loads(run(["ctest", "--test-dir", build, "--show-only=json-v1"]).stdout)
        self.tests = {one["name"]: Test(one["name"], one.get("command", []), one["properties"])
                      for one in listed["tests"]}

    def linker(self, program):
        if program not in self.linkers:
            lines = run(["ninja", "-C", str(self.build), "-t", "commands", program]).stdout.splitlines()
            found = [line for line in lines if f" -o bin/{program} " in line]
            self.linkers[program] = found[-1] if found else ""
        return self.linkers[program]

    def can_take(self, source, programs):
        """Whether these programs hold the source themselves. One that loads it from a library would not see the
        change."""
        def holds(linker):
            return linker and ("lib/libVrk" not in linker or re.search(object_of(source), linker))
        return str(source) in self.compilers and all(holds(self.linker(one)) for one in programs)

    def folder(self, name):
        """The place where the target of this name is built."""
        folder = self.work / hashlib.sha1(name.encode()).hexdigest()[:12]
        folder.mkdir(parents=True, exist_ok=True)
        return folder

    def compile(self, folder, source, text):
        """The object of a changed text of this source."""
        copy = folder / source.name
        copy.write_text(text, encoding="utf-8")
        command, directory = self.compilers[str(source)]
        words = shlex.split(command)
        words[words.index("-c") + 1] = str(copy)
        words[words.index("-o") + 1] = str(folder / f"{source.stem}.o")
        words += ["-w", f"-I{source.parent}"]
        done = run([*self.launcher, *words], cwd=directory)
        if done.returncode:
            raise BuildFailed(done.stdout)
        return folder / f"{source.stem}.o"

    def link(self, folder, program, objects):
        """A program of the build tree with these objects in the place of its own."""
        made = folder / program
        command = self.linker(program).replace(f" -o bin/{program} ", f" -o {made} ", 1)
        for one in objects:  # some programs take the objects of a library, and not only those they need
            command = re.sub(object_of(one), "", command)
        given = " ".join(str(one) for one in sorted(objects))
        command = re.sub(r"(\s)(\S+\.o\s)", lambda match: f"{match[1]}{given} {match[2]}", command, count=1)
        done = run(command, cwd=self.build, shell=True)
        if done.returncode:
            raise BuildFailed(done.stdout)
        return made
