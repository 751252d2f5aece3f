"""The completion of a program for bash, from its help (help_text.py): tables for the script completion.bash."""
import os
import re
import shlex

from help_text import OPTION_OF_USAGE


def kind_of(word):
    """How a value is completed, by the word that the help has for it."""
    if word.startswith(("FILE", "PATH")):
        return "FILE"
    return word if word in ("DIR", "URL") else ""


def positions(usage):
    """The words of a usage without options: "user URL add LOGIN NAME"."""
    plain = OPTION_OF_USAGE.sub(" ", usage)
    return [word for word in re.sub(r"[\[\]|]", " ", plain).split() if re.match(r"\w", word)]


def offered(word, chapter):
    """What is proposed for a word of a usage."""
    if word.islower():
        return [word]
    if word.startswith("NAME=") and chapter.settings():
        return [name + "=" for name in chapter.settings()]
    if word == "RIGHT" and chapter.words():
        return chapter.words()
    return [kind_of(word)] if kind_of(word) else []


def places_of(command):
    """For the words before a place, with * for what stands for something else, what is proposed there."""
    places = {}
    for usage in command.lines("usage"):
        words = positions(usage)[1:]
        if words[-1].endswith("..."):
            words += words[-1:] * len(command.settings())
        for number, word in enumerate(words[1:], 1):
            before = " ".join(one if one.islower() else "*" for one in words[:number])
            known = places.setdefault(before, [])
            known += [one for one in offered(word, command) if one not in known]
    return places


def tables(program):
    """Options of each command, the kinds of their values or the values, and what is proposed at each place."""
    options, values, places = {}, {}, {"": [command.name for command in program.commands]}
    for chapter in [program.top] + program.commands:
        command = "" if chapter is program.top else chapter.name
        found = dict(chapter.options(), **{"--help": None})
        options[command] = [name for name in found if name.startswith("--")]
        for name, value in found.items():
            if value:
                values[f"{command} {name}"] = chapter.choices(name) or [kind_of(value) or "ANY"]
        for name, listed in chapter.settings().items():
            values[f"{command} {name}="] = listed or ["ANY"]
        if command:
            places.update(places_of(chapter))
    return options, values, places


def bash_completion(program):
    script = open(os.path.join(os.path.dirname(__file__), "completion.bash"), encoding="utf-8").read()
    lines = []
    for name, table in zip(("options", "values", "places"), tables(program)):
        lines.append(f"    local -A {name}=(")
        lines += [f"        [{shlex.quote(key or '-')}]={shlex.quote(' '.join(words))}" for key, words in table.items() if words]
        lines.append("    )")
    return (script.replace("    @TABLES@", "\n".join(lines)).replace("@FUNCTION@", program.name.replace("-", "_"))
            .replace("@PROGRAM@", program.name))
