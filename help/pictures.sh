#!/usr/bin/env bash
# Makes the manual's pictures: uses the built program with a demonstration household, on a separate X
# server, and saves what the window shows.
#   help/pictures.sh LEDGERBOOK CLB [FOLDER]     the pictures go to FOLDER (default: this script's folder)
# Needs Xvfb, xdotool and ImageMagick. The household and the pictures show the present month. After the
# 21st it has enough transactions for good pictures.
set -euo pipefail
ledgerbook=$1
clb=$2
folder=${3:-$(cd "$(dirname "$0")" && pwd)}

width=900
height=560
work=$(mktemp -d)
server=
program=
cleanup() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT
fail() {
    echo "pictures.sh: $*" >&2
    exit 1
}

Xvfb -displayfd 3 -screen 0 1400x900x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
server=$!
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.1; done
[ -s "$work/display" ] || fail "no X server: $(cat "$work/xvfb.log")"
DISPLAY=:$(tr -d '[:space:]' <"$work/display")
export DISPLAY
unset XDG_CURRENT_DESKTOP WAYLAND_DISPLAY QT_QPA_PLATFORMTHEME
export QT_QPA_PLATFORM=xcb QT_IM_MODULE=compose HOME=$work LC_ALL=C.UTF-8

# A window gets the keyboard focus only from a window manager.
window() {
    local id
    for _ in $(seq 100); do
        id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 || true)
        if [ -n "$id" ]; then
            xdotool windowfocus --sync "$id" 2>/dev/null || true
            sleep 0.4
            echo "$id"
            return
        fi
        sleep 0.1
    done
    fail "no window \"$1\""
}
keys() { xdotool key --delay 80 "$@"; sleep 0.3; }
type_text() { xdotool type --delay 30 -- "$1"; sleep 0.3; }
click() { xdotool mousemove "$1" "$2" click --repeat "${3:-1}" --delay 80 1; sleep 0.4; }
aside() { xdotool mousemove 1390 890; sleep 0.3; }
hover() { for step in 0 1 2 3; do xdotool mousemove $(($1 + step)) "$2"; sleep 0.1; done; sleep 1.5; }
# keep NAME [WINDOW]: saves a picture of the main window with everything over it, or of one window.
keep() {
    if [ $# -gt 1 ]; then
        import -window "$2" "$work/shot.png"
    else
        import -window root -crop "${width}x$height+0+0" +repage "$work/shot.png"
    fi
    convert "$work/shot.png" -strip -dither None -colors 64 \
        -define png:compression-level=9 "PNG8:$folder/$1.png"
}

"$clb" demo "$work/books" >/dev/null
LC_ALL=en_US.UTF-8 "$ledgerbook" --home "$work/books" --now "$(date +%F)T10:00:00" 2>"$work/program.log" &
program=$!

main=$(window '^Net Worth - Corvane Ledgerbook$')
xdotool windowmove "$main" 0 0 windowsize "$main" "$width" "$height"
aside
keep net-worth

# The register of the credit card, then one of its rows in edit with the list of categories open.
click 110 241
window '^Harbour Visa - Corvane Ledgerbook$' >/dev/null
# A double click on a heading's right-hand line fits the column.
click 700 75 2
click 571 75 2
click 315 75 2
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
click 110 88
window '^Budget - Corvane Ledgerbook$' >/dev/null
hover 500 287
keep budget
aside

# A statement of an account that the program does not know yet.
{
    printf '%s\r\n' OFXHEADER:100 DATA:OFXSGML VERSION:102 '' '<OFX>' '<ACCTID>30-1188-02'
    printf '%s\r\n' '<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20060305<TRNAMT>-12.50<FITID>1<NAME>Shop</STMTTRN>'
} >"$work/statement.ofx"
keys alt+f i
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
    keys alt+f i
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
