#!/usr/bin/env bash
# Uses the built program as a person would, with a damaged data file. The day's backup finds the damage, and the
# small window restores the last good backup. Then the file cannot be opened at all, and is restored in the same
# way. At last no backup can be made, and the status bar says so.
#   damaged-by-hand.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed at the end, and
#                                                  PICTURE.1.png and .2.png what it showed before
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$here/screen.sh"

"$clb" demo "$work/books" >/dev/null
"$clb" backup --home "$work/books" >/dev/null
rows="SELECT COUNT(*) AS Found FROM Trans"
before=$("$clb" sql "$work/books" "$rows")
database=$work/books/db/clb.mdb
damage() { head -c 4096 /dev/zero | tr '\0' U | dd of="$database" bs=4096 seek="$1" conv=notrunc status=none; }
# Enter closes the box that says what was done; then the main window is there again.
restore() {
    window '^Corvane Ledgerbook$' >/dev/null
    import -window root "$1"
    xdotool key alt+r
    for _ in $(seq 100); do [ -e "$work/books/db/backup/clb-2006-03-15-before-restore$2.mdb" ] && break; sleep 0.1; done
    window '^Corvane Ledgerbook$' >/dev/null
    xdotool key Return
    window '^Net Worth - Corvane Ledgerbook$' >/dev/null
}

damage $(($(stat -c %s "$database") / 4096 - 10))
start
restore "$picture.1.png" ""
for _ in $(seq 100); do [ -s "$work/books/db/backup/clb-2006-03-15.mdb" ] && break; sleep 0.1; done
finish
"$clb" check --home "$work/books" >/dev/null || fail "the restored data is not in order"
[ "$("$clb" sql "$work/books" "$rows")" = "$before" ] || fail "the restored data is another one"

head -c 3000 /dev/urandom >"$database"
start
restore "$picture.2.png" -2
finish
"$clb" check --home "$work/books" >/dev/null || fail "the data restored at start is not in order"

rm -r "$work/books/db/backup"
: >"$work/books/db/backup"
start
window '^Net Worth - Corvane Ledgerbook$' >/dev/null
sleep 1.5
finish
[ -f "$work/books/db/backup" ] || fail "the file in place of the folder is gone"
echo "restored a damaged file twice, and said that no backup can be made"
