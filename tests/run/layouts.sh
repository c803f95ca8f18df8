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

# A system that forbids name spaces. Where layouts are installed they are used instead.
test_forbidden_name_spaces_say_what_to_do() {
    fake bwrap 'echo "bwrap: No permissions to create new namespace" >&2; exit 1'
    run "$with_layouts" echo started
    if [ -f "$on_television/Language_Name.json" ]; then
        expect_status 0
        expect_said 'So the installed layouts are used'
        expect_said started
    else
        expect_status 1
        expect_said 'No permissions to create new namespace'
        expect_said 'as root, run: make install'
        expect_not_said started
    fi
}

test_no_bwrap_says_what_to_do() {
    only bash dirname basename
    run bash "$with_layouts" true
    expect_status 1
    expect_said 'bwrap is not here'
    expect_said 'scripts/install-packages run'
}
