#!/usr/bin/env bash
# The checks that need no run: layout, warnings, headers that compile alone, clang-tidy.
set -euo pipefail
project=$(cd "$(dirname "$0")/.." && pwd)
# shellcheck source=tools/setup.sh
. "$project/tools/setup.sh"

install_packages build checks
cd "$project"

say "layout (clang-format)"
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror ||
    stop "the layout is not that of .clang-format; mend it with: git ls-files '*.cpp' '*.h' | xargs clang-format -i"

say "lists of faults"
tools/mutate.sh --check || stop "a fault has lost its place in the sources (see above)"

say "rooms"
tools/rooms.sh || stop "an include leads up or sideways in the house (see above)"

say "expectations of the documents"
tests/data/documents/recalculate.py --check ||
    stop "an expectation was edited, or a document changed without it; run tests/data/documents/recalculate.py and read what changes"

say "warnings, and headers that compile alone"
build dev
build dev all_verify_interface_header_sets

say "clang-tidy"
git ls-files 'src/*.cpp' 'data/*.cpp' 'bench/*.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/dev 2> >(grep -v 'warnings generated\|Suppressed\|^$\|Use -header-filter' >&2) ||
    stop "clang-tidy found faults (see above)"
say "nothing found"
