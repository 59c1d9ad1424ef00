#!/usr/bin/env bash
# Uses the built program as a person would, with a file that is not a statement. A message says so, and the same
# window works on. The day's backup is made in the meantime.
#   refused-by-hand.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$here/screen.sh"

"$clb" demo "$work/books" >/dev/null
printf 'Dear bank\r\n' >"$work/letter.txt"
rows="SELECT COUNT(*) AS Found FROM Trans"
before=$("$clb" sql "$work/books" "$rows")
start

main=$(window '^Net Worth - Corvane Ledgerbook$')
xdotool key --delay 100 alt+f
sleep 0.3
xdotool key i
window '^Import' >/dev/null
xdotool type --delay 20 "$work/letter.txt"
xdotool key Return
window '^Corvane Ledgerbook$' >/dev/null
import -window root "$picture"
xdotool key Return
sleep 0.5
xdotool mousemove --window "$main" 70 68 click 1
xdotool key Home Down
window '^Budget - Corvane Ledgerbook$' >/dev/null
for _ in $(seq 100); do [ -s "$work/books/db/backup/clb-2006-03-15.mdb" ] && break; sleep 0.1; done
finish

[ "$("$clb" sql "$work/books" "$rows")" = "$before" ] || fail "the data has changed"
"$clb" restore 2006-03-15 --home "$work/books" >/dev/null || fail "no backup of the day"
[ "$("$clb" sql "$work/books" "$rows")" = "$before" ] || fail "the backup is another one"
echo "refused the letter, worked on, and made the day's backup"
