#!/usr/bin/env bash
# run.sh PROGRAM ARGUMENTS... : runs a Windows program of this checkout by Wine. One of the control library, com_...
# or its helpers, has a prefix and a screen of its own, the tests' printer and a sample engine, and where its name
# says so a resolution of 192 pixels per inch; the others need nothing of the kind and share a prefix.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
checkout=$(cksum <<<"$here" | cut -d ' ' -f 1)
wine=$root/cmake/wine32.sh
printer=$root/tests/com/printing/printer.ppd
adding=$root/build/windows32-checked/bin/addprinter.exe

name=$(basename "$1" .exe)
case $name in
*_tests | fuzz_*)
    [[ $name == com_* ]] || DISPLAY='' exec "$wine" run "$checkout-plain" wine "$@"
    ;;
esac
case $name in *_dpi_tests) export DPI=192 ;; esac
if [ -x "$adding" ]; then
    "$wine" prepare "printer-$(cksum <"$printer" | cut -d ' ' -f 1)" wine "$adding" "$printer"
fi
exec "$root/cmake/with-engine.sh" "$root/cmake/with-screen.sh" 1400x1100 \
    "$wine" run "$checkout-$name${GTEST_SHARD_INDEX:-}" wine "$@"
