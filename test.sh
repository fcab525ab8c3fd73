#!/usr/bin/env bash
# Installs what is missing, builds everything and runs all tests.
set -euo pipefail
project=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tools/setup.sh
. "$project/tools/setup.sh"

install_packages build
build release
cd "$project"
ctest --preset release "$@"
