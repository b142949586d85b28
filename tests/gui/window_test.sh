#!/usr/bin/env bash
# The real program on a real X server, driven from outside by keys: window_test.sh PROGRAM. Once with a window
# manager, once without one and without a session bus on a screen smaller than the window. Waits for what is to
# come, never for a time to pass; whatever it starts ends with it.
set -u
program=$(realpath "$1")
"$(dirname "$0")/../../cmake/install-missing" imagemagick openbox x11-utils x11-xkb-utils xdotool xvfb || exit

place=$(mktemp -d)
started=()
trap 'kill "${started[@]}" 2>/dev/null; wait; rm -rf "$place"' EXIT

# A home with folders of its own, two files alike, and one folder whose search can be watched.
export HOME=$place/home XDG_CACHE_HOME=$place/cache XDG_CONFIG_HOME=$place/config XDG_DATA_HOME=$place/data
export XDG_RUNTIME_DIR=$place/runtime QT_QPA_PLATFORM=xcb
mkdir -p "$HOME/Documents/Old" "$HOME/Many" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
for name in Documents/a.txt Documents/b.txt Documents/Old/a.txt; do
    echo alike >"$HOME/$name"
done
for n in {1..400}; do
    truncate -s 9999999 "$HOME/Many/$n" # takes no room, and some time to read
done

# fail WHAT: it does not hold, and what comes next counts on it
fail() {
    echo "FAILED: $scene: $1"
    cat "$place/complaints"
    exit 1
}

# expect WHAT COMMAND...: waits until the command succeeds
expect() {
    local what=$1 end=$((SECONDS + 20))
    shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS < end)) || fail "$what"
        sleep 0.02
    done
}
windows() { [ "$(xdotool search --onlyvisible --name "^$1\$" | wc -l)" = "$2" ]; }
has_keyboard() { [ "$(xdotool getwindowfocus getwindowname)" = "$1" ]; }
key() { xdotool key --clearmodifiers "$@"; }

# shows PIXELS COLOUR: at least as many pixels of the screen have that colour
shows() {
    import -silent -window root miff:- | convert - -alpha off -depth 8 -format %c histogram:info:- |
        awk -v wanted="$1" -v colour="$2" 'index($0, colour) && $1 + 0 >= wanted { found = 1 } END { exit !found }'
}
# painted TITLE: more than an empty frame
painted() {
    local window
    window=$(xdotool search --onlyvisible --name "^$1\$") &&
        [ "$(import -silent -window "$window" miff:- | convert - -format %k info:-)" -gt 20 ]
}
readonly mark='#0000FF' selected='#308CC6'

# start_server SIZE: on a display that is free
start_server() {
    mkfifo "$place/display"
    Xvfb -displayfd 4 -screen 0 "$1x24" -nolisten tcp 4>"$place/display" 2>/dev/null &
    started+=($!)
    read -r number <"$place/display"
    rm "$place/display"
    export DISPLAY=:$number
}

# start_program [NAME=VALUE...]
start_program() {
    env "$@" "$program" 2>"$place/complaints" &
    running=$!
    started+=("$running")
    expect 'the window comes up' windows Tallyfen 1
}

# end_program: it has been told to end
end_program() {
    timeout 20 tail -f --pid="$running" /dev/null || fail 'the program ends'
    wait "$running" || fail "the program ends well, not with $?"
    [ ! -s "$place/complaints" ] || fail 'nobody complains'
}

# search_documents CLOSE: adds a folder in the Add Folder window by keys alone, closes that by a key, and searches
search_documents() {
    expect 'the window has the keyboard' has_keyboard Tallyfen
    key F2
    expect 'F2 opens the Add Folder window' has_keyboard 'Browse for Folder'
    xdotool type Doc
    key Return Return
    expect 'a folder added twice is refused' windows Tallyfen 2
    expect 'the message has the keyboard' has_keyboard Tallyfen
    key Return
    expect 'Enter closes the message' has_keyboard 'Browse for Folder'
    key "$1"
    expect 'a key closes the Add Folder window' windows 'Browse for Folder' 0
    expect 'the main window has the keyboard again' has_keyboard Tallyfen
    key F3
    expect 'F3 searches, and the marks of a group show' shows 100 "$mark"
}

# search_many: begins a search of the folder that can be watched
search_many() {
    expect 'the window has the keyboard' has_keyboard Tallyfen
    key F2
    expect 'F2 opens the Add Folder window' has_keyboard 'Browse for Folder'
    xdotool type Man
    key Return Escape
    expect 'the main window has the keyboard again' has_keyboard Tallyfen
    key F3
    expect 'F3 searches' has_keyboard Progress
}

scene='with a window manager'
start_server 1024x768
openbox --sm-disable >/dev/null 2>&1 &
started+=($!)
expect 'the window manager comes up' sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "#"'
start_program
search_documents alt+F4
key Tab
setxkbmap ru
xdotool keydown 37 keydown 38 keyup 38 keyup 37 # Ctrl and the key of the letter A
expect 'Ctrl+A selects all rows, whatever the layout' shows 10000 "$selected"
setxkbmap us
search_many
key Escape alt+F4 space
expect 'Cancel alone takes the progress window down' windows Progress 0
expect 'the main window has the keyboard again' has_keyboard Tallyfen
key alt+F4
end_program

scene='with a disk that hangs'
start_program LD_PRELOAD="$(dirname "$program")/bench/libslowdisk.so" SLOWDISK_STUCK=Many
search_many
expect 'the progress window says what it does' painted Progress
key Escape
expect 'Cancel takes the progress window down' windows Progress 0
expect 'the main window has the keyboard again' has_keyboard Tallyfen
key alt+F4
end_program

scene='without a window manager and a session bus'
unset DBUS_SESSION_BUS_ADDRESS
start_server 400x300
start_program
xdotool windowfocus --sync "$(xdotool search --onlyvisible --name '^Tallyfen$')"
search_documents Escape
key alt+f Up Return
end_program
echo "The window does from outside what it has to do."
