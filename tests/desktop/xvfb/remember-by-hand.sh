#!/usr/bin/env bash
# Gives the window another size on a separate X server; the next start must open it with that size. A driven
# program and one that only takes a picture must not change what is remembered.
#   remember-by-hand.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$(cd "$(dirname "$0")" && pwd)/screen.sh"
unset XDG_CONFIG_HOME
memory=$work/.config/corvane-ledgerbook/window.ini
size() { xdotool getwindowgeometry --shell "$1" | grep -E '^(WIDTH|HEIGHT)=' | tr '\n' ' '; }

"$clb" demo "$work/books" >/dev/null
echo '{"op":"quit"}' | "$ledgerbook" --automate --home "$work/books" >/dev/null
"$ledgerbook" --home "$work/books" --picture "$work/one.png"
[ ! -e "$memory" ] || fail "a program without a user has written $memory"

start
main=$(window '^Net Worth - Corvane Ledgerbook$')
xdotool windowsize --sync "$main" 860 540
finish
[ "$(stat -c %a "$memory")" = 600 ] || fail "others may read $memory"
[ "$(stat -c %a "$(dirname "$memory")")" = 700 ] || fail "others may look into its folder"

kept=$(cat "$memory")
"$ledgerbook" --home "$work/books" --picture "$work/two.png"
[ "$(identify -format %wx%h "$work/one.png")" = "$(identify -format %wx%h "$work/two.png")" ] ||
    fail "the picture is of the remembered size"
[ "$(cat "$memory")" = "$kept" ] || fail "the picture has changed $memory"

start
main=$(window '^Net Worth - Corvane Ledgerbook$')
[ "$(size "$main")" = "WIDTH=860 HEIGHT=540 " ] || fail "not the size it had: $(size "$main")"
finish
echo "remembered the window's size, $colours colours on the screen"
