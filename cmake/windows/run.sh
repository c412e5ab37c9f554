#!/usr/bin/env bash
# run.sh PROGRAM ARGUMENTS... : runs a Windows program of this checkout by Wine, in a prefix and on a screen of its
# own, with the tests' printer and beside a sample engine.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
checkout=$(cksum <<<"$here" | cut -d ' ' -f 1)
wine=$root/cmake/wine32.sh
printer=$root/tests/com/printing/printer.ppd
adding=$root/build/windows32-checked/bin/addprinter.exe

if [ -x "$adding" ]; then
    "$wine" prepare "printer-$(cksum <"$printer" | cut -d ' ' -f 1)" wine "$adding" "$printer"
fi
exec "$root/cmake/with-engine.sh" "$root/cmake/with-screen.sh" 1400x1100 \
    "$wine" run "$checkout-$(basename "$1" .exe)" wine "$@"
