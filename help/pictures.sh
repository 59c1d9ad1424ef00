#!/usr/bin/env bash
# Makes the pictures of the manual and of the project's first page: uses the built program with a demonstration
# household, on a separate X server, and saves what the window shows.
#   help/pictures.sh LEDGERBOOK CLB [FOLDER]     the pictures go to FOLDER and FOLDER/images (default: this
#                                                script's folder and docs/images)
# Needs Xvfb, openbox, xdotool and ImageMagick. The household and the pictures show the present month. After the
# 21st it has enough transactions for good pictures. tests/desktop/xvfb/pictures.sh shows every view and dialog.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
folder=${3:-$here}
images=${3:+$3/images}
images=${images:-$here/../docs/images}
mkdir -p "$images"
set -- "$1" "$2"
# shellcheck source=tests/desktop/xvfb/screen.sh
. "$here/../tests/desktop/xvfb/screen.sh"
# shellcheck source=tests/desktop/xvfb/camera.sh
. "$here/../tests/desktop/xvfb/camera.sh"

"$clb" demo "$work/books" >/dev/null
open_book "$work/books"
put 900 560
keep net-worth

# The register of the credit card, then one of its rows in edit with the list of categories open.
line 8 'Harbour Visa'
click 500 75
click 500 75
click 500 75
aside
keep register
click 400 134
keys Tab Tab Tab F4
aside
keep register-edit
keys Escape Escape Escape

# The row under the cursor is split.
keys alt+e s
dialog=$(window '^Split Transaction$')
keep split "$dialog"
keys Escape

# The budget, with the transactions of a category in a tip.
line 1 Budget
hover 500 287
keep budget
aside

# A statement of an account that the program does not know yet.
{
    printf '%s\r\n' OFXHEADER:100 DATA:OFXSGML VERSION:102 '' '<OFX>' '<ACCTID>30-1188-02'
    printf '%s\r\n' '<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20060305<TRNAMT>-12.50<FITID>1<NAME>Shop</STMTTRN>'
} >"$work/statement.ofx"
keys ctrl+i
window '^Import$' >/dev/null
type_text "$work/statement.ofx"
xdotool key Return
dialog=$(window '^Select Account$')
type_text 'Joint Account'
keep import "$dialog"
keys Escape
sleep 0.5

# A table that leaves the order of its dates open, and one without a heading.
{
    printf '%s\n' 'Date,Details,Amount' '03/04/2026,City Bakery,-4.50' '05/04/2026,Northwind Payroll,"3,850.00"'
    printf '%s\n' '07/04/2026,Fibrelink,-61.95' '09/04/2026,Maple Court Apartments,"-1,180.00"'
} >"$work/april.csv"
{
    printf '%s\n' '03/04/2026;17/04/2026;City Bakery;Card 4421;12,50;1.204,10'
    printf '%s\n' '15/04/2026;17/04/2026;Northwind Payroll;Salary;850,00;2.054,10'
    printf '%s\n' '17/04/2026;18/04/2026;Fibrelink;Internet;61,95;1.992,15'
} >"$work/bare.csv"
for table in april:tables bare:columns; do
    window '^Budget - Corvane Ledgerbook$' >/dev/null
    keys ctrl+i
    window '^Import$' >/dev/null
    type_text "$work/${table%:*}.csv"
    xdotool key Return
    dialog=$(window "^Import ${table%:*}.csv\$")
    keep "${table#*:}" "$dialog"
    keys Escape
    sleep 0.5
done

window '^Budget - Corvane Ledgerbook$' >/dev/null
keys alt+t o
dialog=$(window '^Options$')
type_text 'https://bank.example/login'
keep options "$dialog"
keys Escape

# The first page shows a register and the budget in a larger window.
manual=$folder
folder=$images
put 1100 620
keep budget
line 8 'Harbour Visa'
keep window
leave

# A book without anything in it.
folder=$manual
"$clb" new "$work/fresh" >/dev/null
open_book "$work/fresh"
put 900 560
keep greeting
leave
