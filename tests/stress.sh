#!/usr/bin/env bash
# stress.sh N [linux | windows] : runs the suites N times each, or only the one named, every third time beside four
# busy loops, and says what failed how often. The reports of runs that failed stay in build/stress. After ./test, which
# installs what the suites need.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/cmake/shell.sh"
export LC_ALL=C.UTF-8
runs=${1:?"how many runs?"}
case ${2:-both} in
linux) presets=(release) ;;
windows) presets=(windows32-checked) ;;
both) presets=(release windows32-checked) ;;
*) fail "no suite is called $2" ;;
esac
reports=$root/build/stress
loops=()

stopLoops() {
    [ ${#loops[@]} -eq 0 ] || kill "${loops[@]}" 2>/dev/null || true
    loops=()
}
trap stopLoops EXIT

startLoops() {
    local i
    for ((i = 0; i < 4; i++)); do
        while :; do :; done &
        loops+=($!)
    done
}

# PRESET RUN : one run of a suite; its report stays when something failed.
runOnce() {
    local report=$reports/$1.$2.log status=0 beside=
    if (($2 % 3 == 0)); then
        beside=" beside four busy loops"
        startLoops
    fi
    "$root/cmake/with-screen.sh" 1400x1100 ctest --preset "$1" --parallel "$(nproc)" >"$report" 2>&1 || status=$?
    stopLoops
    say "$1, run $2 of $runs$beside: $(grep -o '[0-9]* tests failed out of [0-9]*' "$report" || echo "ctest status $status")"
    [ "$status" -ne 0 ] || rm "$report"
    return "$status"
}

# What failed in any run, the most frequent first: tests, and programs that ended in another way.
sumUp() {
    cat "$reports"/*.log 2>/dev/null |
        sed -nE 's/^\t *[0-9]+ - (.*) \(([A-Za-z ]+)\)$/\1: \2/p
            /tests?, listed below/,/FAILED TEST/ s/^\[  FAILED  \] ([^ ,]+).*/  \1/p' |
        sort | uniq -c | sort -rn
}

cd "$root"
rm -rf "$reports"
mkdir -p "$reports"
failed=0
for preset in "${presets[@]}"; do
    buildPreset "$preset"
    for ((run = 1; run <= runs; run++)); do
        runOnce "$preset" "$run" || failed=$((failed + 1))
    done
done
sumUp
say "$((runs * ${#presets[@]} - failed)) runs passed, $failed failed; ${SECONDS} s"
[ "$failed" -eq 0 ]
