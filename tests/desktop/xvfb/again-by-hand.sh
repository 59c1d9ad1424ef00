#!/usr/bin/env bash
# Uses the built program as a person would, after a file that is not a statement. Importing it leaves the main
# window disabled. The small window beside it starts the program again, which then works. The day's backup is
# made in the meantime.
#   again-by-hand.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$here/screen.sh"

"$clb" demo "$work/books" >/dev/null
printf 'Dear bank\r\n' >"$work/letter.txt"
rows="SELECT COUNT(*) AS Found FROM Trans"
before=$("$clb" sql "$work/books" "$rows")
start

first=$(window '^Net Worth - Corvane Ledgerbook$')
xdotool key --delay 100 alt+f
sleep 0.3
xdotool key i
window '^Import' >/dev/null
xdotool type --delay 20 "$work/letter.txt"
xdotool key Return
# First the message appears, then the small window, with the same title.
window '^Corvane Ledgerbook$' >/dev/null
xdotool key Return
sleep 0.5
window '^Corvane Ledgerbook$' >/dev/null
import -window root "$picture"
xdotool key alt+s

# A new main window replaces the first.
for _ in $(seq 100); do
    xdotool getwindowname "$first" >/dev/null 2>&1 || break
    sleep 0.1
done
main=$(window '^Net Worth - Corvane Ledgerbook$')
[ "$main" != "$first" ] || fail "the first main window is still there"
sleep 0.5
xdotool mousemove --window "$main" 70 68 click 1
xdotool key Home Down
window '^Budget - Corvane Ledgerbook$' >/dev/null
for _ in $(seq 100); do [ -s "$work/books/db/backup/clb-2006-03-15.mdb" ] && break; sleep 0.1; done
finish

[ "$("$clb" sql "$work/books" "$rows")" = "$before" ] || fail "the data has changed"
"$clb" restore 2006-03-15 --home "$work/books" >/dev/null || fail "no backup of the day"
[ "$("$clb" sql "$work/books" "$rows")" = "$before" ] || fail "the backup is another one"
echo "started again, and made the day's backup"
