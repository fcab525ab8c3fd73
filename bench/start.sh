#!/usr/bin/env bash
# The time of quorel-batch with nothing to do, as a ratio to an empty program on Qt Core.
# Usage: bench/start.sh [FOLDER OF THE BUILD]
set -euo pipefail
build=${1:-$(dirname "$0")/../build/release}
runs=300
nothing=$(mktemp -d)
trap 'rmdir "$nothing"' EXIT

# milliseconds COMMAND...: the mean of the runs.
milliseconds() {
    local start end
    start=$(date +%s%N)
    for ((i = 0; i < runs; ++i)); do "$@" >/dev/null; done
    end=$(date +%s%N)
    awk -v t="$((end - start))" -v n="$runs" 'BEGIN { printf "%.3f", t / n / 1e6 }'
}

milliseconds "$build/bench/EmptyCore" >/dev/null # warms up
empty=$(milliseconds "$build/bench/EmptyCore")
batch=$(milliseconds "$build/bin/quorel-batch" "$nothing")
awk -v e="$empty" -v b="$batch" 'BEGIN { printf "empty %.2f ms, quorel-batch %.2f ms, ratio %.2f (bound 2)\n", e, b, b / e }'
