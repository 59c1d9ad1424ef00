#!/usr/bin/env bash
# Uses the register as a person would, on a separate X server: enters, corrects and discards transactions with
# keys and mouse. The database must contain exactly those that were kept.
#   edit-by-hand.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$(cd "$(dirname "$0")" && pwd)/screen.sh"

keys() { xdotool key --delay 60 "$@"; }
type_text() { xdotool type --delay 30 -- "$1"; }
sql() { "$clb" sql "$work/books" "$1" >/dev/null; }

"$clb" new "$work/books" >/dev/null
sql "INSERT INTO Account (AccountID, Description, Type) VALUES ('1', 'Household', 'Bank')"
sql "INSERT INTO Budget (Category, Amount, Year, Period) VALUES ('Groceries', 100, 2006, 3)"
start
window '^Net Worth - Corvane Ledgerbook$' >/dev/null
keys Home Down Down Down
main=$(window '^Household - Corvane Ledgerbook$')

# The first line of the grid is for a new row. A double click edits it.
xdotool mousemove --window "$main" 340 90 click --repeat 2 --delay 80 1
sleep 0.3
type_text '2006-03-09'
keys Tab
type_text 'Mill & Sons'
keys Tab
# A text that is refused in its cell and then corrected.
type_text 'cheap'
keys Return
keys ctrl+a
type_text '-12.50'
keys Tab Tab
# The text is completed as it is typed. Enter keeps the row and begins another one.
type_text 'gro'
keys Return
type_text '2006-03-10'
keys Tab
type_text 'Dairy'
keys Tab
type_text '7'
keys Return

# Dairy has a later day, so it has gone to the first row.
xdotool mousemove --window "$main" 420 112 click 1
keys F2 End
type_text ' Ltd'
keys Return
# Discards the cell, then the row.
xdotool mousemove --window "$main" 420 90 click --repeat 2 --delay 80 1
sleep 0.3
type_text 'Nobody'
keys Escape Escape
finish

kept=$("$clb" sql "$work/books" "SELECT PostDate, Description, Amount, Category FROM Trans ORDER BY PostDate")
wanted='"rows":[["2006-03-09","Mill & Sons Ltd","-12.5","Groceries"],["2006-03-10","Dairy","7","(none)"]]'
grep -qF "$wanted" <<<"$kept" || fail "not what was entered: $kept"
balance=$("$clb" sql "$work/books" "SELECT CurrentBalance FROM Account")
grep -qF '[["-5.5"]]' <<<"$balance" || fail "not the balance: $balance"
echo "entered two transactions by hand, $colours colours on the screen"
