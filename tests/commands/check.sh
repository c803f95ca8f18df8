# shellcheck shell=bash
# What the tests here share; sourced by run-test. Each test runs in an empty folder of its own.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck disable=SC2034 # used by the tests
here=$root/tests/commands
# shellcheck disable=SC2034 # used by the tests
scripts=$root/scripts

fail() {
    printf 'FAILED: %s\n' "$*" >&2
    [ -z "${output:-}" ] || printf 'The command printed:\n%s\n' "$output" >&2
    exit 1
}

# skip WHY: this system cannot do what the test is about.
skip() {
    printf 'SKIPPED: %s\n' "$*"
    exit 77
}

# run COMMAND...: sets status and output (both streams).
run() { output=$("$@" 2>&1 </dev/null) && status=0 || status=$?; }

expect_status() { [ "$status" -eq "$1" ] || fail "expected status $1, got $status"; }
expect_said() { [[ $output == *"$1"* ]] || fail "expected it to say: $1"; }
expect_not_said() { [[ $output != *"$1"* ]] || fail "expected it not to say: $1"; }

# fake NAME BODY: a program of that name that comes first on PATH and does BODY.
fake() {
    mkdir -p fakes
    printf '#!/bin/bash\n%s\n' "$2" >"fakes/$1"
    chmod +x "fakes/$1"
    [[ :$PATH: == *":$PWD/fakes:"* ]] || PATH=$PWD/fakes:$PATH
}

# only PROGRAM...: a PATH with nothing but these and the fakes.
only() {
    mkdir -p only
    local program
    for program in "$@"; do
        ln -sf "$(command -v "$program")" "only/$program"
    done
    PATH=$PWD/fakes:$PWD/only
}

# eventually COMMAND...: asks until it is true, ten seconds at most.
eventually() {
    local deadline=$((SECONDS + 10))
    until "$@"; do
        ((SECONDS < deadline)) || fail "not true within ten seconds: $*"
        sleep 0.05
    done
}
