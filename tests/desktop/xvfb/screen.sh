# shellcheck shell=bash
# Makes a separate screen for a script that uses the built program as a person would.
# Sourced with the arguments LEDGERBOOK CLB [PICTURE]. PICTURE keeps what the screen showed at the end or at a
# failure. $SCREEN_DARK gives the desktop dark colours, $QT_SCALE_FACTOR gives it more pixels.
# Sets $ledgerbook, $clb, $work (a folder that is removed at the end) and $picture, and defines fail, window,
# start and finish.
ledgerbook=$1
clb=$2
work=$(mktemp -d)
picture=${3:-$work/screen.png}
server=
manager=
program=
cleanup() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT
fail() {
    echo "FAILED: $*" >&2
    [ -z "${DISPLAY:-}" ] || import -window root "$picture" 2>/dev/null || true
    exit 1
}

screen=1280x800x24
[ "${QT_SCALE_FACTOR:-1}" = 1 ] || screen=2560x1600x24
# The X server chooses a free number and reports it. It must not start again when a client leaves, because a
# program that connects at that moment is turned away.
Xvfb -noreset -displayfd 3 -screen 0 "$screen" -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
server=$!
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.1; done
[ -s "$work/display" ] || fail "no X server: $(cat "$work/xvfb.log")"
DISPLAY=:$(tr -d '[:space:]' <"$work/display")
export DISPLAY
# Uses no dialogs of a desktop and no input method: keys go to the program alone.
unset XDG_CURRENT_DESKTOP WAYLAND_DISPLAY QT_QPA_PLATFORMTHEME
export QT_QPA_PLATFORM=xcb QT_IM_MODULE=compose HOME=$work LC_ALL=C.UTF-8

# The colours of a desktop, stored where the toolkit looks for them.
if [ -n "${SCREEN_DARK:-}" ]; then
    mkdir -p "$HOME/.config"
    for part in View Window Button Tooltip; do
        printf '[Colors:%s]\nBackgroundNormal=35,38,41\nForegroundNormal=239,240,241\n' "$part"
    done >"$HOME/.config/kdeglobals"
    export XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5
fi

# A window manager, as on every desktop. It answers a question like this one only when it is ready.
openbox --sm-disable 2>"$work/openbox.log" &
manager=$!
for _ in $(seq 100); do xdotool get_num_desktops >/dev/null 2>&1 && break; sleep 0.1; done
xdotool get_num_desktops >/dev/null 2>&1 || fail "no window manager: $(cat "$work/openbox.log")"

# An error dialog never has the name of the expected window, so a missing window ends the test and the picture
# shows what is on the screen.
window() {
    local id
    for _ in $(seq 150); do
        id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 || true)
        if [ -n "$id" ]; then
            timeout 5 xdotool windowactivate --sync "$id" 2>/dev/null || true
            sleep 0.3
            echo "$id"
            return
        fi
        sleep 0.1
    done
    xdotool search --onlyvisible --name . 2>/dev/null | xargs -r -n 1 xdotool getwindowname >&2 || true
    fail "no window \"$1\""
}

# Opens the program on the books in $work/books.
start() {
    "$ledgerbook" --home "$work/books" --now 2006-03-15T12:00:00 2>"$work/program.log" &
    program=$!
}
# Takes a picture of the screen, which must show something, and leaves by the menu.
finish() {
    sleep 0.5
    import -window root "$picture"
    colours=$(identify -format '%k' "$picture")
    [ "$colours" -gt 50 ] || fail "the screen shows only $colours colours"
    # Prints how bright the window is: black is 0, white is 100.
    import -window "$(xdotool getactivewindow)" "$work/window.png"
    bright=$(convert "$work/window.png" -colorspace gray -format '%[fx:round(100*mean)]' info:)
    if [ -n "${SCREEN_DARK:-}" ]; then
        [ "$bright" -lt 40 ] || fail "the window is not dark: $bright"
    else
        [ "$bright" -gt 60 ] || fail "the window is not light: $bright"
    fi
    xdotool key --delay 100 alt+f
    sleep 0.3
    xdotool key x
    wait "$program" || fail "exit code $?: $(cat "$work/program.log")"
    program=
}
