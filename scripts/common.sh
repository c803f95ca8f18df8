# shellcheck shell=bash
# What every script here shares; to be sourced.
set -euo pipefail

# The top folder of the sources.
# shellcheck disable=SC2034 # used by the scripts that source this
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Where the keyboard reads its layouts; the path is fixed.
# shellcheck disable=SC2034 # used by the scripts that source this
layouts_on_television=/usr/local/opt/nerovista/resources/oskeyboard_config

say() { printf '%s\n' "$*"; }

# die MESSAGE [WHAT TO DO]...
die() {
    printf '%s: %s\n' "$(basename "$0")" "$1" >&2
    shift
    (($# == 0)) || printf '  %s\n' "$@" >&2
    exit 1
}
