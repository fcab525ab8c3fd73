#!/usr/bin/env bash
# Time from start to painted frame, and memory, as ratios to an empty Qt window with a QMdiArea, under Xvfb.
# Usage: bench/frame.sh [FOLDER OF THE BUILD]
set -euo pipefail
build=$(cd "${1:-$(dirname "$0")/../build/release}" && pwd)
runs=40
home=$(mktemp -d)
exec 3< <(exec Xvfb -displayfd 1 -screen 0 1600x1000x24 -nolisten tcp 2>/dev/null)
server=$!
trap 'kill "$server" 2>/dev/null; rm -rf "$home"' EXIT
read -r display <&3

# frame PROGRAM: "milliseconds kibibytes" of one run.
frame() {
    env -i PATH="$PATH" HOME="$home" LC_ALL=C.UTF-8 DISPLAY=":$display" XDG_RUNTIME_DIR="$home" \
        START="${EPOCHREALTIME/[.,]/}" "$1"
}

# median COLUMN FILE
median() { awk -v c="$1" '{ print $c }' "$2" | sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

frame "$build/bench/EmptyFrame" >/dev/null     # warms up,
frame "$build/bin/ProgramFrame" >/dev/null # and makes the folders of a first start
for ((i = 0; i < runs; ++i)); do
    frame "$build/bench/EmptyFrame" >>"$home/empty.txt"
    frame "$build/bin/ProgramFrame" >>"$home/program.txt"
done
awk -v et="$(median 1 "$home/empty.txt")" -v pt="$(median 1 "$home/program.txt")" \
    -v em="$(median 2 "$home/empty.txt")" -v pm="$(median 2 "$home/program.txt")" 'BEGIN {
    printf "time:   empty %.1f ms, quorel %.1f ms, ratio %.2f (bound 1.3)\n", et, pt, pt / et
    printf "memory: empty %.1f MiB, quorel %.1f MiB, ratio %.2f (bound 1.5)\n", em / 1024, pm / 1024, pm / em }'
