#!/usr/bin/env bash
# Builds the fuzz targets with clang and runs each for some seconds: tests/fuzz/run.sh [SECONDS [NAME...]]
# What they have learned stays in build/fuzz/corpus for the next run; an input that breaks something lies in
# build/fuzz/findings, and build/fuzz/bin/NAME FILE tries it once more.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."

seconds=${1:-60}
names=("${@:2}")
packaging/dependencies.sh build fuzz
mkdir -p build/fuzz/findings
cmake --preset fuzz >build/configure-fuzz.log
ninja -C build/fuzz --quiet
[[ ${#names[@]} -gt 0 ]] || for target in build/fuzz/bin/*_fuzz; do names+=("${target##*/}"); done

export QT_QPA_PLATFORM=offscreen TZ=Europe/Moscow LSAN_OPTIONS=suppressions=$PWD/.ci/leaks.supp:print_suppressions=0
status=0
for name in "${names[@]}"; do
    mkdir -p "build/fuzz/corpus/$name"
    log=build/fuzz/$name.log
    if "build/fuzz/bin/$name" -max_total_time="$seconds" -max_len=4096 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/findings/$name-" "build/fuzz/corpus/$name" >"$log" 2>&1; then
        echo "$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs without a finding"
    else
        status=1
        tail -n 60 "$log"
        echo "$name: a finding, see $log"
    fi
done
exit $status
