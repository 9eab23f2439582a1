# Shared by the tests of what is installed under Wine; sourced with 32|64, not run. The 64-bit ones
# have the 64-bit library in a 64-bit Outlook.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

bits=${1:?32 or 64}
windows=$bits
[ "$bits" = 32 ] || windows=wow64
[ -n "${DISPLAY:-}" ] || exec "$tools/with-display" "$0" "$@"
useDisplay "$bits"

work=$build/${0##*/}/$bits
disk=$build/wine/prefix$windows/drive_c
bin=$build/win$bits/bin
library=TellwickOutlookAddIn$([ "$bits" = 32 ] || echo 64).dll
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
class='{6B0B7E52-3C0A-4E0B-9C3A-5D1B7A2F4C81}'
rootKey='HKCU\Software\Omberline\Tellwick'
log=$work/wine.log

! distIsDue "$version" || fail 'the set-up program is missing or old: make it with ./run dist'
rm -rf "$work" && mkdir -p "$work"

wine() { "$tools/wine" "$windows" "$@" 2>>"$log" | tr -d '\r'; }
# value KEY NAME: empty when there is none.
value() { { wine reg query "$1" /v "$2" || true; } | sed -n 's/.*REG_[A-Z]* *//p'; }
check() { "${@:2}" || fail "$1"; }
equal() { [ "$2" = "$3" ] || fail "$1: $2 instead of $3"; }
sum() { sha256sum <"$1"; }
# liveIn COUNTRY: by the number that the system has for it.
liveIn() { wine reg add 'HKCU\Control Panel\International\Geo' /v Nation /d "$1" /f >/dev/null; }
# Wine looks for classes in the machine's part of the registry only.
shareClasses() {
    local name
    for name in TellwickOutlookAddIn.Connect "CLSID\\$class"; do
        wine reg delete "HKLM\\Software\\Classes\\$name" /f >/dev/null || true
        wine reg copy "HKCU\\Software\\Classes\\$name" "HKLM\\Software\\Classes\\$name" /s /f \
            >/dev/null || true
    done
}

# --- a stand-in Outlook with a pipe for commands --------------------------------------------------
startOutlook() {
    rm -f "$work/commands" && mkfifo "$work/commands"
    : >"$work/answers"
    "$tools/wine" "$windows" "$bin/OutlookStandIn.exe" --version "$1" --commands \
        <"$work/commands" >"$work/answers" 2>>"$log" &
    outlook=$!
    exec 4>"$work/commands"
}
ask() {
    local before
    before=$(wc -l <"$work/answers")
    echo "$1" >&4
    for _ in $(seq 150); do
        if [ "$(wc -l <"$work/answers")" -gt "$before" ]; then
            sed -n "$((before + 1))p" "$work/answers" | tr -d '\r'
            return
        fi
        sleep 0.1
    done
    fail "no answer to: $1"
}
quitOutlook() {
    ask quit >/dev/null
    wait "$outlook" || fail "the add-in left something behind: $(grep '^end' "$work/answers")"
    exec 4>&-
}
