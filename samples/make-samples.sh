#!/usr/bin/env bash
# make-samples.sh [FOLDER] : makes the sample documents anew (in samples/documents unless told otherwise).
# The packages it needs are listed in README.md; the same packages make the same bytes.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
recipe=$here/recipe
mkdir -p "${1:-$here/documents}"
documents=$(cd "${1:-$here/documents}" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export PYTHONDONTWRITEBYTECODE=1 LC_ALL=C.UTF-8

# typeset NAME : recipe/NAME.tex to NAME.pdf, in the scratch folder.
typeset() {
    cp "$recipe/$1.tex" "$scratch"
    (cd "$scratch" && xelatex -interaction=batchmode -halt-on-error "$1.tex" >/dev/null) || {
        cat "$scratch/$1.log" >&2
        exit 1
    }
}

# fresh DOCID : the document's folder, empty.
fresh() {
    echo "document $1" >&2
    rm -rf "${documents:?}/$1"
    mkdir -p "$documents/$1"
    echo "$documents/$1"
}

"$recipe/deed.py" courses "$scratch/courses.tex"
for name in deed fax minutes; do
    typeset "$name"
done
"$recipe/deed.py" pages "$scratch/deed.pdf" "$(fresh 1001)"
"$recipe/fax.py" "$scratch/fax.pdf" "$(fresh 1002)"
"$recipe/landscape.py" "$(fresh 1003)/page01.jpg"
"$recipe/parishmap.py" "$(fresh 1004)/page01.png"
"$recipe/pumpingstation.py" "$(fresh 1005)/page01.tif"
"$recipe/minutes.py" "$scratch/minutes.pdf" "$(fresh 1006)/minutes.tif"
