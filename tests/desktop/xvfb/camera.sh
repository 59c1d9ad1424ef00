# shellcheck shell=bash
# Takes pictures of the built program on the screen of screen.sh, which is sourced first. The pictures go to
# $folder, which the script sets; with $true_colours they keep all their colours. The household shows the
# present month; after the 21st it has enough transactions for good pictures.
# Defines open_book, put, keys, type_text, click, hover, aside, line, keep and leave.
scale=${QT_SCALE_FACTOR:-1}
today=$(date +%F)
main=

# open_book FOLDER OPTION...: opens the program on the folder's book in this month. Sets $main.
open_book() {
    local home=$1
    shift
    LC_ALL=en_US.UTF-8 "$ledgerbook" --home "$home" --now "${today}T10:00:00" "$@" 2>"$work/program.log" &
    program=$!
    main=$(window '^Net Worth - Corvane Ledgerbook$')
}
# put WIDTH HEIGHT: the main window gets this size, and room for what opens beside it.
put() {
    xdotool windowmove --sync "$main" 20 40 2>/dev/null || true
    xdotool windowsize "$main" $(($1 * scale)) $(($2 * scale))
    sleep 0.5
    aside
}
keys() { xdotool key --delay 80 "$@"; sleep 0.3; }
type_text() { xdotool type --delay 30 -- "$1"; sleep 0.3; }
# click X Y [TIMES [BUTTON]]: a place of the main window.
click() {
    xdotool mousemove --window "$main" $(($1 * scale)) $(($2 * scale)) click --repeat "${3:-1}" --delay 80 "${4:-1}"
    sleep 0.4
}
# hover X Y: keeps the pointer there until a tip comes.
hover() {
    local step
    for step in 0 1 2 3; do
        xdotool mousemove --window "$main" $((($1 + step) * scale)) $(($2 * scale))
        sleep 0.1
    done
    sleep 1.5
}
aside() {
    local width height
    read -r width height <<<"$(xdotool getdisplaygeometry)"
    xdotool mousemove $((width - 5)) $((height - 5))
    sleep 0.3
}
# line NUMBER TITLE: shows this line of the tree, counted from 0.
line() {
    local down
    keys F6
    click 60 68
    keys Home
    for ((down = 0; down < $1; ++down)); do keys Down; done
    window "^$2 - Corvane Ledgerbook\$" >/dev/null
}
# keep NAME [WINDOW]: saves a picture of the main window with everything over it, or of one window.
keep() {
    local place
    if [ $# -gt 1 ]; then
        import -window "$2" "$work/shot.png"
    else
        read -r place <<<"$(xwininfo -id "$main" | awk '
            /Absolute upper-left X/ {x = $NF} /Absolute upper-left Y/ {y = $NF}
            /Width:/ {w = $NF} /Height:/ {h = $NF} END {print w "x" h "+" x "+" y}')"
        import -window root -crop "$place" +repage "$work/shot.png"
    fi
    [ "$(identify -format '%k' "$work/shot.png")" -gt 20 ] || fail "the picture $1 shows nothing"
    if [ -n "${true_colours:-}" ]; then
        cp "$work/shot.png" "$folder/$1.png"
        return
    fi
    convert "$work/shot.png" -strip -dither None -colors 64 -define png:compression-level=9 "PNG8:$folder/$1.png"
}
# Ends the program.
leave() {
    keys ctrl+q
    wait "$program" || fail "exit code $?: $(cat "$work/program.log")"
    program=
}
