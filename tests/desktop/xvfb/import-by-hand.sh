#!/usr/bin/env bash
# Uses the built program as a person would, on a separate X server: imports a statement with keys and mouse,
# looks at the screen, ends the program, and finds the rows in the database.
#   import-by-hand.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
statement="$(cd "$here/../../fixtures/statements" && pwd)/bank-crlf.ofx"
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$here/screen.sh"

"$clb" new "$work/books" >/dev/null
start

window '^Net Worth - Corvane Ledgerbook$' >/dev/null
xdotool key --delay 100 alt+f
sleep 0.3
xdotool key i
window '^Import' >/dev/null
xdotool type --delay 20 "$statement"
xdotool key Return
window '^Select Account$' >/dev/null
xdotool type --delay 20 'Household'
xdotool key Return

# The new rows are shown. The tree now has the account below its type: root, Budget, Bank, Household.
main=$(window '^Household - Corvane Ledgerbook$')
sleep 0.5
# The lines of the tree, below the menus and the toolbar.
xdotool mousemove --window "$main" 70 90 click 1
window '^Budget - Corvane Ledgerbook$' >/dev/null
xdotool mousemove --window "$main" 70 68 click 1
window '^Net Worth - Corvane Ledgerbook$' >/dev/null
xdotool key Down Down Down
window '^Household - Corvane Ledgerbook$' >/dev/null
# A cell of the grid.
xdotool mousemove --window "$main" 420 112 click 1
finish

account=$("$clb" sql "$work/books" "SELECT AccountID, Description, Type FROM Account")
grep -q 'Household' <<<"$account" || fail "no account: $account"
expected=$(grep -c '<STMTTRN>' "$statement")
rows=$("$clb" sql "$work/books" "SELECT COUNT(*) AS Imported FROM Trans")
grep -q "\[\[$expected\]\]" <<<"$rows" || fail "expected $expected transactions: $rows"
echo "imported $expected transactions, $colours colours on the screen"
