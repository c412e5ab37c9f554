#!/usr/bin/env bash
# with-engine.sh COMMAND... : runs the command beside a sample engine of its own: PIXMO_ENGINE is its address,
# PIXMO_SAMPLES the documents it serves. Without a built engine the command runs alone.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
engine=$root/build/release/bin/engine
scratch=$(mktemp -d)
jobs=()

finish() {
    local job
    for job in "${jobs[@]}"; do
        if kill "$job" 2>/dev/null; then
            wait "$job" 2>/dev/null || true
        fi
    done
    rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

if [ -x "$engine" ]; then
    export PIXMO_ENGINE='' PIXMO_SAMPLES=$root/samples/documents
    : >"$scratch/engine"
    "$engine" --control --docs "$PIXMO_SAMPLES" >"$scratch/engine" 2>&1 &
    jobs+=($!)
    for ((turn = 0; turn < 200 && ${#PIXMO_ENGINE} == 0; turn++)); do
        sleep 0.05
        PIXMO_ENGINE=$(sed -n 's/^listening on \(http:[^ ]*\).*/\1/p' "$scratch/engine" | head -n 1)
    done
fi

# In the background, so that a signal to this script ends the command at once.
"$@" <&0 &
jobs+=($!)
wait $!
