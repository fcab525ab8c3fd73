#!/usr/bin/env bash
# Says which include leads up or sideways in the house: a room may use itself and the rooms that stand before it here.
# A test's folder may use all of the framework and no other test's.
set -euo pipefail
cd "$(dirname "$0")/../src"

rooms='stats framework/text framework/files framework/grid framework/chart framework/document framework/window
       validation reports shell batch'

git ls-files '*.h' '*.cpp' | xargs grep -HnE '^#include "' | awk -v rooms="$rooms" '
function room(path,   i, best) {
    for (i = 1; i <= count; ++i)
        if (index(path, name[i] "/") == 1)
            best = i
    return best
}
function test(path) { return match(path, /^validation\/[^\/]+\//) ? substr(path, 1, RLENGTH) : "" }
BEGIN { count = split(rooms, name) }
{
    split($0, part, ":")
    included = part[3]
    gsub(/^#include "|".*$/, "", included)
    from = room(part[1])
    to = room(included)
    numbers = part[1] ~ /Calc\.(h|cpp)$/ && to != room("stats/") && included !~ /Calc\.h$/
    companion = part[1] ~ /^batch\// && included ~ /^(framework\/window|shell)\/|Window\.h$/
    if (to == 0 || to > from || numbers || companion ||
        (test(part[1]) != "" && test(included) != "" && test(included) != test(part[1]))) {
        print "src/" part[1] ":" part[2] ": may not include " included
        broken = 1
    }
}
END { exit broken }' >&2
