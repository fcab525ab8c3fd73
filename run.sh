#!/usr/bin/env bash
# Installs what is missing, builds the program and starts it. Where there is no display, the companion works over
# the samples instead.
set -euo pipefail
project=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tools/setup.sh
. "$project/tools/setup.sh"

install_packages build
build release quorel quorel-batch database

if [ -n "${DISPLAY:-}" ]; then
    exec "$project/build/release/bin/quorel" "$@"
fi
say "there is no display to open a window on (DISPLAY is not set): quorel-batch shows the results of samples/"
cd "$project"
exec build/release/bin/quorel-batch samples
