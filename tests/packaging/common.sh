# shellcheck shell=bash
# What the tests of the package share. Sourced by them.

failures=0
fail() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
}

# silent WHAT COMMAND...: the command must print nothing and succeed.
silent() {
    local what=$1 said
    shift
    said=$("$@" 2>&1) || fail "$what: ended with $?"
    [ -z "$said" ] || fail "$what: $said"
}

# same WHAT EXPECTED ACTUAL: both texts must be equal.
same() {
    [ "$2" = "$3" ] || fail "$1: instead of"$'\n'"$2"$'\n'"there is"$'\n'"$3"
}

finish() {
    [ "$failures" -eq 0 ] || exit 1
    echo "Everything is as it should be"
}

# commands_of CLB: the subcommands that its help lists, sorted.
commands_of() {
    "$1" --help | sed -n '/^Subcommands:/,$s/^  \([a-z][a-z-]*\) .*/\1/p' | LC_ALL=C sort
}

# options_of PROGRAM [COMMAND]: the long options that the help lists, sorted.
options_of() {
    "$@" --help | sed -nE 's/^  (-[a-z],)?(--[a-z-]+).*/\2/p' | LC_ALL=C sort
}
