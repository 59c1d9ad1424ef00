#!/usr/bin/env bash
# Opens and leaves the menus with keys and mouse under a window manager. Whatever part of the window is used
# next must take the keys: the grid, the tree, the month and the year.
#   menu-keys.sh LEDGERBOOK CLB [PICTURE]     PICTURE keeps what the screen showed
set -euo pipefail
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$(cd "$(dirname "$0")" && pwd)/screen.sh"

keys() { xdotool key --delay 80 "$@"; sleep 0.2; }
type_text() { xdotool type --delay 30 -- "$1"; }
click() { xdotool mousemove --window "$main" "$1" "$2" click 1; sleep 0.3; }
sql() { "$clb" sql "$work/books" "$1"; }
# Waits until a query has the answer: the program writes when it has handled the keys.
expect() {
    for _ in $(seq 30); do
        grep -qF "$2" <<<"$(sql "$1")" && return
        sleep 0.1
    done
    fail "$3: $(sql "$1")"
}
expect_title() {
    for _ in $(seq 30); do
        [ "$(xdotool getwindowname "$main")" = "$1 - Corvane Ledgerbook" ] && return
        sleep 0.1
    done
    fail "$2: $(xdotool getwindowname "$main")"
}

"$clb" new "$work/books" >/dev/null
sql "INSERT INTO Account (AccountID, Description, Type) VALUES ('1', 'Household', 'Bank')" >/dev/null
for day in 1 2 3 4; do
    sql "INSERT INTO Trans (AccountID, PostDate, Description, Amount, [Year], Period, Category, [Sequence]) VALUES
        ('1', #2006-03-0$day#, 'Row $day', -1, 2006, 3, '(none)', $day)" >/dev/null
done
start
window '^Net Worth - Corvane Ledgerbook$' >/dev/null
keys Home Down Down Down
main=$(window '^Household - Corvane Ledgerbook$')

# The description in the first row, which is the latest day.
click_first() { click 420 90; }
round=0
# Down must go to the second row, which is the third day, and typing replaces its description.
grid_has_the_keys() {
    round=$((round + 1))
    keys Down
    type_text "round $round"
    keys Return
    expect "SELECT Description FROM Trans WHERE [Sequence] = 3" "round $round" "the grid has no keys after $1"
}

for letter in f e t y h; do
    click_first
    keys "alt+$letter"
    keys Escape
    grid_has_the_keys "Alt+$letter and Escape"
    click_first
    keys "alt+$letter"
    keys Right Right Left
    keys Escape
    click_first
    grid_has_the_keys "Alt+$letter, Escape and a click"
done
for x in 18 55 100 155 210; do
    click_first
    click "$x" 12
    keys Escape
    grid_has_the_keys "a click on the menu at $x and Escape"
    click "$x" 12
    click "$x" 12
    click_first
    grid_has_the_keys "two clicks on the menu at $x and one on the grid"
done
# Alt alone goes to the menu bar on many desktops.
click_first
keys Alt_L
click_first
grid_has_the_keys "Alt alone and a click"

# The tree: the line above is that of the account's type.
keys shift+F6
for leave in alt+e alt+f; do
    keys "$leave"
    keys Escape
    keys Up
    expect_title "Bank" "the tree has no keys after $leave"
    keys "$leave"
    keys Escape
    keys Down
    expect_title "Household" "the tree has no keys after $leave and Escape"
done

# Month and year: a row that is then entered is in April 2007.
keys alt+m
keys alt+t
keys Escape
keys Down
keys alt+a
keys alt+y
keys Escape
keys Up
keys ctrl+n
type_text '5'
keys Tab
type_text 'Spring'
keys Return
expect "SELECT [Year], Period FROM Trans WHERE Description = 'Spring'" "[[2007,4]]" "month or year have no keys"
finish
echo "left the menus $round times, $colours colours on the screen"
