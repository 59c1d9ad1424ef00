#!/usr/bin/env bash
# Checks that the release programs are built like programs that read untrusted files: at a random address, with
# all symbols bound at the start, with protected stacks and checked copies.
#   hardening.sh PROGRAM...
set -euo pipefail
# shellcheck source=tests/packaging/common.sh
. "$(cd "$(dirname "$0")" && pwd)/common.sh"

for program; do
    [ -x "$program" ] || fail "$program is not there"
    dynamic=$(readelf -W --dynamic "$program")
    segments=$(readelf -W --segments "$program")
    symbols=$(readelf -W --dyn-syms "$program")
    grep -q 'FLAGS_1.*\bPIE\b' <<<"$dynamic" || fail "$program always lies at the same place"
    grep -q 'GNU_RELRO' <<<"$segments" || fail "$program leaves its tables writable"
    grep -q 'BIND_NOW\|FLAGS_1.*\bNOW\b' <<<"$dynamic" || fail "$program is linked while it runs"
    grep -q '__stack_chk_fail' <<<"$symbols" || fail "$program does not guard its stacks"
    grep -qE '__[a-z]+_chk\b' <<<"$symbols" || fail "$program does not check its copies"
    grep 'GNU_STACK' <<<"$segments" | grep -q 'RW ' || fail "$program can run what lies on its stack"
    ! grep -qE 'RPATH|RUNPATH' <<<"$dynamic" || fail "$program takes libraries of this machine"
done
finish
