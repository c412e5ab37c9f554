#!/usr/bin/env bash
# libraries.sh ARCHITECTURE : builds the static image libraries for Windows (i686 or x86_64) from the
# distribution's own sources, in the versions that the system itself has installed here where its archives still
# have them, and prints the folder they are in. What has been built once is there for every checkout.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
architecture=$1
tools=$architecture-w64-mingw32
development=(zlib1g-dev libjpeg62-turbo-dev libpng-dev libtiff-dev libgif-dev)
exec 3>&1 >&2

fail() {
    echo "libraries: $*"
    exit 1
}

cache=${XDG_CACHE_HOME:-${HOME:-/nonexistent}/.cache}/pixmo
mkdir -p "$cache" 2>/dev/null || cache=$here/../../build/cache
mkdir -p "$cache"
cache=$(cd "$cache" && pwd)

# Lines "source version".
versions() {
    # shellcheck disable=SC2016
    dpkg-query -W -f '${source:Package} ${source:Version}\n' "${development[@]}" ||
        fail "these packages are needed: ${development[*]}"
}

key=$({
    versions
    "$tools-gcc-posix" -dumpfullversion
    cat "$here/libraries.sh" "$here/toolchain.cmake"
} | sha256sum | cut -c1-16)
prefix=$cache/windows-$architecture-$key

# askArchives LINES : makes an apt of our own, `call`, that knows only these archives.
askArchives() {
    local apt=$work/apt
    rm -rf "$apt"
    mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial"
    echo "$1" >"$apt/sources.list"
    call=(apt-get -q -o "Dir::Etc::SourceList=$apt/sources.list" -o Dir::Etc::SourceParts=- -o
        "Dir::State::Lists=$apt/lists" -o "Dir::Cache=$apt/cache" -o APT::Sandbox::User= -o Acquire::Languages=none
        -o Acquire::Retries=3)
    "${call[@]}" update
}

# fetchMissing [exact] : the sources that are not there yet, in the installed version or in any.
fetchMissing() {
    local name version
    while read -r name version; do
        compgen -G "$work/${name}_*.dsc" >/dev/null ||
            (cd "$work" && "${call[@]}" source --download-only "$name${1:+=$version}") || true
    done < <(versions)
}

# The sources lie where this machine gets its packages. An archive of security updates does not keep for ever
# what it lists: it is asked last, and what it has lost is taken in the version before.
fetch() {
    local lines call
    # shellcheck disable=SC2016
    lines=$(apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' \
        'Origin: Debian' 'Component: main' | sort -u)
    askArchives "$(grep -v -- '-security ' <<<"$lines")"
    fetchMissing exact
    askArchives "$lines"
    fetchMissing exact
    askArchives "$(grep -v -- '-security ' <<<"$lines")"
    fetchMissing
}

unpack() {
    local name
    while read -r name _; do
        dpkg-source --no-check -x "$work/${name}"_*.dsc "$work/$name"
    done < <(versions)
}

# withCMake SOURCE TARGET OPTION... : builds and installs one library; TARGET is what is built of it.
withCMake() {
    local name=$1 target=$2
    shift 2
    cmake -G Ninja -S "$work/$name" -B "$work/build-$name" -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" \
        -DPIXMO_WINDOWS="$architecture" -DPIXMO_WINDOWS_LIBRARIES="$made" -DCMAKE_INSTALL_PREFIX="$made" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_C_FLAGS="-ffile-prefix-map=$work=." "$@"
    cmake --build "$work/build-$name" --target "$target"
}

buildZlib() {
    withCMake zlib zlibstatic
    cp "$work/build-zlib/libzlibstatic.a" "$made/lib/libz.a"
    cp "$work/zlib/zlib.h" "$work/build-zlib/zconf.h" "$made/include/"
}

# CMake has no say in this one; its library is a handful of files.
buildGif() {
    local file
    for file in dgif_lib egif_lib gifalloc gif_err gif_hash openbsd-reallocarray quantize; do
        "$tools-gcc-posix" -O2 -w -std=gnu99 "-ffile-prefix-map=$work=." -c "$work/giflib/$file.c" -o "$work/$file.o"
    done
    "$tools-gcc-ar" rcs "$made/lib/libgif.a" "$work"/*.o
    cp "$work/giflib/gif_lib.h" "$made/include/"
}

build() {
    mkdir -p "$made/lib" "$made/include"
    buildZlib
    withCMake libjpeg-turbo install -DENABLE_SHARED=0 -DWITH_TURBOJPEG=0
    withCMake libpng1.6 install -DPNG_SHARED=0 -DPNG_TESTS=0 -DPNG_EXECUTABLES=0
    withCMake tiff install -DBUILD_SHARED_LIBS=0 -Dtiff-tools=0 -Dtiff-tests=0 -Dtiff-contrib=0 -Dtiff-docs=0 \
        -Dlzma=0 -Dzstd=0 -Dwebp=0 -Dlerc=0 -Djbig=0 -Dlibdeflate=0 -Dcxx=0
    buildGif
}

make() {
    local work=$1 made=$1/made
    fetch
    unpack
    build
    mv "$made" "$prefix"
}

if [ ! -d "$prefix" ]; then
    exec 9>"$prefix.lock"
    flock 9
    if [ ! -d "$prefix" ]; then
        echo "== building the image libraries for $architecture"
        scratch=$(mktemp -d "$cache/work-XXXXXX")
        trap 'rm -rf "$scratch"' EXIT
        make "$scratch" >"$prefix.log" 2>&1 9>&- & # not in a condition, where no failure would end it
        if ! wait $!; then
            tail -n 30 "$prefix.log"
            fail "cannot build them; the whole report is in $prefix.log"
        fi
    fi
fi
echo "$prefix" >&3
