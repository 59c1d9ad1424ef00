#!/usr/bin/env bash
# Asks the built program for help where there is no browser, as a person would, on a separate X server: the desktop's
# helper is installed, but nothing is behind it. The manual opens in a window of the program, can be searched, stays
# beside the main window, and does not keep the program running.
#   help-in-window.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$(cd "$(dirname "$0")" && pwd)/screen.sh"

"$clb" new "$work/books" >/dev/null
mkdir "$work/bin" "$work/empty"
printf '#!/bin/sh\necho "$1" >>"%s"\n' "$work/opened" >"$work/bin/xdg-open"
chmod +x "$work/bin/xdg-open"
export XDG_DATA_DIRS=$work/empty XDG_CONFIG_DIRS=$work/empty
unset BROWSER
PATH=$work/bin start
main=$(window '^Net Worth - Corvane Ledgerbook$')
xdotool key F1
help=$(window '^Help - Corvane Ledgerbook$')
[ ! -e "$work/opened" ] || fail "a helper without a browser was asked: $(cat "$work/opened")"

# The main window takes input while the manual is open, and F1 brings the same window to the front again.
xdotool windowactivate --sync "$main"
xdotool key F1
sleep 0.5
[ "$(xdotool search --onlyvisible --name '^Help - Corvane Ledgerbook$' | tail -n 1)" = "$help" ] || fail "another window"
[ "$(xdotool getactivewindow)" = "$help" ] || fail "the manual is not in front"
xdotool key ctrl+f
xdotool type --delay 30 money
xdotool key --delay 100 Escape
xdotool windowactivate --sync "$main"
sleep 0.3
finish
echo "the manual opened in a window"
