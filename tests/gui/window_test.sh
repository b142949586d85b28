#!/usr/bin/env bash
# The real program on a real X server, driven from outside by keys: window_test.sh PROGRAM. Once with a window
# manager, once without one and without a session bus on a screen smaller than the window. Or under a headless
# Wayland compositor, in Debian 13: window_test.sh PROGRAM wayland. Waits for what is to come, never for a time to
# pass; whatever it starts ends with it.
set -u
program=$(realpath "$1")
readonly mode=${2-x11}
packages=(openbox x11-utils x11-xkb-utils xdotool xvfb)
[ "$mode" = x11 ] || packages=(grim labwc qt6-wayland wlrctl wtype)
"$(dirname "$0")/../../cmake/install-missing" imagemagick "${packages[@]}" || exit

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
for n in {1..2000}; do
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
has_keyboard() { xdotool getwindowfocus getwindowname | grep -qx "$1"; }
key() { xdotool key --clearmodifiers "$@"; }
text() { xdotool type "$1"; }
picture() { import -silent -window root miff:-; }

# menu KEYS...: opens the File menu, and presses the keys when it has the keyboard
menu() {
    key alt+f
    expect 'the menu opens' menu_is_open
    key "$@"
}
menu_is_open() { [ "$(xdotool search --onlyvisible --class tallyfen getwindowname %@ | grep -cx tallyfen)" != 0 ]; }

# shows PIXELS COLOUR: at least as many pixels of the screen have that colour
shows() {
    picture | convert - -alpha off -depth 8 -format %c histogram:info:- |
        awk -v wanted="$1" -v colour="$2" 'index($0, colour) && $1 + 0 >= wanted { found = 1 } END { exit !found }'
}
# painted TITLE: more than an empty frame
painted() {
    local window
    window=$(xdotool search --onlyvisible --name "^$1\$") &&
        [ "$(import -silent -window "$window" miff:- | convert - -format %k info:-)" -gt 20 ]
}
hides() { ! shows "$@"; }
covered() { shows 350000 '#FFFFFF' && hides 1 "$mark"; }
readonly mark='#0000FF' selected='#308CC6' shadow='#9F9F9F'

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
    env XDG_DATA_DIRS="$place/none" "$@" "$program" 2>"$place/complaints" & # no application is installed
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

# add_folder START: adds the folder whose name starts so in the Add Folder window, by keys alone
add_folder() {
    expect 'the window has the keyboard' has_keyboard Tallyfen
    key F2
    expect 'F2 opens the Add Folder window' has_keyboard 'Browse for Folder'
    text "$1"
    key Return
}

# search_documents CLOSE: adds a folder, closes the Add Folder window by a key, and searches
search_documents() {
    add_folder Doc
    key Return
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

# search_many: adds the folder whose search can be watched, and begins
search_many() {
    add_folder Man
    key Escape
    expect 'the main window has the keyboard again' has_keyboard Tallyfen
    "$@"
    key F3
    expect 'F3 searches' has_keyboard Progress
}
hold_bar() {
    xdotool mousemove --window "$main" 200 166 mousedown 1
    expect 'the bar between the lists is dark while it is held' shows 1300 "$shadow"
}

if [ "$mode" = wayland ]; then
    # Only keys go in from outside here, so what needs the mouse stays with the X server.
    windows() { [ "$(wlrctl toplevel list | grep -cx "[^:]*: $1")" = "$2" ]; }
    has_keyboard() { wlrctl toplevel find "title:$1" state:active; }
    key() {
        for each; do
            case $each in
            alt+*) wtype -M alt -k "${each#alt+}" -m alt ;;
            *) wtype -k "$each" ;;
            esac
        done
    }
    text() { wtype "$1"; }
    menu_is_open() { true; } # menus are no windows that could be listed
    picture() { grim -; }
    export QT_QPA_PLATFORM=wayland WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman
    scene='under Wayland'
    labwc >"$place/complaints" 2>&1 &
    started+=($!)
    expect 'the compositor comes up' test -S "$XDG_RUNTIME_DIR/wayland-0"
    export WAYLAND_DISPLAY=wayland-0
    wtype -s 1000000000 & # a keyboard that is there all the time
    started+=($!)
    start_program
    search_documents Escape
    menu Down Down Right Up Return
    expect 'Choose Program comes up' has_keyboard 'Choose Program'
    wlrctl toplevel focus title:Tallyfen
    expect 'the main window can be used beside it' has_keyboard Tallyfen
    key alt+F4
    expect 'the main window goes' windows Tallyfen 0
    expect 'Choose Program stands by itself' has_keyboard 'Choose Program'
    key Escape
    end_program
    echo "The window does under Wayland what it has to do."
    exit
fi

scene='with a window manager'
start_server 1024x768
openbox --sm-disable >/dev/null 2>&1 &
started+=($!)
expect 'the window manager comes up' sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "#"'
start_program
search_documents alt+F4
main=$(xdotool search --onlyvisible --name '^Tallyfen$')
xdotool mousemove --window "$main" 100 215 click 1
menu Down Down Right Up Return
expect 'Choose Program comes up' has_keyboard 'Choose Program'
xdotool windowactivate "$main"
expect 'the main window can be used beside it' has_keyboard Tallyfen
setxkbmap ru
xdotool keydown 37 keydown 38 keyup 38 keyup 37 # Ctrl and the key of the letter A
expect 'Ctrl+A selects all rows, whatever the layout' shows 10000 "$selected"
setxkbmap us
files_left() { [ "$(find "$HOME/Documents" -type f | wc -l)" = "$1" ]; }
key Delete
expect 'Delete asks' has_keyboard 'Move to Trash'
key Return
expect 'where no copy would stay, Enter is no' has_keyboard Tallyfen
files_left 3 || fail 'what was not agreed to stays'
key Home Down shift+Down Delete
expect 'Delete asks again' has_keyboard 'Move to Trash'
key Return
expect 'where a copy stays, Enter is yes' files_left 1
[ "$(find "$XDG_DATA_HOME/Trash/files" -type f | wc -l)" = 2 ] || fail 'the others lie in the trash'
expect 'the main window has the keyboard again' has_keyboard Tallyfen
search_many hold_bar
xdotool mouseup 1 windowsize "$main" 1000 700
expect 'the rows stay covered in a larger window' covered
xdotool mousemove --window "$main" 50 600 click 1
expect 'a click on the main window leads to what it waits for' has_keyboard Progress
key Escape alt+F4 space
expect 'Cancel alone takes the progress window down' windows Progress 0
expect 'the main window has the keyboard again' has_keyboard Tallyfen
expect 'the rows show' shows 1000 "$mark"
expect 'the bar has been let go of' hides 2000 "$shadow"
key alt+F4
expect 'the main window goes' windows Tallyfen 0
xdotool windowactivate "$(xdotool search --onlyvisible --name '^Choose Program$')"
expect 'Choose Program stands by itself' has_keyboard 'Choose Program'
key Escape
end_program

scene='with a disk that hangs'
mkdir "$HOME/Many/Stuck" # a folder in it, since the tree of the Add Folder window looks into those that it shows
start_program LD_PRELOAD="$(dirname "$program")/bench/libslowdisk.so" SLOWDISK_STUCK=Stuck
search_many
expect 'the progress window says what it does' painted Progress
key space
expect 'Cancel takes the progress window down' windows Progress 0
expect 'the main window has the keyboard again' has_keyboard Tallyfen
key alt+F4
end_program

scene='without a window manager and a session bus'
unset DBUS_SESSION_BUS_ADDRESS
for name in a.txt b.txt; do
    echo alike >"$HOME/Documents/$name" # the scene before has deleted some
done
start_server 400x300
start_program
xdotool windowfocus --sync "$(xdotool search --onlyvisible --name '^Tallyfen$')"
search_documents Escape
key F4
expect 'F4 opens Save As' has_keyboard 'Save As'
text report
key Return
expect 'that nothing opens the report is said' windows Tallyfen 2
key Return
expect 'Enter closes the message' windows Tallyfen 1
expect 'the main window has the keyboard again' has_keyboard Tallyfen
menu Up Return
end_program
echo "The window does from outside what it has to do."
