#!/usr/bin/env bash
# Uses the built program as a person would: opens a statement with it while it runs. The second start ends at
# once, and the first window asks for the account and imports the file. A start beside a window that hangs
# reports that and ends. After a crash the next start opens at once.
#   second-start.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$here/screen.sh"

# The starts must meet without the session's own folder.
export XDG_RUNTIME_DIR=$work/nowhere
"$clb" demo "$work/books" >/dev/null
printf '%s\r\n' 'OFXHEADER:100' 'DATA:OFXSGML' 'VERSION:102' '' \
    '<OFX><ACCTID>SECOND<STMTTRN><DTPOSTED>20060315<TRNAMT>-12.50<FITID>S1<NAME>Second start</STMTTRN></OFX>' \
    >"$work/march statement.ofx"
start
window '^Net Worth - Corvane Ledgerbook$' >/dev/null

(cd "$work" && timeout 20 "$ledgerbook" --home "$work/books" "march statement.ofx") ||
    fail "the second start did not end by itself"
window '^Select Account$' >/dev/null
import -window root "$picture"
xdotool key alt+d
xdotool type --delay 20 "Second account"
xdotool key Return
for _ in $(seq 100); do
    found=$("$clb" sql "$work/books" "SELECT Description FROM Trans WHERE AccountID = 'SECOND'")
    grep -q "Second start" <<<"$found" && break
    sleep 0.1
done
grep -q "Second start" <<<"$found" || fail "the statement is not imported"
window '^Second account - Corvane Ledgerbook$' >/dev/null

kill -STOP "$program"
"$ledgerbook" --home "$work/books" 2>"$work/second.log" &
second=$!
window '^Corvane Ledgerbook$' >/dev/null
import -window root "$picture"
xdotool key Return
wait "$second" && fail "the start beside a window that hangs ended as if all was well"
kill -CONT "$program"

kill -KILL "$program"
wait "$program" || true
start
window '^Net Worth - Corvane Ledgerbook$' >/dev/null
finish

[ ! -e "$work/books/db/clb.lock" ] || fail "the book is still locked"
echo "a second start handed its statement to the first, and none opened a second window"
