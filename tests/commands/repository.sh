# shellcheck shell=bash disable=SC2154,SC2016
# Tests of what is checked in.

test_scripts_pass_shellcheck() {
    cd "$root" || exit
    git grep -lIE '^#!.*(bash|sh)$|^# shellcheck shell=' | xargs shellcheck
}

# Nothing may name the machine that it was written on, nor where that one gets its packages.
test_no_place_of_this_machine() {
    local hosts
    hosts=$(apt-get indextargets --format '$(SITE)' | sed 's|^[a-z+]*://||; s|[:/].*||' | sort -u)
    [ -n "$hosts" ] || fail "apt names no source"
    cd "$root" || exit
    run git grep -nIF -f <(printf '%s\n' "$root/" "$HOME/" "$hosts")
    [ "$status" -eq 1 ] || fail "named above"
}

test_no_temporary_or_home_folder_by_name() {
    cd "$root" || exit
    run git grep -nIE '(^|[^[:alnum:]_.}])/(tmp|home)/[[:alnum:]]'
    [ "$status" -eq 1 ] || fail "named above; mktemp gives a folder"
}

test_help_names_every_command() {
    run make -C "$root" --no-print-directory help
    expect_status 0
    local command
    for command in run run-screen run-driver test install format coverage clean; do
        expect_said "make $command "
    done
}
