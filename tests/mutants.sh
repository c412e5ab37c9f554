#!/usr/bin/env bash
# mutants.sh [COMMIT] [LIST] : how strong the tests of the core and the codecs are. Plants one fault after the other
# (those of tests/mutants.txt, or of LIST) into a copy of COMMIT (HEAD if none is named), builds and runs the tests of
# core and codecs, and says by room how many were killed. What every fault came to, and the text of those that were not
# killed, is in build/mutants/COMMIT.
#
# mutants.sh draw OLD NEW [COUNT] : draws such a list at random, of lines that both commits have, and prints it. What
# OLD does not compile with is replaced by the next one. Takes as long as a run, as it is one, in OLD.
#
# A fault is known by the name of its file, by its line and by the line before it, so that it is found again where files
# have moved. What is found no more, or has become ambiguous, is "lost" and counts neither as killed nor as survived.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/cmake/shell.sh"
export LC_ALL=C.UTF-8
workers=2

# COMMIT WORKER : a copy of the commit with all tests of core and codecs built.
prepare() {
    local place=$root/build/mutants/$1/$2
    mkdir -p "$place/source" "$place/temporary"
    git -C "$root" archive "$1" | tar x -C "$place/source"
    cmake -S "$place/source" -B "$place/build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g0 -w" \
        -DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=gold -DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST \
        -DPIXMO_QT=OFF -DPIXMO_ENGINE=OFF >"$place/configured.log" 2>&1 || fail "cannot configure, see $place/configured.log"
    ninja -C "$place/build" -t targets all | sed -n 's/^\([a-z]*_tests\): phony$/\1/p' | grep -v '^icons_' >"$place/programs"
    # shellcheck disable=SC2046
    ninja -j"$workers" -C "$place/build" $(cat "$place/programs") >"$place/built.log" || fail "does not build, see $place/built.log"
}

# PLACE PROGRAM : runs a test program until the first failure. Its limits end what runs for ever or takes all memory.
passes() {
    (
        ulimit -t 30 -v 4000000 -c 0
        export TMPDIR=$1/temporary TEST_TMPDIR=$1/temporary/
        timeout 120 "$1/build/bin/$2" --gtest_fail_fast --gtest_brief=1 >"$1/tested.log" 2>&1
    ) 2>/dev/null
}

# Reads the fault $2 of the list $1 into the variables that `locate` and `plant` read.
readFault() {
    kind='' name='' before='' line='' new=''
    { IFS=' ' read -r _ name kind && IFS= read -r before && IFS= read -r line && IFS= read -r new; } < <(
        awk -v id="$2" 'BEGIN { RS = ""; FS = "\n" }
            $1 ~ "^" id " " { print $1; for (i = 2; i <= 4; i++) print substr($i, 3) }' "$1")
    export name before line new
}

# SOURCE : prints the path of the fault's line and its number, or nothing where it is not found exactly once.
locate() {
    (
        cd "$1"
        find core codecs -name '*.cpp' -exec awk '
            function seen(how) { count[how]++; place[how] = FILENAME " " FNR }
            FNR == 1 { previous = "" }
            { text = $0; sub(/^ +/, "", text) }
            text == ENVIRON["line"] {
                named = FILENAME ~ "/" ENVIRON["name"] "$"
                if (named && previous == ENVIRON["before"]) seen(1)
                if (named) seen(2)
                if (previous == ENVIRON["before"]) seen(3)
                seen(4)
            }
            text != "" { previous = text }
            END { for (how = 1; how <= 4; how++) if (count[how] == 1) { print place[how]; exit } }' {} +
    )
}

# FILE NUMBER : the fault in place of the line; the file stays beside itself as it was.
plant() {
    cp "$1" "$1.kept"
    awk -v number="$2" '
        FNR == number { match($0, /^ */); $0 = substr($0, 1, RLENGTH) ENVIRON["new"] } { print }' "$1.kept" >"$1"
}

# PLACE PATH : builds and runs the program of the fault's own room first, then the others; says which of them fails.
killer() {
    local room program others=()
    room=$(sed -E 's,^(core/)?([a-z]+)/.*,\2,' <<<"$2")
    grep -qx "${room}_tests" "$1/programs" || room=control
    ninja -j1 -C "$1/build" "${room}_tests" >"$1/built.log" || { echo broken && return; }
    passes "$1" "${room}_tests" || { echo "killed ${room}_tests" && return; }
    [ "$room" != codecs ] || { echo survived && return; }
    mapfile -t others < <(grep -vx -e "${room}_tests" -e codecs_tests "$1/programs")
    ninja -j1 -C "$1/build" "${others[@]}" codecs_tests >"$1/built.log" || { echo broken && return; }
    for program in "${others[@]}" codecs_tests; do
        passes "$1" "$program" || { echo "killed $program" && return; }
    done
    echo survived
}

# COMMIT WORKER LIST RESULTS : every fault that no other worker has taken; a row "id kind path result" for each.
work() {
    local place=$root/build/mutants/$1/$2 id path number result
    while read -r id; do
        mkdir "$4.taken/$id" 2>/dev/null || continue
        readFault "$3" "$id"
        read -r path number < <(locate "$place/source") || { echo "$id $kind $name lost" >>"$4" && continue; }
        plant "$place/source/$path" "$number"
        result=$(killer "$place" "$path")
        cp "$place/source/$path.kept" "$place/source/$path"
        echo "$id $kind $path $result" >>"$4"
    done < <(sed -nE 's/^([0-9]+) .*/\1/p' "$3")
}

# RESULTS : the table by room.
table() {
    sort -k3 "$1" | awk '
        { room = $3; sub(/\/[^\/]*$/, "", room); if ($4 == "lost") room = "(not found)" }
        !(room in all) { order[++rooms] = room }
        { all[room]++; got[room, $4]++; got["all", $4]++; all["all"]++ }
        END {
            order[++rooms] = "all"
            print "| room | mutants | killed | survived | lost |\n|---|---|---|---|---|"
            for (i = 1; i <= rooms; i++) { r = order[i]
                printf "| `%s` | %d | %d | %d | %d |\n", r, all[r], got[r, "killed"], got[r, "survived"],
                    got[r, "lost"] + got[r, "broken"] }
        }'
}

run() {
    local commit list=$2 results id worker
    commit=$(git -C "$root" rev-parse --short "$1^{commit}")
    results=$root/build/mutants/$commit/results
    rm -rf "$results" "$results.taken"
    mkdir -p "$results.taken"
    # One after the other: the second finds the objects of the first in the cache.
    for ((worker = 1; worker <= workers; worker++)); do prepare "$commit" $worker; done
    while read -r id; do
        passes "$root/build/mutants/$commit/1" "$id" ||
            fail "$id fails without any fault, see build/mutants/$commit/1/tested.log"
    done <"$root/build/mutants/$commit/1/programs"
    for ((worker = 1; worker <= workers; worker++)); do work "$commit" $worker "$list" "$results" & done
    wait
    sort -n -o "$results" "$results"
    rm -rf "$results.taken"
    table "$results"
    grep -v ' killed' "$results" | while read -r id _; do
        awk -v id="$id" 'BEGIN { RS = ""; FS = "\n" } $1 ~ "^" id " " { print $0 "\n" }' "$list"
    done >"$root/build/mutants/$commit/survivors" || true
    say "$(wc -l <"$results") mutants in $SECONDS s; what survived or was lost: build/mutants/$commit/survivors"
}

# OLD NEW COUNT : candidates by chance, in their order; those that OLD compiles with stay, as many as asked for.
draw() {
    local old place drawn
    old=$(git -C "$root" rev-parse --short "$1^{commit}")
    place=$root/build/mutants/draw
    rm -rf "$place"
    mkdir -p "$place/old" "$place/new"
    git -C "$root" archive "$1" core codecs | tar x -C "$place/old"
    git -C "$root" archive "$2" core codecs | tar x -C "$place/new"
    drawn=$place/candidates
    (cd "$place" && find new old -name '*.cpp' | sort | xargs awk -f "$root/tests/mutants.awk") | sort -n |
        awk -F'\t' -v most=$(($3 * 5 / 4)) 'NR <= most {
            sub(/^[^ ]* /, "")
            printf "%d %s\n  %s\n- %s\n+ %s\n\n", NR, $1, $2, $3, $4 }' >"$drawn"
    run "$old" "$drawn" >&2
    awk -v most="$3" 'BEGIN { RS = ""; FS = "\n" }
        FNR == NR { compiles[$1] = 1; next }
        { id = $1; sub(/ .*/, "", id) }
        id in compiles && ++kept <= most { sub(/^[0-9]+/, kept); print $0 "\n" }' \
        <(awk '$4 != "broken" { print $1 "\n" }' "$root/build/mutants/$old/results") "$drawn"
}

renice -n 10 $$ >/dev/null
case ${1:-} in
draw) draw "$2" "$3" "${4:-200}" ;;
*) run "${1:-HEAD}" "${2:-$root/tests/mutants.txt}" ;;
esac
