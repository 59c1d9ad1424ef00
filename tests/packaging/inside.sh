#!/usr/bin/env bash
# Runs as root of a clean system, with the package and statement files in its folder: installs the package, uses
# it as a user would, and removes it. Do not run it on a system that is in use.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tests/packaging/common.sh
. ./common.sh
export LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive

# Lists every path of the system, without those that change by themselves and those of users.
everything() {
    find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /try -o -path /tmp -o -path /home \
        -o -path /var/cache -o -path /var/log -o -path /var/lib/apt -o -path /var/lib/dpkg \) \
        -prune -o -print | LC_ALL=C sort
}
as_user() {
    su -s /bin/bash - someone -c "cd /home/someone && $1"
}
type_of() {
    gio info -a standard::content-type "$1" | sed -n 's/.*content-type: //p'
}

useradd --create-home someone

# Installs the package with apt, with everything that it needs and nothing that it only recommends.
apt-get update -qq
apt-get install -y -qq --no-install-recommends ./corvane-ledgerbook_*.deb >/try/apt.log 2>&1 || {
    cat /try/apt.log
    fail "apt does not install the package"
    finish
}
echo "Installed $(dpkg-query -W corvane-ledgerbook)"
dpkg-query -L corvane-ledgerbook | sort >/try/owned
silent "installed files" dpkg --verify corvane-ledgerbook
for file in bin/clb bin/ledgerbook share/applications/ledgerbook.desktop share/man/man1/clb.1.gz \
    share/man/man1/ledgerbook.1.gz share/mime/packages/corvane-ledgerbook.xml \
    share/metainfo/example.corvane.ledgerbook.metainfo.xml share/doc/corvane-ledgerbook/copyright \
    share/icons/hicolor/scalable/apps/ledgerbook.svg share/bash-completion/completions/clb \
    share/bash-completion/completions/ledgerbook share/zsh/vendor-completions/_clb; do
    grep -qx "/usr/$file" /try/owned || fail "/usr/$file is not in the package"
done
for size in 16 22 24 32 48 64 128 256 512; do
    picture=/usr/share/icons/hicolor/${size}x$size/apps/ledgerbook.png
    # Width and height are in the bytes 16 to 23.
    same "size of $picture" "$size $size" \
        "$(od -An -j16 -N8 -tu4 --endian=big "$picture" | tr -s ' ' | sed 's/^ //')"
done
for program in clb ledgerbook; do
    ! ldd "/usr/bin/$program" | grep 'not found' || fail "$program lacks a library"
done

# Does what a user does.
version=$(dpkg-query -W -f '${Version}' corvane-ledgerbook)
same "clb --version" "Corvane Ledgerbook $version" "$(as_user 'clb --version')"
same "ledgerbook --version" "Corvane Ledgerbook $version" "$(as_user 'ledgerbook --version')"
cp bank-crlf.ofx bank.QIF /home/someone
chown someone: /home/someone/*
as_user 'clb new books' || fail "clb new"
as_user 'clb import bank-crlf.ofx --home books --create Checking --type Bank' || fail "clb import"
as_user 'clb import bank.QIF --home books --map Checking' || fail "clb import of QIF"
same "transactions imported" true \
    "$(as_user 'clb register Checking --month 2006-03 --home books' | grep -q Landlord && echo true)"
same "clb undo" 'Undone: Import of bank.QIF' "$(as_user 'clb undo --home books' | sed 's/ of [-0-9: ]*$//')"
same "clb check" "Everything is in order" "$(as_user 'clb check --home books' | tail -1)"
as_user 'clb accounts' >/dev/null || fail "the user's own folder"
as_user 'QT_QPA_PLATFORM=offscreen ledgerbook --picture window.png --home books' 2>/dev/null || fail "ledgerbook --picture"
same "picture of the window" 'PNG' "$(head -c 4 /home/someone/window.png | tail -c 3)"
[ "$(stat -c %s /home/someone/window.png)" -gt 10000 ] || fail "the picture of the window is empty"
# The plugin of a real display must load as well: it must report a missing display and not a missing plugin.
said=$(as_user 'DISPLAY=:9999 timeout 20 ledgerbook --home books 2>&1' 2>/dev/null || true)
grep -q 'could not connect to display' <<<"$said" || fail "no plugin for a display: $said"

# Checks the integration with the desktop.
silent "desktop entry" desktop-file-validate /usr/share/applications/ledgerbook.desktop
complaints=$(appstreamcli validate --no-net --no-color /usr/share/metainfo/example.corvane.ledgerbook.metainfo.xml 2>&1) ||
    fail "metainfo: $complaints"
same "type of an .ofx file" application/x-ofx "$(type_of bank-crlf.ofx)"
same "type of a .QIF file" application/x-qif "$(type_of bank.QIF)"
for type in ofx qfx ofc qif mt940 camt; do
    grep -q 'ledgerbook\.desktop' <<<"$(gio mime "application/x-$type" 2>&1)" ||
        fail "application/x-$type is not opened"
done

silent "database of types" update-mime-database /usr/share/mime

# Checks man pages and completions.
for program in clb ledgerbook; do
    page=/usr/share/man/man1/$program.1.gz
    said=$(man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null) || fail "man $program"
    [ -z "$said" ] || fail "man $program: $said"
    lexgrog "$page" >/dev/null || fail "whatis $program"
    silent "completion of $program" bash -n "/usr/share/bash-completion/completions/$program"
done

# After purging, nothing of the package is left, and everything of the user is.
mine() { (cd /home/someone && find . -type f -exec sha256sum {} + | sort -k2); }
mine >/try/mine-before
everything >/try/before
apt-get purge -y -qq corvane-ledgerbook >/try/apt.log 2>&1 || fail "purge: $(cat /try/apt.log)"
everything >/try/after
mine >/try/mine-after
same "files of the user" "$(cat /try/mine-before)" "$(cat /try/mine-after)"
[ -s /home/someone/books/db/clb.mdb ] || fail "the user's data are gone"
same "new after the purge" "" "$(comm -13 /try/before /try/after)"
left=$(grep -iE 'ledgerbook|corvane|/clb\b|x-(ofx|qfx|ofc|qif)\b' /try/after || true)
same "left by the purge" "" "$left"
left=$(grep -rlE 'ledgerbook|x-(ofx|qfx|ofc|qif)\b' /usr/share/applications /usr/share/mime \
    /usr/share/icons /var/lib/dpkg/info 2>/dev/null || true)
same "told of it after the purge" "" "$left"
finish
