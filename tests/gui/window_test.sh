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
scene=

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
    [ ! -s "$place/complaints" ] || cat "$place/complaints"
    exit 1
}

# expect WHAT COMMAND...: waits until the command succeeds
expect() {
    local what=$1 end=$((SECONDS + 20))
    shift
    until "$@" >/dev/null 2>&1; do
        if ((SECONDS > end)) || ended; then
            fail "$what"
        fi
        sleep 0.02
    done
}
ended() { [ ! -d "/proc/$running" ] || grep -q "^State:.Z" "/proc/$running/status" 2>/dev/null; }
window() { xdotool search --onlyvisible --name "^$1\$"; }
no_window() { ! window "$1"; }
two_windows() { [ "$(window "$1" | wc -l)" = 2 ]; }
one_window() { [ "$(window "$1" | wc -l)" = 1 ]; }
has_keyboard() { [ "$(xdotool getwindowfocus getwindowname)" = "$1" ]; }
fixed() { xprop -id "$(window "$1")" _NET_WM_ALLOWED_ACTIONS | grep CLOSE | grep -qv MAXIMIZE; }
key() { xdotool key --clearmodifiers "$@"; }

# shows PIXELS COLOUR: at least as many pixels of the screen have that colour
shows() {
    import -silent -window root miff:- | convert - -alpha off -depth 8 -format %c histogram:info:- |
        awk -v wanted="$1" -v colour="$2" 'index($0, colour) && $1 + 0 >= wanted { found = 1 } END { exit !found }'
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

start_program() {
    "$program" 2>"$place/complaints" &
    running=$!
    started+=("$running")
}

# end_program: it has been told to end
end_program() {
    local end=$((SECONDS + 20)) status=0
    until ended; do
        ((SECONDS < end)) || fail 'the program ends'
        sleep 0.02
    done
    wait "$running" || status=$?
    [ $status = 0 ] || fail "the program ends well, not with $status"
    [ ! -s "$place/complaints" ] || fail 'nobody complains'
}

# add_folders: the Add Folder window, by keys alone
add_folders() {
    key F2
    expect 'F2 opens the Add Folder window' window 'Browse for Folder'
    expect 'it has the keyboard' has_keyboard 'Browse for Folder'
    xdotool type Doc
    key Return Return
    expect 'a folder added twice is refused' two_windows Tallyfen
    expect 'the message has the keyboard' has_keyboard Tallyfen
    key Return
    expect 'Enter closes the message' one_window Tallyfen
    expect 'the Add Folder window has the keyboard again' has_keyboard 'Browse for Folder'
}

scene='with a window manager'
start_server 1024x768
openbox --sm-disable >/dev/null 2>&1 &
started+=($!)
running=$!
expect 'the window manager comes up' sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "#"'
start_program
expect 'the window comes up' window Tallyfen
expect 'it has the keyboard' has_keyboard Tallyfen
add_folders
expect 'what cannot be resized cannot be maximised' fixed 'Browse for Folder'
key Escape
expect 'Esc closes the Add Folder window' no_window 'Browse for Folder'
expect 'the main window has the keyboard again' has_keyboard Tallyfen
key F3
expect 'F3 searches, and the marks of a group show' shows 100 "$mark"
key Tab
setxkbmap ru
xdotool keydown 37 keydown 38 keyup 38 keyup 37 # Ctrl and the key of the letter A
expect 'Ctrl+A selects all rows, whatever the layout' shows 10000 "$selected"
setxkbmap us
key F2
expect 'F2 opens the Add Folder window' has_keyboard 'Browse for Folder'
xdotool type Man
key Return Escape
expect 'the main window has the keyboard again' has_keyboard Tallyfen
key F3
expect 'F3 searches' has_keyboard Progress
key Escape
xdotool key --window "$(window Progress)" alt+F4
key space
expect 'Cancel takes the progress window down' no_window Progress
expect 'the main window has the keyboard again' has_keyboard Tallyfen
key alt+F4
end_program

scene='without a window manager and a session bus'
unset DBUS_SESSION_BUS_ADDRESS
start_server 400x300
start_program
expect 'the window comes up' window Tallyfen
xdotool windowfocus --sync "$(window Tallyfen)"
add_folders
key Escape
expect 'Esc closes the Add Folder window' no_window 'Browse for Folder'
expect 'the main window has the keyboard again' has_keyboard Tallyfen
key F3
expect 'F3 searches, and the marks of a group show' shows 100 "$mark"
xdotool windowsize "$(window Tallyfen)" 60 1
xdotool windowsize "$(window Tallyfen)" 1 900
xdotool windowsize --sync "$(window Tallyfen)" 500 300
key alt+f Up Return
end_program
echo "The window does from outside what it has to do."
