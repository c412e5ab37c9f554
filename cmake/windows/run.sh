#!/usr/bin/env bash
# run.sh PROGRAM ARGUMENTS... : runs a Windows program of this checkout by Wine, in a prefix and on a screen of its
# own. Where the sample engine is built, one runs beside it: PIXMO_ENGINE is its address, PIXMO_SAMPLES the
# documents it serves.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
checkout=$(cksum <<<"$here" | cut -d ' ' -f 1)
engine=$root/build/release/bin/engine
scratch=$(mktemp -d)
jobs=()

finish() {
    local job
    for job in "${jobs[@]}"; do
        kill "$job" 2>/dev/null && wait "$job" 2>/dev/null
    done
    rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

if [ -x "$engine" ]; then
    "$engine" --control --docs "$root/samples/documents" >"$scratch/engine" 2>&1 &
    jobs+=($!)
    PIXMO_ENGINE=
    for ((turn = 0; turn < 200; turn++)); do
        [ -z "$PIXMO_ENGINE" ] || break
        sleep 0.05
        PIXMO_ENGINE=$(sed -n 's/^listening on \(http:[^ ]*\).*/\1/p' "$scratch/engine" | head -n 1)
    done
    export PIXMO_ENGINE PIXMO_SAMPLES=$root/samples/documents
fi

# In the background, so that a signal to this script ends the program at once.
"$root/cmake/with-screen.sh" 1400x1100 \
    "$root/cmake/wine32.sh" run "$checkout-$(basename "$1" .exe)" wine "$@" <&0 &
jobs+=($!)
wait $!
