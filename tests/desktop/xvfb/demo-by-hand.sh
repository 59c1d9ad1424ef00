#!/usr/bin/env bash
# Opens the demonstration from the greeting of a fresh book with keys, changes it, and opens it once more: there
# is one window of it at a time, each start has the household as it was, and the user's own book stays empty.
#   demo-by-hand.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$(cd "$(dirname "$0")" && pwd)/screen.sh"
unset XDG_CACHE_HOME
demo=$work/.cache/corvane-ledgerbook/demo

keys() { xdotool key --delay 80 "$@"; }
sql() { "$clb" sql "$1" "$2"; }
# Waits until a query on a folder has the answer.
expect() {
    for _ in $(seq 50); do
        grep -qF "$3" <<<"$(sql "$1" "$2")" && return
        sleep 0.1
    done
    fail "$4: $(sql "$1" "$2")"
}
extra="SELECT COUNT(*) AS Found FROM Account WHERE AccountID = 'X1'"

"$clb" new "$work/books" >/dev/null
start
own=$(window '^Net Worth - Corvane Ledgerbook$')
# Tab goes from the tree to the three ways.
keys Tab Tab Tab Return
shown=$(window '^Net Worth - Corvane Ledgerbook \(demo\)$')
expect "$demo" "SELECT COUNT(*) AS Found FROM Account" "[[6]]" "not the household"
sql "$demo" "INSERT INTO Account (AccountID, Description, Type) VALUES ('X1', 'Extra', 'Cash')" >/dev/null

# The same way again brings the open demonstration to the front.
timeout 5 xdotool windowactivate --sync "$own"
keys Return
for _ in $(seq 50); do [ "$(xdotool getactivewindow)" = "$shown" ] && break; sleep 0.1; done
[ "$(xdotool getactivewindow)" = "$shown" ] || fail "the open demonstration did not come to the front"
[ "$(xdotool search --onlyvisible --name '\(demo\)$' | wc -l)" = 1 ] || fail "there are two demonstrations"
expect "$demo" "$extra" "[[1]]" "the open demonstration was made anew"
keys ctrl+q
for _ in $(seq 50); do xdotool search --onlyvisible --name '\(demo\)$' >/dev/null || break; sleep 0.1; done

timeout 5 xdotool windowactivate --sync "$own"
keys Return
window '^Net Worth - Corvane Ledgerbook \(demo\)$' >/dev/null
expect "$demo" "$extra" "[[0]]" "the demonstration was not made anew"
keys ctrl+q
for _ in $(seq 50); do xdotool search --onlyvisible --name '\(demo\)$' >/dev/null || break; sleep 0.1; done

window '^Net Worth - Corvane Ledgerbook$' >/dev/null
expect "$work/books" "SELECT COUNT(*) AS Found FROM Account" "[[0]]" "the own book was touched"
finish
echo "looked at the demonstration twice, $colours colours on the screen"
