# shellcheck shell=bash disable=SC2154,SC2016
# Tests of scripts/with-layouts.

with_layouts=$scripts/with-layouts
on_television=/usr/local/opt/nerovista/resources/oskeyboard_config

test_process_finds_layouts_and_fonts() {
    run "$with_layouts" cmp "$root/resources/oskeyboard_config/Language_Name.json" "$on_television/Language_Name.json"
    expect_status 0
    run "$with_layouts" sh -c 'head -c 4 /usr/local/opt/font/TarvoL2700.ttf /opt/font/TarvoL2700.ttf'
    expect_status 0
}

test_process_keeps_the_rest_of_the_machine() {
    run "$with_layouts" sh -c 'cd /usr/local && ls -d *; cd /opt && ls'
    expect_status 0
    local entry
    for entry in /usr/local/* /opt/*; do
        [ ! -e "$entry" ] || expect_said "${entry##*/}"
    done
}

test_machine_stays_as_it_is() {
    local before
    before=$(ls -lR /usr/local/opt /opt/font 2>&1 || true)
    run "$with_layouts" true
    expect_status 0
    [ "$before" = "$(ls -lR /usr/local/opt /opt/font 2>&1 || true)" ] || fail "the machine has changed"
}

test_other_layouts_can_be_chosen() {
    mkdir mine
    echo mine >mine/Language_Name.json
    export LAYOUTS=mine
    run "$with_layouts" cat "$on_television/Language_Name.json"
    expect_status 0
    [ "$output" = mine ] || fail "these are not the chosen layouts"
}

test_layouts_that_are_no_folder_are_named() {
    run env LAYOUTS=nowhere "$with_layouts" echo started
    expect_status 1
    expect_said "LAYOUTS: found 'nowhere', expected a folder with layouts"
    expect_not_said started
}

test_status_and_font_path_are_passed_on() {
    run "$with_layouts" sh -c 'echo "$VIRTUAL_KEYBOARD_FONT_PATH"; exit 7'
    expect_status 7
    [ "$output" = /usr/local/opt/font/TarvoL2700.ttf ] || fail "the font path is wrong"
}

test_own_font_path_is_kept() {
    export VIRTUAL_KEYBOARD_FONT_PATH=/my/font.ttf
    run "$with_layouts" sh -c 'echo "$VIRTUAL_KEYBOARD_FONT_PATH"'
    [ "$output" = /my/font.ttf ] || fail "the font path is wrong"
}

# What lies below a folder that gets covered is still reached.
test_layouts_below_a_covered_folder() {
    mkdir mine
    echo mine >mine/Language_Name.json
    run env LAYOUTS="$PWD/mine" "$with_layouts" \
        env LAYOUTS="$on_television" "$with_layouts" cat "$on_television/Language_Name.json"
    expect_status 0
    [ "$output" = mine ] || fail "these are not the chosen layouts"
}

test_layouts_are_for_reading_only() {
    mkdir mine
    echo mine >mine/Language_Name.json
    export LAYOUTS=mine
    run "$with_layouts" sh -c "echo yours >'$on_television/Language_Name.json'"
    expect_status 2
    expect_said 'Read-only file system'
    [ "$(cat mine/Language_Name.json)" = mine ] || fail "the layouts were written"
}

# No process stands between the caller and the command, and no right of the mounts is left.
test_command_takes_the_place_of_the_script() {
    "$with_layouts" sh -c 'echo $$ >command' &
    wait $!
    [ "$(cat command)" = $! ] || fail "the command is process $(cat command), the script was $!"
}

# as_plain_user COMMAND...: without the rights of root.
as_plain_user() {
    if [ "$(id -u)" -eq 0 ]; then
        setpriv --reuid=65534 --regid=65534 --clear-groups "$@"
    else
        "$@"
    fi
}
test_a_plain_user_gets_layouts_and_no_rights() {
    cd /
    run as_plain_user "$with_layouts" sh -c "grep CapEff /proc/self/status; ls '$on_television'"
    expect_status 0
    expect_said $'CapEff:\t0000000000000000'
    expect_said Language_Name.json
}

test_runs_where_the_caller_is() {
    run "$with_layouts" pwd
    [ "$output" = "$PWD" ] || fail "the command runs in $output"
}

# A system that forbids name spaces. Where layouts are installed they are used instead.
test_forbidden_name_spaces_say_what_to_do() {
    fake unshare 'echo "unshare: unshare failed: Operation not permitted" >&2; exit 1'
    run "$with_layouts" echo started
    if [ -f "$on_television/Language_Name.json" ]; then
        expect_status 0
        expect_said 'So the installed layouts are used'
        expect_said started
    else
        expect_status 1
        expect_said 'unshare failed: Operation not permitted'
        expect_said 'as root, run: make install'
        expect_not_said started
    fi
}

test_no_unshare_says_what_to_do() {
    only bash dirname basename
    run bash "$with_layouts" true
    expect_status 1
    expect_said 'unshare is not here'
    expect_said 'scripts/install-packages run'
}
