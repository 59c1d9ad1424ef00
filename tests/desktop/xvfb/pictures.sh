#!/usr/bin/env bash
# Makes a picture of every view and dialog of the built program, with a demonstration household and with a fresh
# book, on a separate X server. Each is to be looked at.
#   pictures.sh LEDGERBOOK CLB FOLDER      light and dark, with one and two pixels for each: FOLDER/light-1,
#                                          light-2, dark-1, dark-2
#   pictures.sh LEDGERBOOK CLB             the light ones with one pixel, to see that all can be made
# Needs Xvfb, openbox, xdotool, xwininfo and ImageMagick.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
if [ $# -gt 2 ]; then
    for dark in "" 1; do
        for scale in 1 2; do
            to=$3/$([ -n "$dark" ] && echo dark || echo light)-$scale
            mkdir -p "$to"
            env SCREEN_DARK=$dark QT_SCALE_FACTOR=$scale PICTURES_TO="$to" "$0" "$1" "$2"
        done
    done
    exit
fi
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$here/screen.sh"
# shellcheck source=tests/desktop/xvfb/camera.sh
. "$here/camera.sh"
folder=${PICTURES_TO:-$work}
# shellcheck disable=SC2034 # camera.sh reads it
true_colours=1
# shellcheck disable=SC2034 # screen.sh keeps there what the screen shows at a failure
picture=$folder/failed.png
unset XDG_CACHE_HOME XDG_CONFIG_HOME
month=$(date +%Y-%m)
books=$work/books

# import FILE: asks the open program for it.
import_file() {
    keys ctrl+i
    window '^Import$' >/dev/null
    type_text "$1"
    [ -z "${2:-}" ] || keep "$2" "$(window '^Import$')"
    xdotool key Return
}
# picture_of NAME TITLE: the dialog with this title, then closes it.
picture_of() {
    local dialog
    dialog=$(window "$2")
    keep "$1" "$dialog"
    keys Escape
    sleep 0.4
}

"$clb" demo "$books" >/dev/null
printf '%s\n' NWND,31.95,31.45,"$today" HRBR,9.87,10.12,"$today" >"$work/prices.csv"
port=$((20000 + $$ % 20000))
"$clb" quote-server --prices "$work/prices.csv" --port "$port" >"$work/quotes.log" 2>&1 &
quotes=$!
for _ in $(seq 50); do [ -s "$work/quotes.log" ] && break; sleep 0.1; done
trap 'kill "$quotes" 2>/dev/null || true; cleanup' EXIT
printf '%s\n' '[Settings]' "QuoteService=http://127.0.0.1:$port" >"$books/cvlb.ini"
open_book "$books"
put 1100 640

# The views.
keep net-worth
line 2 Bank
keep accounts-of-a-type
line 3 'Everyday Checking'
keep bank
line 6 Wallet
keep cash
line 8 'Harbour Visa'
keep credit-card
line 10 'Retirement Fund'
keep investment
line 12 'Car Loan'
keep loan
line 1 Budget
keep budget
hover 700 245
keep budget-tip
aside
click 420 90
keys Left
keep budget-folded
keys Right

# A register in use: rows marked, sorted, its menus, a cell in edit, with its list, its calendar and a refusal.
line 8 'Harbour Visa'
click 520 134
keys shift+Down shift+Down
aside
keep marked
keys Escape
click 560 74
aside
keep sorted
click 560 74
click 560 74
click 520 134 1 3
keep row-menu
keys Escape
for menu in f:file e:edit t:tools y:history h:help; do
    keys "alt+${menu%:*}"
    keep "menu-${menu#*:}"
    keys Escape
done
click 520 134 2
aside
keep edit
keys Tab Tab Tab F4
keep edit-list
keys Escape Escape Escape
click 400 134 2
keys F4
keep edit-calendar
keys Escape Escape Escape
click 640 134 2
type_text 'much'
keys Return
aside
keep refused-cell
keys Escape Escape Escape
keys ctrl+n
type_text '3'
aside
keep new-row
keys Escape Escape
keys ctrl+l
keep month-prompt
keys Escape
hover 325 36
keep toolbar-tip
aside

# Dialogs.
click 520 134
keys alt+e s
picture_of split '^Split Transaction$'
keys alt+t o
picture_of options '^Options$'
keys alt+h a
picture_of about '^About Corvane Ledgerbook$'
keys F5
sleep 1
keep quotes-updated
keys shift+F5
picture_of quotes '^Changed Prices$'

# What the commands say: Undo with its bar, the history.
keys Delete
keep delete-question "$(window '^Corvane Ledgerbook$')"
keys alt+y
window '^Harbour Visa - Corvane Ledgerbook$' >/dev/null
keys ctrl+z
keep undone
keys alt+y s
picture_of history '^History$'
keys ctrl+y

# Imports: a question for each kind, what came in, and what was left out.
{
    printf '%s\r\n' OFXHEADER:100 DATA:OFXSGML VERSION:102 '' '<OFX>' '<ACCTID>30-1188-02'
    printf "<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>${month//-/}%s<TRNAMT>-%s<FITID>%s<NAME>%s</STMTTRN>\\r\\n" \
        02 12.50 1 Shop 09 7.95 2 Kiosk 14 120.00 3 'Bicycle repair' 17 abc 4 Broken
} >"$work/joint.ofx"
import_file "$work/joint.ofx" import-file
window '^Select Account$' >/dev/null
keys Tab
type_text 'Joint Account'
keep select-account "$(window '^Select Account$')"
keys Return
window '^[A-Z].* - Corvane Ledgerbook$' >/dev/null
sleep 1
aside
keep imported
{
    printf '%s\n' 'Date,Details,Amount' '03/04/2026,City Bakery,-4.50' '05/04/2026,Northwind Payroll,"3,850.00"'
    printf '%s\n' '07/04/2026,Fibrelink,-61.95' '09/04/2026,Maple Court Apartments,"-1,180.00"'
} >"$work/april.csv"
{
    printf '%s\n' '03/04/2026;17/04/2026;City Bakery;Card 4421;12,50;1.204,10'
    printf '%s\n' '15/04/2026;17/04/2026;Northwind Payroll;Salary;850,00;2.054,10'
    printf '%s\n' '17/04/2026;18/04/2026;Fibrelink;Internet;61,95;1.992,15'
} >"$work/bare.csv"
import_file "$work/april.csv"
picture_of import-questions '^Import april.csv$'
import_file "$work/bare.csv"
picture_of import-columns '^Import bare.csv$'
printf 'Dear bank\r\n' >"$work/letter.txt"
import_file "$work/letter.txt"
picture_of message '^Corvane Ledgerbook$'

# Months without rows, and a narrow window.
line 1 Budget
for ((step = 0; step < 3; ++step)); do keys ctrl+Next; done
keep empty-budget
# The imported account has come before it.
line 9 'Harbour Visa'
keep empty-register
for ((step = 0; step < 3; ++step)); do keys ctrl+Prior; done
put 620 460
keep narrow
click 20 36
keep narrow-tree
keys F6
put 1100 640
keys ctrl+p
sleep 1
keep print-preview
xdotool key Escape
sleep 0.5
window '^Harbour Visa - Corvane Ledgerbook$' >/dev/null
leave

# A fresh book: the greeting, and the demonstration.
"$clb" new "$work/fresh" >/dev/null
open_book "$work/fresh"
put 1100 640
keep greeting
keys Tab
keep greeting-focus
put 620 460
keep greeting-narrow
put 1100 640
line 1 Budget
keep empty-first-budget
line 0 'Net Worth'
keys Tab Tab Tab Return
main=$(window '^Net Worth - Corvane Ledgerbook \(demo\)$')
put 1100 640
keep demo
keys ctrl+q
sleep 0.5
main=$(window '^Net Worth - Corvane Ledgerbook$')
leave

# Starts that ask.
mkdir "$work/none"
"$ledgerbook" --home "$work/none" 2>"$work/program.log" &
program=$!
main=$(window '^Corvane Ledgerbook$')
keep new-book-offer "$main"
keys Escape
wait "$program" || true
program=
"$clb" backup --home "$books" >/dev/null
head -c 3000 /dev/urandom >"$books/db/clb.mdb"
"$ledgerbook" --home "$books" 2>"$work/program.log" &
program=$!
main=$(window '^Corvane Ledgerbook$')
keep restore-offer "$main"
keys Escape
wait "$program" || true
program=
echo "made $(find "$folder" -maxdepth 1 -name '*.png' | wc -l) pictures"
