#!/usr/bin/env bash
# Asks the built program for help as a person would, on a separate X server. A folder whose manual is lost gets
# it again, and Help Topics opens its first page in the browser. A program driven by requests must leave the
# folder as it is.
#   help-by-hand.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$(cd "$(dirname "$0")" && pwd)/screen.sh"

"$clb" new "$work/books" >/dev/null
rm -r "$work/books/Help"
echo '{"do":"quit"}' | QT_QPA_PLATFORM=offscreen "$ledgerbook" --automate --home "$work/books" >/dev/null
[ ! -e "$work/books/Help" ] || fail "a manual was written under automation"

# A browser that records what it is asked to open.
mkdir "$work/bin"
printf '#!/bin/sh\necho "$1" >"%s"\n' "$work/opened" >"$work/bin/recorder"
chmod +x "$work/bin/recorder"
PATH=$work/bin:$PATH
mkdir "$work/empty"
export BROWSER=recorder XDG_DATA_DIRS=$work/empty XDG_CONFIG_DIRS=$work/empty
start
window '^Net Worth - Corvane Ledgerbook$' >/dev/null
xdotool key --delay 100 alt+h
sleep 0.3
xdotool key h
for _ in $(seq 100); do [ -s "$work/opened" ] && break; sleep 0.1; done
finish

opened=$(cat "$work/opened" 2>/dev/null || true)
case $opened in
*"$work/books/Help/index.html") ;;
*) fail "not the manual's first page: $opened" ;;
esac
[ -s "$work/books/Help/index.html" ] || fail "there is no first page"
echo "opened $opened"
