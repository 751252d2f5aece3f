#!/usr/bin/env python3
"""Makes the manual pages and the completion for bash from what the programs say about themselves.

    make_manual.py VERSION FOLDER PROGRAM...

For each program FOLDER/man/PROGRAM.1 and FOLDER/completions/PROGRAM.
"""
import pathlib
import sys

from bash_completion import bash_completion
from help_text import Program
from man_page import man_page


def main(version, folder, paths):
    programs = [Program(path) for path in paths]
    names = [program.name for program in programs]
    for room in ("man", "completions"):
        (folder / room).mkdir(parents=True, exist_ok=True)
    for program in programs:
        others = [name for name in names if name != program.name]
        (folder / "man" / (program.name + ".1")).write_text(man_page(program, version, others), encoding="utf-8")
        (folder / "completions" / program.name).write_text(bash_completion(program), encoding="utf-8")


if __name__ == "__main__":
    main(sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3:])
