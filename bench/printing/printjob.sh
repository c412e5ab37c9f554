#!/usr/bin/env bash
# printjob.sh PROGRAMS [PAGES] : prints a document of PAGES (500) deed pages from the sample engine to a PDF
# file and tells seconds and processor time a page, peak memory and the size of the file against the page
# files.
# PROGRAMS is the folder of pixmo and engine.
set -euo pipefail
programs=$(cd "$1" && pwd)
pages=${2:-500}
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
scratch=$(mktemp -d)
engine=
finish() {
    [ -z "$engine" ] || kill "$engine" 2>/dev/null || true
    rm -rf "$scratch"
}
trap finish EXIT

originals=("$root"/samples/documents/1001/*.tif*)
mkdir -p "$scratch/documents/1" "$scratch/temp"
for ((page = 0; page < pages; ++page)); do
    printf -v name '%05d.tif' "$page"
    cp "${originals[page % ${#originals[@]}]}" "$scratch/documents/1/$name"
done
"$programs/engine" --docs "$scratch/documents" >"$scratch/engine" &
engine=$!
address=
for ((try = 0; try < 100 && ${#address} == 0; ++try)); do
    sleep 0.1
    address=$(sed -n 's/^listening on \(http:[^ ]*\).*/\1/p' "$scratch/engine")
done

start=$(date +%s%N)
TMPDIR=$scratch/temp "$programs/pixmo" --engine "$address" --doc 1 --print-to "$scratch/job.pdf" --cover \
    --caption "Bench" --timeout 3600 2>"$scratch/errors" &
viewer=$!
peak=0
ticks=0
while kill -0 "$viewer" 2>/dev/null; do
    now=$(awk '/VmHWM/ { print $2 }' "/proc/$viewer/status" 2>/dev/null || true)
    peak=${now:-$peak}
    now=$(awk '{ print $14 + $15 }' "/proc/$viewer/stat" 2>/dev/null || true)
    ticks=${now:-$ticks}
    sleep 0.05
done
wait "$viewer" || { cat "$scratch/errors" >&2; exit 1; }
end=$(date +%s%N)

sent=$(cat "$scratch"/documents/1/* | wc -c)
file=$(stat -c %s "$scratch/job.pdf")
awk -v ns=$((end - start)) -v pages="$pages" -v peak="$peak" -v sent="$sent" -v file="$file" \
    -v cpu="$ticks" -v hertz="$(getconf CLK_TCK)" 'BEGIN {
    printf "%d pages: %.1f s, %.3f s a page, processor %.4f s a page, ", pages, ns / 1e9, ns / 1e9 / pages,
           cpu / hertz / pages
    printf "peak %.1f MiB, pages %.2f MB, PDF %.2f MB, ratio %.3f\n", peak / 1024, sent / 1e6, file / 1e6,
           file / sent }'
