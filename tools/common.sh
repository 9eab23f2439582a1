# Shared by the steps of `run`; sourced, not run.
set -Eeuo pipefail

# No step ends without a word: what fails and has not said so itself is named here, by its line in
# the script, whatever function that led into. A step that keeps a log names it in `log`.
unexpected() {
    local status=$? line=${BASH_LINENO[-2]}
    printf 'error: %s, line %s, status %s: %s%s\n' "${0##*/}" "$line" "$status" \
        "$(sed -n "${line}s/^ *//p" "$0")" "${log:+ (see $log)}" >&2
}
trap unexpected ERR

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
tools=$root/tools
build=$root/build
# Umlauts are typed and read whatever the caller's environment says, or where it says nothing.
export LC_ALL=C.UTF-8
# Outside the checkout, so that every clone of one user shares it.
wine32Root=${XDG_CACHE_HOME:-$HOME/.cache}/tellwick/wine32-root

say() { printf '== %s\n' "$*"; }
fail() { printf 'error: %s\n' "$*" >&2 && exit 1; }

# Configures and builds the named presets.
buildPresets() {
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache
        # What one clone compiled serves the next one. What is new is not preprocessed twice.
        export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1 CCACHE_DEPEND=1
    fi
    local preset
    for preset in "$@"; do
        say "build $preset"
        (cd "$root" && cmake --preset "$preset" >"$build/$preset-configure.log" 2>&1) ||
            { cat "$build/$preset-configure.log" && fail "configuring $preset failed"; }
        (cd "$root" && cmake --build --preset "$preset" -- --quiet) || fail "building $preset failed"
    done
}

# distIsDue VERSION: whether build/dist does not hold what the built libraries and the other sources
# make.
distIsDue() {
    local setup=$build/dist/TellwickForOutlook-$1.exe
    [ ! -f "$setup" ] ||
        [ -n "$(find "$build"/win{32,64}/bin/TellwickOutlookAddIn.dll \
            "$build/win32/bin/Tellwick.exe" \
            "$root"/{packaging,lang,manual} "$tools"/{dist,msi} -newer "$setup")" ]
}

# useDisplay 32|64: from here on, where `tools/with-display --each` made two.
useDisplay() {
    [ "$1" = 32 ] && [ -n "${TELLWICK_DISPLAY32:-}" ] || return 0
    export DISPLAY=$TELLWICK_DISPLAY32 XAUTHORITY=$TELLWICK_AUTHORITY32
}

# putBeside FOLDER: what a library in that folder finds beside itself: languages and manual.
putBeside() {
    "$tools/help"
    cp -r "$root/lang" "$1/lang"
    cp -rL "$root/manual" "$1/Manual" # its languages share a style sheet
    cp "$build/help"/*.chm "$1"
}
# textIn LANGUAGE SECTION: a section of a language's file, as UTF-8.
textIn() {
    local codePage
    codePage=$(LC_ALL=C sed -n 's/^CodePage=\([0-9]*\).*/\1/p' "$root/lang/$1.lng")
    iconv -f "cp$codePage" -t utf-8 "$root/lang/$1.lng" | tr -d '\r' | sed -n "/^\[$2\]/,/^\$/p"
}
mkdir -p "$build"
