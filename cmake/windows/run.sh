#!/usr/bin/env bash
# run.sh PROGRAM ARGUMENTS... : runs a Windows program of this checkout in a prefix of its own.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
checkout=$(cksum <<<"$here" | cut -d ' ' -f 1)
exec "$here/../wine32.sh" run "$checkout-$(basename "$1" .exe)" wine "$@"
