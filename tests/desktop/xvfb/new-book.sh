#!/usr/bin/env bash
# Starts the built program on a folder without a book, on a separate X server. It asks; quitting leaves the
# folder as it is, and the other answer makes a book and opens it. A driven program never asks.
#   new-book.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$(cd "$(dirname "$0")" && pwd)/screen.sh"
mkdir "$work/books"

if echo '{"do":"quit"}' | QT_QPA_PLATFORM=offscreen "$ledgerbook" --automate --home "$work/books" >/dev/null 2>&1; then
    fail "a driven program has opened a folder without a book"
fi
[ -z "$(ls -A "$work/books")" ] || fail "a driven program has written $(ls -A "$work/books")"

start
window '^Corvane Ledgerbook$' >/dev/null
xdotool key Escape
wait "$program" && fail "quitting counts as success"
program=
[ -z "$(ls -A "$work/books")" ] || fail "quitting has written $(ls -A "$work/books")"

start
window '^Corvane Ledgerbook$' >/dev/null
xdotool key Return
window '^Net Worth - Corvane Ledgerbook$' >/dev/null
[ -s "$work/books/db/clb.mdb" ] || fail "there is no book"
finish
echo "made a book, $colours colours on the screen"
