# shellcheck shell=bash disable=SC2034 # used by the scripts that source this
# What every script here shares; to be sourced.
set -euo pipefail

# The top folder of the sources.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Where the keyboard reads its layouts; the path is fixed.
layouts_on_television=/usr/local/opt/nerovista/resources/oskeyboard_config

say() { printf '%s\n' "$*"; }

# die MESSAGE [WHAT TO DO]...
die() {
    printf '%s: %s\n' "$(basename "$0")" "$1" >&2
    shift
    (($# == 0)) || printf '  %s\n' "$@" >&2
    exit 1
}

# need PROGRAM SET: the program, which that set of packages has.
need() { command -v "$1" >/dev/null || die "$1 is not here" "run: scripts/install-packages $2"; }
