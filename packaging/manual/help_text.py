"""What a program says about itself with --help, divided into what manual pages and completion need.

A help text is a sequence of lines of these kinds:

    PROGRAM COMMAND URL [--option VALUE]    a usage, from the first column
      --option, -o <VALUE>  what it does    an option, at two columns; the text may go on, indented further
      NAME=VALUE            what it is      a setting, in the same form
      any other text
"""
import re
import subprocess

OPTION = re.compile(r"  ((?:--?[\w-]+, )*--[\w-]+)(?: <([^>]+)>)?(?:  +(.*))?$")
SETTING = re.compile(r"  ([A-Z]\w+=\S+)  +(.*)$")
OPTION_OF_USAGE = re.compile(r'(--[\w-]+)(?: ([A-Z][\w.]*|"[^"]*"))?')


class Entry:
    """An option or a setting: its names, the word for its value or None, its text."""

    def __init__(self, names, value, text):
        self.names, self.value, self.text = names, value, text


class Chapter:
    """A command, or a program without commands. \\a blocks are pairs of a kind ("usage", "entry", "text", "blank") and
    a line, or an Entry."""

    def __init__(self, name, summary, program, lines):
        self.name, self.summary, self.blocks = name, summary, []
        for line in lines:
            self._add(line, program)

    def _add(self, line, program):
        option, setting = OPTION.match(line), SETTING.match(line)
        last = self.blocks[-1] if self.blocks else ("", None)
        if not line.strip():
            self.blocks.append(("blank", ""))
        elif re.match(re.escape(program) + r"\b(?!:)", line):
            self.blocks.append(("usage", line))
        elif option:
            self.blocks.append(("entry", Entry(option[1].split(", "), option[2], option[3] or "")))
        elif setting:
            self.blocks.append(("entry", Entry([setting[1]], None, setting[2])))
        elif last[0] == "entry" and line.startswith("    "):
            last[1].text = (last[1].text + " " + line.strip()).strip()
        else:
            self.blocks.append(("text", line))

    def lines(self, kind):
        return [content for its_kind, content in self.blocks if its_kind == kind]

    def options(self):
        """Every option with the word for its value or None: those of the usages, and those that only have a text."""
        found = {}
        for usage in self.lines("usage"):
            for name, value in OPTION_OF_USAGE.findall(usage):
                found[name] = found.get(name) or value or None
        for entry in self.lines("entry"):
            for name in entry.names:
                if name.startswith("-"):
                    found.setdefault(name, entry.value)
        return found

    def settings(self):
        """The names of settings, each with its values if they are listed."""
        pairs = [entry.names[0].split("=", 1) for entry in self.lines("entry") if "=" in entry.names[0]]
        return {name: values.split("|") if "|" in values else [] for name, values in pairs}

    def choices(self, option):
        """The values that the text of an option lists: "Цвета: light, dark или system (как на столе)."."""
        for entry in self.lines("entry"):
            if option not in entry.names or ":" not in entry.text:
                continue
            listed = re.sub(r" \([^)]*\)", "", re.split(r";|\. ", entry.text.split(":", 1)[1])[0]).strip(" .")
            values = re.split(r", | или ", listed)
            if len(values) > 1 and all(re.fullmatch(r"[A-Za-z][\w.-]*", value, re.A) for value in values):
                return values
        return []

    def words(self):
        """Capital words that stand alone in a line, such as the names of rights."""
        return [line.strip() for line in self.lines("text") if re.fullmatch(r"  [A-Z][A-Z_]+", line)]


class Program:
    """The help of a program: a chapter for itself, and one for each of its commands."""

    def __init__(self, path):
        self.name = path.rsplit("/", 1)[-1]
        lines = _help([path])
        top, listed = _divided(lines)
        self.summary, shown = _described(self.name, top)
        self.top = Chapter(self.name, self.summary, self.name, shown)
        self.commands = []
        for line in listed:
            name, summary = line.split(None, 1)
            self.commands.append(Chapter(name, summary, self.name, _help([path, name])))


def _help(command):
    done = subprocess.run([*command, "--help"], check=True, stdout=subprocess.PIPE, text=True, encoding="utf-8")
    return done.stdout.rstrip("\n").split("\n")


def _divided(lines):
    """The lines without the list of commands, and that list."""
    if "Команды:" not in lines:
        return lines, []
    begin = lines.index("Команды:")
    end = next(number for number in range(begin + 1, len(lines) + 1)
               if number == len(lines) or not lines[number].startswith("  "))
    return lines[:begin] + lines[end:], lines[begin + 1:end]


def _described(name, lines):
    """The summary of a program, and its other lines: usages from the first column, no headings."""
    summary, shown = "", []
    for line in lines:
        usage = re.match(r"(?:\w+: |  +)(?:\S*/)?" + re.escape(name) + r"\b(.*)$", line)
        if usage:
            shown.append(name + usage[1])
        elif re.match(re.escape(name) + r": ", line):
            summary = line.split(": ", 1)[1]
        elif not summary and line.strip() and not line.endswith(":"):
            summary = line.strip(" .")
        elif not re.fullmatch(r"(Параметры|Options):", line):
            shown.append(line)
    return summary, shown
