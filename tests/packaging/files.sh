#!/usr/bin/env bash
# Checks the files that are installed beside the programs. The desktop must accept them without complaint,
# statement files must get their types and open with the program, and man pages and completions must have every
# command and option of the programs.
#   files.sh VERSION CLB LEDGERBOOK
set -euo pipefail
version=$1
clb=$(realpath "$2")
ledgerbook=$(realpath "$3")
source=$(cd "$(dirname "$0")/../.." && pwd)
packaging=$source/packaging
# shellcheck source=tests/packaging/common.sh
. "$source/tests/packaging/common.sh"
export LC_ALL=C.UTF-8
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The desktop entry and the page for software centres.
desktop=$packaging/desktop/ledgerbook.desktop
types=$packaging/desktop/corvane-ledgerbook.xml
metainfo=$packaging/desktop/example.corvane.ledgerbook.metainfo.xml
silent "desktop entry" desktop-file-validate "$desktop"
told=$(appstreamcli validate --no-net --no-color "$metainfo" 2>&1) || fail "metainfo: $told"
declared=$(sed -n 's/.*<mime-type type="\(.*\)">.*/\1/p' "$types" | sort)
same "types of the desktop entry" "$declared" \
    "$(sed -n 's/^MimeType=//p' "$desktop" | tr ';' '\n' | grep . | sort)"
same "types of the metainfo" "$declared" \
    "$(sed -n 's,.*<mediatype>\(.*\)</mediatype>.*,\1,p' "$metainfo" | sort)"

# Makes a desktop with the system's types, the program's types, and the program's entry.
mkdir -p "$work/share/mime/packages" "$work/share/applications" "$work/home"
cp /usr/share/mime/packages/freedesktop.org.xml "$types" "$work/share/mime/packages"
cp "$desktop" "$work/share/applications"
export XDG_DATA_DIRS=$work/share XDG_DATA_HOME=$work/home XDG_CONFIG_HOME=$work/home
silent "database of types" update-mime-database "$work/share/mime"
silent "database of desktop entries" update-desktop-database "$work/share/applications"

type_of() {
    gio info -a standard::content-type "$1" | sed -n 's/.*content-type: //p'
}
statements=$source/tests/fixtures/statements
# Two kinds whose contents tell them apart, whatever the name.
printf ':20:STARTUMS\r\n:25:10020030/1234567\r\n' >"$work/march.sta"
printf '%s\n' '<?xml version="1.0" encoding="UTF-8"?>' \
    '<Document xmlns="urn:iso:std:iso:20022:tech:xsd:camt.053.001.08"/>' >"$work/march.camt"
for file in march.sta=mt940 march.camt=camt; do
    type=application/x-${file#*=}
    same "type of ${file%=*}" "$type" "$(type_of "$work/${file%=*}")"
    cp "$work/${file%=*}" "$work/download"
    same "type of ${file%=*} without its name" "$type" "$(type_of "$work/download")"
done
for pair in bank-crlf.ofx=ofx xml.ofx=ofx utf-8-with-mark.ofx=ofx end-tags.qfx=qfx \
    old-bank.ofc=ofc old-bank-lower-case.ofc=ofc bank.QIF=qif; do
    file=${pair%=*} type=application/x-${pair#*=}
    same "type of $file" "$type" "$(type_of "$statements/$file")"
    # The type must be found by the content alone. QFX is OFX there.
    cp "$statements/$file" "$work/download"
    same "type of $file without its name" "${type/qfx/ofx}" "$(type_of "$work/download")"
done
# Pictures have this ending too. Of all types with it, the program's must have a greater weight than the others.
same "types of the ending .qif that weigh most" application/x-qif \
    "$(sed -n 's/:\*\.qif$//p' "$work/share/mime/globs2" |
        awk -F: '$1 > most { most = $1; names = "" } $1 == most { names = names $2 } END { print names }')"
# A program that cannot be found opens nothing.
for type in $declared; do
    opening=$(PATH="$(dirname "$ledgerbook"):$PATH" gio mime "$type" 2>&1)
    grep -q 'ledgerbook\.desktop' <<<"$opening" || fail "$type is not opened: $opening"
done

# Man pages.
for page in "$packaging"/man/*.1; do
    said=$(MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null) ||
        fail "man page $page cannot be shown"
    [ -z "$said" ] || fail "man page $page: $said"
    lexgrog "$page" >/dev/null || fail "man page $page has no name for whatis"
done
plain() {
    sed 's/\\f[BRIP]//g; s/\\-/-/g' "$1"
}
for command in $(commands_of "$clb"); do
    part=$(plain "$packaging/man/clb.1" |
        awk -v command="$command" '/^clb [a-z]/ || /^\.S[SH]/ { on = $1 == "clb" && $2 == command } on')
    [ -n "$part" ] || fail "clb(1) does not tell clb $command"
    for option in $(options_of "$clb" "$command"); do
        case $option in
        --help | --home | --json) continue ;; # described once for all commands
        esac
        grep -q -- "$option\b" <<<"$part" || fail "clb(1) does not tell $option of clb $command"
    done
done
for option in $(options_of "$clb") --home --json; do
    grep -q "^\.B.*$option\b" <<<"$(plain "$packaging/man/clb.1")" ||
        fail "clb(1) does not tell $option"
done
for option in $(options_of "$ledgerbook"); do
    grep -q "^\.B.*$option\b" <<<"$(plain "$packaging/man/ledgerbook.1")" ||
        fail "ledgerbook(1) does not tell $option"
done

# What bash completes when the tab key is pressed after the words.
completed() {
    (
        set +eu
        # shellcheck source=/dev/null
        . /usr/share/bash-completion/bash_completion
        # shellcheck source=/dev/null
        . "$packaging/completions/bash/$1"
        COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMP_LINE="$*" COMP_POINT=${#COMP_LINE} COMPREPLY=()
        COMP_TYPE=9 COMP_KEY=9
        "_$1" "$1" "${!#}" "${COMP_WORDS[COMP_CWORD - 1]}" 2>&1
        [ ${#COMPREPLY[@]} -eq 0 ] || printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort
    )
}
same "commands completed" "$(commands_of "$clb")" "$(completed clb '' | grep -v '^--')"
same "options completed" "$(options_of "$clb")" "$(completed clb -)"
for command in $(commands_of "$clb"); do
    same "options of clb $command completed" "$(options_of "$clb" "$command")" \
        "$(completed clb "$command" -)"
done
same "options of ledgerbook completed" "$(options_of "$ledgerbook")" "$(completed ledgerbook -)"
mkdir -p "$work/files/folder" "$work/books/db/backup"
touch "$work"/files/{a.ofx,b.QIF,notes.doc} "$work/books/db/backup/clb-2026-11-21.mdb"
cd "$work/files"
same "files of clb import" $'a.ofx\nb.QIF\nfolder' "$(completed clb import '')"
same "files of ledgerbook" $'a.ofx\nb.QIF\nfolder' "$(completed ledgerbook '')"
same "folders of --home" folder "$(completed clb accounts --home '')"
same "days of clb restore" 2026-11-21 "$(completed clb restore --home ../books 2026)"

# The completions for zsh.
for program in clb ledgerbook; do
    silent "completion of zsh" zsh -n "$packaging/completions/zsh/_$program"
done
same "commands completed by zsh" "$(commands_of "$clb")" \
    "$(sed -n "/^commands=/,/^)/s/^ *['\"]\([a-z-]*\):.*/\1/p" "$packaging/completions/zsh/_clb" | LC_ALL=C sort)"
for program in "$clb" "$ledgerbook"; do
    name=$([ "$program" = "$clb" ] && echo clb || echo ledgerbook)
    {
        options_of "$program"
        [ "$name" != clb ] || for command in $(commands_of "$clb"); do options_of "$clb" "$command"; done
    } | sort -u | while read -r option; do
        grep -q -- "$option\b" "$packaging/completions/zsh/_$name" || echo "$option"
    done >"$work/missing"
    same "options of $name that zsh does not know" "" "$(cat "$work/missing")"
done

# The version must be the same everywhere.
same "clb --version" "Corvane Ledgerbook $version" "$("$clb" --version)"
same "ledgerbook --version" "Corvane Ledgerbook $version" "$("$ledgerbook" --version)"
same "version of the package" "$version" \
    "$(sed -n '1s/.*(\(.*\)).*/\1/p' "$packaging/debian/changelog")"
same "newest release of the metainfo" "$version" \
    "$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$metainfo" | head -1)"
for page in "$packaging"/man/*.1; do
    grep -q "^\.TH.*Corvane Ledgerbook $version\"" "$page" || fail "$page is of another version"
done
finish
