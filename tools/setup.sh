# Sourced by run.sh, test.sh and .ci/run: brings a Debian 12 machine to the point where the project builds.

# say TEXT: a line of the scripts' own.
say() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
}

stop() {
    say "$*"
    exit 1
}

# missing_packages GROUP...: the packages of these groups that are not installed, one a line.
missing_packages() {
    local group package
    for group in "$@"; do
        while read -r package; do
            dpkg-query -W -f='${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii' || printf '%s\n' "$package"
        done < <(awk -v group="$group" '$1 == group { print $2 }' "$project/packages.txt")
    done
}

# as_root COMMAND...: as it is for root, else with sudo, which may not ask.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo -n "$@"
    else
        return 1
    fi
}

apt() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300 "$@"
}

# The package lists are there, and not older than a day.
lists_are_fresh() {
    [ -n "$(find /var/lib/apt/lists -maxdepth 1 -name '*_Packages*' -print -quit 2>/dev/null)" ] &&
        [ -n "$(find /var/lib/apt/lists -maxdepth 1 -name '*Release' -mmin -1440 -print -quit 2>/dev/null)" ]
}

# install_packages GROUP...: installs what is missing of these groups, and says what failed.
install_packages() {
    local -a missing
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -gt 0 ] || return 0
    say "installing ${missing[*]}"
    if ! as_root true 2>/dev/null; then
        stop "these packages are missing, and this user may not install them without a password: ${missing[*]}
Install them once with: sudo apt-get update && sudo apt-get install --no-install-recommends ${missing[*]}"
    fi
    if ! lists_are_fresh; then
        say "fetching the package lists"
        apt update || stop "the package lists could not be fetched (see above)"
    fi
    apt install -y --no-install-recommends "${missing[@]}" && return 0
    say "the first try failed; once more with new package lists"
    apt update || stop "the package lists could not be fetched (see above)"
    apt install -y --no-install-recommends "${missing[@]}" ||
        stop "the packages could not be installed (see above): ${missing[*]}"
}

# build PRESET [TARGET...]: configures where that was not done yet, and builds.
build() {
    local preset=$1
    shift
    if [ ! -f "$project/build/$preset/build.ninja" ]; then
        say "configuring ($preset)"
        (cd "$project" && cmake --preset "$preset") || stop "the configuration failed (see above)"
    fi
    say "building ($preset)"
    (cd "$project" && cmake --build --preset "$preset" ${1:+--target "$@"}) >&2 || stop "the build failed (see above)"
}
