#!/usr/bin/env bash
# Runs the tests in the preset coverage and prints for each room of the product how many lines they run. A program that
# is killed, or killed itself, has not written its counts.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

packaging/dependencies.sh build test coverage
mkdir -p build/coverage
find build/coverage -name '*.gcda' -delete
status=0
./test --preset coverage --once || status=$?
gcovr --root . --object-directory build/coverage --filter '(admin|archive|demo|platform|plugin|workstation)/' \
    --exclude '.*_autogen.*' --json-summary build/coverage/summary.json build/coverage
python3 - build/coverage/summary.json <<'END'
import collections, json, os, sys

lines = collections.defaultdict(lambda: [0, 0])
for entry in json.load(open(sys.argv[1]))["files"]:
    for room in (os.path.dirname(entry["filename"]), "all"):
        lines[room][0] += entry["line_covered"]
        lines[room][1] += entry["line_total"]
print("| room | lines | run |\n|---|---:|---:|")
for room, (run, total) in sorted(lines.items()):
    print(f"| {room} | {total} | {100 * run / total:.1f} % |")
END
exit $status
