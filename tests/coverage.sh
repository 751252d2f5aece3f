#!/usr/bin/env bash
# Runs the tests in the preset coverage and prints for each room of the product how many lines they run. A program that
# is killed, or killed itself, has not written its counts.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

packaging/dependencies.sh build test
mkdir -p build/coverage
find build/coverage -name '*.gcda' -delete
status=0
./test --preset coverage --once || status=$?
cd build/coverage
find . -name '*.gcda' -print0 | xargs -0 -n 20 -P "$(nproc)" sh -c 'gcov --json-format --stdout "$@" >"counts.$$"' gcov
python3 - "$PWD/../.." counts.* <<'END'
import collections, json, os, sys

root = os.path.realpath(sys.argv[1])
runs = collections.defaultdict(dict)  # of each file, by line: how often any program ran it
for name in sys.argv[2:]:
    for text in open(name, encoding="utf-8"):
        unit = json.loads(text)
        for file in unit["files"]:
            path = os.path.relpath(os.path.realpath(os.path.join(unit["current_working_directory"], file["file"])), root)
            if path.split("/")[0] in ("admin", "archive", "demo", "platform", "plugin", "workstation"):
                for line in file["lines"]:
                    number = line["line_number"]
                    runs[path][number] = runs[path].get(number, 0) + line["count"]
    os.remove(name)
rooms = collections.defaultdict(lambda: [0, 0])
for path, lines in runs.items():
    for room in (os.path.dirname(path), "all"):
        rooms[room][0] += sum(count > 0 for count in lines.values())
        rooms[room][1] += len(lines)
print("| room | lines | run |\n|---|---:|---:|")
for room, (run, total) in sorted(rooms.items()):
    print(f"| {room} | {total} | {100 * run / total:.1f} % |")
END
exit $status
