#!/usr/bin/env bash
# with-screen.sh WIDTHxHEIGHT COMMAND... : runs the command on a virtual screen of its own, with a window
# manager where openbox is installed, and ends with the command's exit status.
set -uo pipefail
size=$1
shift
scratch=$(mktemp -d)
jobs=()

finish() {
    local index
    for ((index = ${#jobs[@]} - 1; index >= 0; index--)); do
        kill "${jobs[index]}" 2>/dev/null && wait "${jobs[index]}" 2>/dev/null
    done
    rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# waitFor SECONDS FILE PROCESS : until the file has something in it, while the process lives.
waitFor() {
    local turn
    for ((turn = 0; turn < $1 * 20; turn++)); do
        [ -s "$2" ] && return 0
        kill -0 "$3" 2>/dev/null || return 1
        sleep 0.05
    done
    return 1
}

Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp -noreset 3>"$scratch/display" >"$scratch/log" 2>&1 &
jobs+=($!)
if ! waitFor 30 "$scratch/display" $!; then
    echo "with-screen: the virtual display does not start" >&2
    cat "$scratch/log" >&2
    exit 1
fi
DISPLAY=:$(<"$scratch/display")
export DISPLAY
unset WAYLAND_DISPLAY XAUTHORITY

if command -v openbox >/dev/null; then
    openbox --sm-disable --startup "sh -c 'echo up >\"$scratch/manager\"'" >"$scratch/openbox" 2>&1 &
    jobs+=($!)
    waitFor 10 "$scratch/manager" $! || echo "with-screen: going on without a window manager" >&2
fi

# In the background, so that a signal to this script ends the command at once.
"$@" <&0 &
command=$!
jobs+=("$command")
wait "$command"
