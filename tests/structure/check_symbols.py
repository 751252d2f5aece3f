#!/usr/bin/env python3
"""Compares the functions that the plug-in exports with the list under version control."""
import re
import subprocess
import sys


def main(library, wanted_file):
    out = subprocess.run(["nm", "-D", "--defined-only", library], check=True, capture_output=True, text=True).stdout
    exported = sorted(line.split()[-1].split("@")[0] for line in out.splitlines() if line.split()[-2] in "TWVBDR")
    # Code that the compiler generates for templates of the standard library, and for Qt classes in
    # instrumented code, has their default visibility.
    own = [name for name in exported if not name.startswith(("_ZNSt", "_ZSt", "_ZNKSt", "_ZTISt", "_ZTSSt", "_ZTVSt",
                                                             "_ZN9__gnu_cxx", "_ZNK9__gnu_cxx"))
           and not re.match(r"_ZT[ISV]\d+Q[A-Z]", name)]
    with open(wanted_file, encoding="utf-8") as file:
        wanted = sorted(line.strip() for line in file if line.strip())
    if own == wanted:
        return 0
    for name in sorted(set(own) - set(wanted)):
        print("exported, but not on the list:", name)
    for name in sorted(set(wanted) - set(own)):
        print("on the list, but not exported:", name)
    return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2]))
