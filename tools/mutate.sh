#!/usr/bin/env bash
# Puts the faults of the lists into a copy of the sources, one at a time, builds, runs the tests, and tells which faults no
# test saw. tests/faults/README.md tells how a list is written.
#
#   tools/mutate.sh [--check] [--only TEXT] [-j JOBS] [LIST...]
#
#   LIST     a file of faults; all of tests/faults where none is given
#   --check  looks only whether the old text of each fault stands exactly once in its file
#   --only   takes the faults whose file or words contain TEXT
#   -j       jobs at a time; as many as there are cores where it is not given
set -euo pipefail
project=$(cd "$(dirname "$0")/.." && pwd)
# shellcheck source=tools/setup.sh
. "$project/tools/setup.sh"

copy=$project/build/mutate
log=$copy/build/mutate.log
before=$copy/build/before-the-fault

usage() {
    stop "usage: $(basename "$0") [--check] [--only TEXT] [-j JOBS] [LIST...]"
}

# The faults, one an index.
places=() # "tests/faults/grid.txt:12"
rooms=()
files=()
words=()
olds=() # the lines, each with its line end
news=()

# add_fault: what read_list has gathered of one fault.
add_fault() {
    [ -n "$file" ] || return 0
    [ -n "$old" ] || stop "$place: the fault has no old text"
    [ "$old" != "$new" ] || stop "$place: the new text is the old one"
    if [[ "$file $word" == *"$only"* ]]; then
        places+=("$place") rooms+=("$room") files+=("$file") words+=("$word") olds+=("$old") news+=("$new")
    fi
    file=
}

# read_list LIST: adds its faults.
read_list() {
    local list=$1 room line number=0 place='' file='' word='' old='' new=''
    local head='^([^:[:space:]]+): +(.+)$'
    room=$(basename "$list" .txt)
    [ -r "$list" ] || stop "$list can't be read"
    while IFS= read -r line || [ -n "$line" ]; do
        number=$((number + 1))
        case $line in
        '' | '#'*)
            add_fault
            ;;
        -*)
            [[ -n $file && -z $new ]] || stop "$list:$number: no fault begins above this line"
            old+=${line#-}$'\n'
            ;;
        +*)
            [[ -n $file && -n $old ]] || stop "$list:$number: no old text stands above this line"
            new+=${line#+}$'\n'
            ;;
        *)
            add_fault
            [[ $line =~ $head ]] || stop "$list:$number: this is neither 'file: what the fault would do' nor - nor +"
            file=${BASH_REMATCH[1]} word=${BASH_REMATCH[2]} place=$list:$number old='' new=''
            ;;
        esac
    done <"$list"
    add_fault
}

# find_old FOLDER FAULT: reads the fault's file into `lines`, where it is another one than the last, and sets `old` to the
# lines of the old text, `at` to the place where they stand, `times` to how often they do.
lines_of=
find_old() {
    local path=$1/${files[$2]} i k
    if [ "$lines_of" != "$path" ]; then
        lines=()
        [ -f "$path" ] && mapfile -t lines <"$path"
        lines_of=$path
    fi
    mapfile -t old < <(printf %s "${olds[$2]}")
    times=0
    for ((i = 0; i + ${#old[@]} <= ${#lines[@]}; ++i)); do
        for ((k = 0; k < ${#old[@]}; ++k)); do
            [ "${lines[i + k]}" = "${old[k]}" ] || continue 2
        done
        at=$i
        times=$((times + 1))
    done
}

# Each old text stands exactly once in its file.
check_faults() {
    local fault stale=0
    for fault in "${!files[@]}"; do
        find_old "$project" "$fault"
        [ "$times" = 1 ] && continue
        say "${places[fault]}: the old text stands $times times in ${files[fault]}"
        stale=$((stale + 1))
    done
    [ "$stale" = 0 ] || stop "$stale of ${#files[@]} faults don't fit the sources; mend the lists"
}

# The copy becomes what the tracked files are now. What is the same stays untouched, so that the builds are incremental.
copy_sources() {
    local name
    mkdir -p "$copy/build"
    git -C "$project" ls-files -z >"$copy/build/tracked"
    while IFS= read -r -d '' name; do
        if [ ! -f "$project/$name" ]; then
            rm -f "$copy/$name"
        elif ! cmp -s "$project/$name" "$copy/$name"; then
            mkdir -p "$(dirname "$copy/$name")"
            cp --preserve=mode "$project/$name" "$copy/$name"
        fi
    done <"$copy/build/tracked"
    if [ -f "$copy/build/copied" ]; then # what is tracked no longer goes
        comm -z -13 <(sort -z "$copy/build/tracked") <(sort -z "$copy/build/copied") |
            while IFS= read -r -d '' name; do rm -f "$copy/$name"; done
    fi
    mv "$copy/build/tracked" "$copy/build/copied"
    rm -f "$before"
}

build_copy() {
    nice -n 15 ninja -C "$copy/build/release" -j "$jobs" >"$log" 2>&1
}

test_copy() {
    (cd "$copy" && nice -n 15 ctest --preset release --stop-on-failure --timeout 60 -j "$jobs") >"$log" 2>&1
}

# seen_by: the tests that the log calls failed, with the first failed function of each.
seen_by() {
    local line by='' functions=''
    local failed='^[[:space:]]+[0-9]+ - ([^ ]+) \(([^)]+)\)' function='^(FAIL!  |QFATAL ) ?: [^:]+::([^(]+)\('
    while IFS= read -r line; do
        if [[ $line =~ $failed ]]; then
            by+="${by:+, }${BASH_REMATCH[1]}"
            [ "${BASH_REMATCH[2]}" = Failed ] || by+=" (${BASH_REMATCH[2]})"
        elif [[ $line =~ $function ]] && [[ " $functions " != *" ${BASH_REMATCH[2]} "* ]]; then
            functions+="${functions:+ }${BASH_REMATCH[2]}"
        fi
    done <"$log"
    printf '%s%s' "${by:-a run that failed}" "${functions:+: ${functions// /, }}"
}

# The first line of the log that bears an error.
build_error() {
    local line
    while IFS= read -r line; do
        [[ $line != *error:* ]] || break
    done <"$log"
    printf %s "$line"
}

# put_in FAULT: writes it into the copy. A new file has the time of now, before and after, so that ninja builds it anew.
put_in() {
    local file=$copy/${files[$1]}
    lines_of=
    find_old "$copy" "$1"
    [ "$times" = 1 ] || stop "${places[$1]}: the old text stands $times times in the copy of ${files[$1]}"
    cp "$file" "$before"
    faulty=$file
    {
        [ "$at" = 0 ] || printf '%s\n' "${lines[@]:0:at}"
        printf %s "${news[$1]}"
        [ $((at + ${#old[@]})) = ${#lines[@]} ] || printf '%s\n' "${lines[@]:at + ${#old[@]}}"
    } >"$file"
}

faulty=
take_out() {
    [ -n "$faulty" ] || return 0
    cp "$before" "$faulty"
    faulty=
}

# try_fault FAULT: one line of what became of it, counted in the table.
try_fault() {
    local room=${rooms[$1]} start=$SECONDS result told
    put_in "$1"
    if ! build_copy; then
        result='NOT BUILT' told=$(build_error)
        unbuilt[$room]=$((${unbuilt[$room]:-0} + 1))
    elif test_copy; then
        result=SURVIVED told='no test'
        survived[$room]=$((${survived[$room]:-0} + 1))
    else
        result=seen told="by $(seen_by)"
        seen[$room]=$((${seen[$room]:-0} + 1))
    fi
    take_out
    printf '%-9s %s: %s (%s, %s s)\n' "$result" "${files[$1]}" "${words[$1]}" "$told" $((SECONDS - start))
}

row() {
    printf '%-12s %8s %8s %8s %9s %8s\n' "$@"
}

# table_row NAME SEEN SURVIVED UNBUILT
table_row() {
    local all=$(($2 + $3 + $4))
    row "$1" "$all" "$2" "$3" "$4" "$((all == 0 ? 0 : (200 * $2 + all) / (2 * all))) %"
}

show_table() {
    local room all_seen=0 all_survived=0 all_unbuilt=0
    echo
    row room faults seen survived unbuilt share
    while IFS= read -r room; do
        table_row "$room" "${seen[$room]:-0}" "${survived[$room]:-0}" "${unbuilt[$room]:-0}"
        all_seen=$((all_seen + ${seen[$room]:-0}))
        all_survived=$((all_survived + ${survived[$room]:-0}))
        all_unbuilt=$((all_unbuilt + ${unbuilt[$room]:-0}))
    done < <(printf '%s\n' "${rooms[@]}" | uniq)
    table_row all "$all_seen" "$all_survived" "$all_unbuilt"
    [ $((all_survived + all_unbuilt)) = 0 ]
}

only='' check='' jobs=$(nproc) lists=()
while [ $# -gt 0 ]; do
    case $1 in
    --check) check=yes ;;
    --only)
        [ $# -gt 1 ] || usage
        only=$2
        shift
        ;;
    -j)
        [ $# -gt 1 ] || usage
        jobs=$2
        shift
        ;;
    -j*) jobs=${1#-j} ;;
    -*) usage ;;
    *) lists+=("$1") ;;
    esac
    shift
done
[[ $jobs =~ ^[1-9][0-9]*$ ]] || usage

[ "${#lists[@]}" -gt 0 ] || lists=("$project"/tests/faults/*.txt)
for list in "${lists[@]}"; do
    read_list "$list"
done
[ "${#files[@]}" -gt 0 ] || stop "no fault in the lists${only:+ has \"$only\" in its file or its words}"
check_faults
if [ -n "$check" ]; then
    say "${#files[@]} faults, each with its place in the sources"
    exit 0
fi

install_packages build
mkdir -p "$copy/build"
exec 9>"$copy/build/lock"
flock -n 9 || stop "another run is at work in $copy"
copy_sources
if [ ! -f "$copy/build/release/build.ninja" ]; then
    say "configuring the copy"
    # All programs are linked anew for each fault: by the faster linker of binutils.
    (cd "$copy" && cmake --preset release -DQUOREL_BENCH=OFF -DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=gold \
        -DCMAKE_MODULE_LINKER_FLAGS=-fuse-ld=gold) >"$log" 2>&1 ||
        stop "the configuration failed; see $log"
fi
say "building and testing without a fault"
build_copy || stop "the copy can't be built as it is: $(build_error); see $log"
test_copy || stop "the tests fail without a fault: $(seen_by); see $log"

trap take_out EXIT
trap 'exit 130' INT TERM HUP
declare -A seen survived unbuilt
say "${#files[@]} faults"
for fault in "${!files[@]}"; do
    try_fault "$fault"
done
show_table
