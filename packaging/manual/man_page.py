"""The manual page of a program, from its help (help_text.py)."""
import re

ESCAPES = {"\\": r"\e", "-": r"\-", "'": r"\(aq", "`": r"\(ga", "~": r"\(ti", "^": r"\(ha", '"': r"\(dq"}
WRAPPED = 70  # a shorter line of the help ends where its author wanted a new line


def escaped(text):
    shown = "".join(ESCAPES.get(character, character) for character in text)
    return r"\&" + shown if shown.startswith(".") else shown


def usage(line):
    """Bold what is typed as it stands, italic what stands for something else."""
    parts = []
    for part in re.findall(r"[A-ZА-Я][\w.=]*|[^A-ZА-Я]+", line):
        parts.append((r"\fI%s\fR" if part[0].isupper() else r"\fB%s\fR") % escaped(part))
    return "".join(parts)


def entry(option):
    names = ", ".join(r"\fB%s\fR" % escaped(name) for name in option.names)
    return [".TP", names + (r" \fI%s\fR" % escaped(option.value) if option.value else ""), escaped(option.text) or r"\&"]


def body(blocks):
    """Paragraphs, with the line breaks of the help that do not come from its width."""
    out, before, width = [], "", 0
    for kind, content in blocks:
        if kind == "entry":
            out += entry(content)
        elif kind == "usage":
            out += [(".PP" if before != "usage" else ".br"), usage(content)]
        elif kind == "text":
            is_deep = content.startswith("    ")
            if before != "text":
                out.append(".PP")
            elif width < WRAPPED or out[-1].endswith((".", ":")) or is_deep:
                out.append(".br")
            out += [".RS", escaped(content.strip()), ".RE"] if is_deep else [escaped(content.strip())]
            width = 0 if is_deep else len(content)
        before = kind
    return out


def man_page(program, version, others):
    out = ["'\\\" -*- coding: UTF-8 -*-", '.\\" Made from the help of the program when it was built.',
           f'.TH {escaped(program.name.upper())} 1 "" "vrk\\-logbook {version}" "Оперативный журнал"', ".nh", ".ad l",
           ".SH ИМЯ", escaped(program.name) + r" \- " + escaped(program.summary), ".SH СИНТАКСИС"]
    usages = program.top.lines("usage") + [line for command in program.commands for line in command.lines("usage")]
    out += "\n.br\n".join(usage(line) for line in usages).split("\n")
    rest = [block for block in program.top.blocks if block[0] != "usage"]
    described = body(rest)
    out += [".SH ОПИСАНИЕ"] + described[described[:1] == [".PP"]:]
    if program.commands:
        out.append(".SH КОМАНДЫ")
    for command in program.commands:
        out += [".SS " + escaped(command.name), escaped(command.summary) + "."] + body(command.blocks)
    out += [".SH СМОТРИ ТАКЖЕ", ",\n".join(rf"\fB{escaped(name)}\fR(1)" for name in others)]
    return "\n".join(out) + "\n"
