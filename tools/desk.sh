# A user at Windows' desk, with the 32-bit add-in and the stand-in Outlook, under Wine; sourced
# behind common.sh, not run. The step that does so has a `language` and a folder `shots`, for
# screenshots and logs.
. "$tools/samples.sh"

bits=32
bin=$build/win$bits/bin
prefix=$build/wine/prefix$bits
rootKey='HKCU\Software\Omberline\Tellwick'
folder="$prefix/drive_c/Tellwick for Outlook"
wine() { "$tools/wine" "$bits" "$@" 2>>"$log" | tr -d '\r'; }

# text SECTION KEY: from the language's file, without the mark of the access key.
text() { textIn "$language" "$1" | sed -n "s/&//g; s/^$2=//p"; }

# Forgets the user before, and lets one of the language's country have the add-in.
newUser() {
    sampleOf "$language"
    rm -rf "$shots" && mkdir -p "$shots"
    log=$shots/wine.log
    wine wineboot >>"$log"
    rm -rf "$folder" && mkdir -p "$folder"
    cp "$bin"/{TellwickOutlookAddIn.dll,Tellwick.exe} "$folder"
    putBeside "$folder"
    wine reg delete "$rootKey" /f >/dev/null || true # there is none on a first run
    settings=$(echo "$prefix"/drive_c/users/*/AppData/Roaming)/Tellwick
    rm -rf "$settings" && mkdir -p "$settings"
    printf '%s\r\n' '[Settings]' "Language=$language" '[Prefixes]' "Remove0InPrefixes=$country" \
        '[Texte]' "Text0=$template" | iconv -f utf-8 -t cp1252 >"$settings/corvane.ini"
    wine reg add 'HKCU\Control Panel\International\Geo' /v Nation /d "$nation" /f >/dev/null
    wine reg add "$rootKey\\OlAddIn" /v Active /d 1 /f >/dev/null
    "$tools/register" "$bits" 'C:\Tellwick for Outlook\TellwickOutlookAddIn.dll'
}

# A stand-in modem on a port for the sender: what it says of the network goes to a file, what happens
# to it comes through a pipe (see modem.py).
useModem() {
    sed -i 's/^\[Settings\]\r$/&\nComPort=COM5\r\nBaudrate=115200\r/' "$settings/corvane.ini"
    rm -f "$shots/phone" && mkfifo "$shots/phone"
    python3 "$root/standin/modem/modem.py" "$prefix/dosdevices/com5" <"$shots/phone" \
        >"$shots/modem" 2>>"$log" &
    exec 5>"$shots/phone"
}

# startOutlook VERSION [OPTION...]: with a pipe for commands and questions about where things are.
startOutlook() {
    rm -f "$shots/commands" && mkfifo "$shots/commands"
    : >"$shots/answers"
    "$tools/wine" "$bits" "$bin/OutlookStandIn.exe" --version "$@" --language "$language" \
        --commands <"$shots/commands" >"$shots/answers" 2>>"$log" &
    outlook=$!
    trap 'kill $outlook 2>/dev/null || true' EXIT
    exec 4>"$shots/commands"
}
# ask COMMAND: prints the stand-in's answer.
ask() {
    local before
    before=$(wc -l <"$shots/answers")
    echo "$1" >&4
    for _ in $(seq 200); do
        if [ "$(wc -l <"$shots/answers")" -gt "$before" ]; then
            sed -n "$((before + 1))s/^ok \{0,1\}//p" "$shots/answers" | tr -d '\r'
            return
        fi
        kill -0 "$outlook" 2>/dev/null || fail "the stand-in Outlook has ended, see $log"
        sleep 0.1
    done
    fail "no answer to: $1"
}
quitOutlook() {
    ask quit >/dev/null
    wine taskkill /im Tellwick.exe >/dev/null || true # the sender stays open behind Outlook
    wait "$outlook" || fail "the stand-in Outlook failed at its end, see $log"
    exec 4>&-
}

# middle WINDOW CONTROL: where a control of a window is on the screen.
middle() { wine "$bin/where.exe" "$1" "$2" || fail "no $2 in the window $1"; }
clickAt() { xdotool mousemove "$1" "$2" sleep 0.1 click 1 sleep 0.2; }
click() { clickAt $(middle "$1" "$2"); }
typeText() { xdotool type --delay 25 "$1"; }
# picture NAME [WINDOW]: of the whole screen, or of one window in its frame.
picture() { sleep 0.4 && import -frame -window "${2:-root}" "$shots/$1.png"; }
# The window that has the keyboard; the mouse moves out of the picture, and its tool tip with it.
activeWindow() { xdotool mousemove 0 0 sleep 0.4 getactivewindow; }
# pointAt CAPTION: the mouse moves onto a button of Outlook's first window.
pointAt() {
    local left top right bottom
    read -r left top right bottom < <(ask "where 1 \"$1\"")
    xdotool mousemove $(((left + right) / 2)) $(((top + bottom) / 2)) sleep 0.3
}
