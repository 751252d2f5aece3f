#!/usr/bin/env python3
"""The manual pages and the completion contain what the programs' own help contains, and a real bash completes with them.

The build puts this program next to those it tests.
"""
import os
import pathlib
import pty
import re
import select
import subprocess
import tempfile
import time
import unittest

BIN, MANUAL, DEMO = map(pathlib.Path, ("@CMAKE_RUNTIME_OUTPUT_DIRECTORY@", "@CMAKE_BINARY_DIR@/packaging/manual",
                                       "@CMAKE_SOURCE_DIR@/packaging/vrk-demo"))
PROGRAMS = {"vrk-admin": BIN / "vrk-admin", "vrk-report": BIN / "vrk-report", "vrk-workstation": BIN / "vrk-workstation",
            "vrk-directory": BIN / "vrk-directory", "vrk-demo": DEMO}
RUNTIME = tempfile.TemporaryDirectory(prefix="vrk-manual-")  # the toolkit takes all others' rights on it away
# Every process starts without the user's settings and in a locale that a fresh system has.
ENVIRONMENT = {"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen", "HOME": "/nonexistent", "TERM": "dumb",
               "XDG_RUNTIME_DIR": RUNTIME.name}


def output(*command):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True, text=True, env=ENVIRONMENT).stdout


def options(text):
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]*", text))


def commands():
    listed = output(PROGRAMS["vrk-admin"], "--help").split("Команды:\n")[1].split("\nURL")[0]
    return [line.split()[0] for line in listed.splitlines()]


def page(program):
    """The manual page as a reader sees it, in one line."""
    shown = subprocess.run(["groff", "-K", "utf8", "-T", "utf8", "-P", "-c", "-man", "-ww", "-r", "LL=250n", MANUAL / "man" / f"{program}.1"],
                           capture_output=True, text=True, env=ENVIRONMENT)
    return re.sub(".\b", "", shown.stdout), shown.stderr


def squeezed(text):
    return re.sub(r"\s+", " ", text)


class Bash:
    """An interactive bash on a terminal, with the completion of a program as an installed system loads it."""

    def __init__(self, folder):
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder)
            os.execve("/bin/bash", ["bash", "--norc", "--noprofile", "-i"], dict(ENVIRONMENT, PS1="> ", INPUTRC="/dev/null"))
        self.send("bind 'set enable-bracketed-paste off' 'set bell-style none'; . /usr/share/bash-completion/bash_completion\n")
        for program in PROGRAMS:
            self.send(f". {MANUAL}/completions/{program}; {program}() {{ printf '[%s]' \"$@\"; echo; }}\n")
        self.send("echo re''ady\n")
        self.until("ready\r\n")

    def send(self, text):
        os.write(self.terminal, text.encode())

    def until(self, text):
        seen, end = "", time.monotonic() + 20
        while text not in seen:
            if not select.select([self.terminal], [], [], max(0, end - time.monotonic()))[0]:
                raise AssertionError(f"bash shows no {text!r} but {seen!r}")
            seen += os.read(self.terminal, 65536).decode("utf-8", "replace")
        return seen

    def completed(self, line):
        """The arguments that a program gets after line, in which a tabulator completes."""
        self.send(line + "\n")
        return re.findall(r"\[([^\]]*)\]", self.until("]\r\n").rsplit("\n", 2)[-2])

    def offered(self, program, *words):
        """What is proposed for the last word."""
        parts = [part for word in words for part in re.findall(r"[:=]+|[^:=]+|^$", word)]  # as readline divides a line
        quoted = " ".join(f"'{part}'" for part in [program] + parts)
        script = (f". /usr/share/bash-completion/bash_completion; . '{MANUAL}/completions/{program}'; COMP_WORDS=({quoted}); "
                  f"COMP_CWORD={len(parts)}; COMP_LINE='{' '.join((program,) + words)}'; COMP_POINT=${{#COMP_LINE}}; compopt() {{ :; }}; "
                  f"_{program.replace('-', '_')}; printf '%s\\n' \"${{COMPREPLY[@]}}\"")
        return output("bash", "--norc", "-c", script).split()

    def close(self):
        os.close(self.terminal)
        os.waitpid(self.process, 0)


class Manual(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        for name in ("archive.csv", "journal.sqlite"):
            (pathlib.Path(cls.folder.name) / name).touch()
        (pathlib.Path(cls.folder.name) / "sheets").mkdir()
        cls.bash = Bash(cls.folder.name)

    @classmethod
    def tearDownClass(cls):
        cls.bash.close()
        cls.folder.cleanup()

    def testPagesAreWellFormed(self):
        for program in PROGRAMS:
            self.assertEqual(page(program)[1], "")
            whatis = output("lexgrog", MANUAL / "man" / f"{program}.1")
            self.assertIn(f'"{program} - ', whatis)

    def testPageOfAdminHoldsEveryLineOfItsHelp(self):
        shown = squeezed(page("vrk-admin")[0])
        self.assertGreater(len(commands()), 15)
        for command in commands():
            self.assertRegex(shown, rf" {command} ")
            for line in output(PROGRAMS["vrk-admin"], command, "--help").splitlines():
                for part in re.split(r"(?<=\S)  +", line.strip()):
                    wanted = 2 if part.startswith("vrk-admin ") else 1  # usages are also in the synopsis
                    self.assertGreaterEqual(shown.count(squeezed(part)), wanted, (command, part))

    def testPageHoldsEveryOption(self):
        for program, path in PROGRAMS.items():
            wanted = options(output(path, "--help"))
            self.assertIn("--help", wanted)
            self.assertLessEqual(wanted, options(page(program)[0]))

    def testPageShowsNoMarkup(self):
        for program in PROGRAMS:
            self.assertNotRegex(page(program)[0], r"(?m)\\[f-]|^\.[A-Z]")

    def testCompletionOffersEveryCommand(self):
        self.assertEqual(self.bash.offered("vrk-admin", ""), commands())

    def testCompletionOffersEveryOptionOfACommand(self):
        for command in commands():
            help_text = output(PROGRAMS["vrk-admin"], command, "--help")
            # An option that only a sentence mentions may belong to another command.
            own = options("".join(re.findall(rf"(?m)^vrk-admin {command} .*$|^  --.*?(?:  |$)", help_text)))
            self.assertEqual(set(self.bash.offered("vrk-admin", command, "--")), own | {"--help"}, command)

    def testCompletionOffersEveryOptionOfAProgram(self):
        for program, path in PROGRAMS.items():
            self.assertEqual(set(self.bash.offered(program, "--")), options(output(path, "--help")))

    def testCompletionKnowsSubcommandsAfterAnAddress(self):
        url = "sqlite:///store"
        self.assertEqual(self.bash.offered("vrk-admin", "user", url, ""), ["list", "add", "password", "remove", "retire", "reinstate"])
        self.assertIn("SQL_EXEC", self.bash.offered("vrk-admin", "right", url, "grant", "petrova", ""))
        self.assertIn("DelayTime=", self.bash.offered("vrk-admin", "option", url, "set", "VisaPassword=on", ""))

    def testValueOfAnOptionIsNoPlace(self):
        url = "sqlite:///store"
        self.assertEqual(self.bash.offered("vrk-admin", "init", "--codec", ""), ["Windows-1251", "UTF-8"])
        self.assertEqual(self.bash.offered("vrk-admin", "user", "--department", "list", url, "a"), ["add"])
        self.assertEqual(self.bash.offered("vrk-admin", "demo", url, "--count", ""), [])

    def testBashCompletesCommandsAndOptions(self):
        self.assertEqual(self.bash.completed("vrk-admin export-e\t"), ["export-evidence"])
        self.assertEqual(self.bash.completed("vrk-admin upgrade sqlite:///x --no\t"), ["upgrade", "sqlite:///x", "--no-backup"])
        self.assertEqual(self.bash.completed("vrk-workstation --module arch\t"), ["--module", "archive"])
        self.assertEqual(self.bash.completed("vrk-workstation --theme=dar\t"), ["--theme=dark"])

    def testBashCompletesAddressesFilesAndFolders(self):
        self.assertEqual(self.bash.completed("vrk-admin check sqli\t"), ["check", "sqlite:///"])
        self.assertEqual(self.bash.completed(f"vrk-admin check sqlite://{self.folder.name}/jou\t"),
                         ["check", f"sqlite://{self.folder.name}/journal.sqlite"])
        self.assertEqual(self.bash.completed("vrk-admin import sqlite:///x sh\t"), ["import", "sqlite:///x", "sheets/"])
        self.assertEqual(self.bash.completed("vrk-admin setup --answers arch\t"), ["setup", "--answers", "archive.csv"])

    def testBashCompletesSettings(self):
        self.assertEqual(self.bash.completed("vrk-admin option sqlite:///x set Visa\ton"),
                         ["option", "sqlite:///x", "set", "VisaPassword=on"])
        self.assertEqual(self.bash.completed("vrk-admin option sqlite:///x set VisaPassword=of\t"),
                         ["option", "sqlite:///x", "set", "VisaPassword=off"])


if __name__ == "__main__":
    unittest.main()
