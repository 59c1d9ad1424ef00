#!/usr/bin/env bash
# Ends the built program by signals: while a row is being typed, while a dialog is open, and in the middle of an
# import. Each time it must exit in order, keep nothing half done and leave no file.
#   signals.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed at a failure
set -euo pipefail
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$(cd "$(dirname "$0")" && pwd)/screen.sh"

sql() { "$clb" sql "$work/books" "$1"; }
# Sends the signal and waits. The exit code must be that of a closed window.
end() {
    kill -"$1" "$program"
    timeout 20 tail --pid="$program" -f /dev/null || fail "$2: it goes on after SIG$1"
    wait "$program" || fail "$2: exit code $?: $(cat "$work/program.log")"
    program=
}
# Writes a statement with this many rows for an account.
statement() {
    printf '%s\r\n' 'OFXHEADER:100' 'DATA:OFXSGML' 'VERSION:102' '' "<OFX><ACCTID>$1"
    seq "$2" | sed 's|.*|<STMTTRN><DTPOSTED>20060315<TRNAMT>-1<FITID>&<NAME>Shop</STMTTRN>|'
    printf '</OFX>\r\n'
}
nothing_changed() {
    [ "$(sql 'SELECT COUNT(1) FROM Trans')" = "$before" ] || fail "$1: rows were kept"
    left=$(find "$work/books" -name '.clb-*' -o -name '*-journal'; find "$TMPDIR" -name 'clb-*')
    [ -z "$left" ] || fail "$1: left behind: $left"
}

export TMPDIR=$work/tmp
mkdir "$TMPDIR"
"$clb" new "$work/books" >/dev/null
sql "INSERT INTO Account (AccountID, Description, Type) VALUES ('1', 'Household', 'Bank')" >/dev/null
before=$(sql 'SELECT COUNT(1) FROM Trans')

start
window '^Net Worth - Corvane Ledgerbook$' >/dev/null
xdotool key --delay 60 Home Down Down Down
main=$(window '^Household - Corvane Ledgerbook$')
xdotool mousemove --window "$main" 340 90 click --repeat 2 --delay 80 1
sleep 0.3
xdotool type --delay 30 -- '2006-03-09'
xdotool key --delay 60 Tab
xdotool type --delay 30 -- 'Half typed'
end TERM "a row in edit"
nothing_changed "a row in edit"

statement UNKNOWN 3 >"$work/unknown.ofx"
"$ledgerbook" --home "$work/books" "$work/unknown.ofx" 2>"$work/program.log" &
program=$!
window '^Select Account$' >/dev/null
end HUP "a dialog"
nothing_changed "a dialog"

statement 1 300000 >"$work/long.ofx"
"$ledgerbook" --home "$work/books" "$work/long.ofx" 2>"$work/program.log" &
program=$!
# Built with counters, the program reads the file for half a minute before it writes.
for _ in $(seq 2400); do [ -e "$work/books/db/clb.mdb-journal" ] && break; sleep 0.05; done
[ -e "$work/books/db/clb.mdb-journal" ] || fail "the import does not begin"
end TERM "an import"
nothing_changed "an import"

echo "the program left orderly by signals"
