# shellcheck shell=bash disable=SC2154,SC2016
# Tests of scripts/run. BUILD is the build tree that is tested, DRIVER its driver.

export PICTURES=pictures

expect_pictures() {
    expect_status 0
    expect_said 'so the keyboard types by itself'
    expect_said Zoë
    [ "$(head -c 6 pictures/keyboard.gif)" = GIF89a ] || fail "no moving picture"
    [ -s pictures/step-001.png ] || fail "no picture"
    expect_said "$(find pictures -name '*.png' | wc -l) pictures"
}

test_without_a_terminal_it_plays_and_leaves_pictures() {
    run "$scripts/run" terminal
    expect_pictures
}

test_without_a_display_the_screen_plays_and_leaves_pictures() {
    run "$scripts/run" screen
    expect_pictures
}

# So its recording is the one in the documents, which the browser's own tests make anew.
test_without_a_display_the_browser_plays_on_no_screen() {
    mkdir -p copy/scripts
    cp "$scripts"/{run,common.sh} copy/scripts
    printf '#!/bin/sh\necho "$DFBARGS: $*"\n' >copy/scripts/browser
    chmod +x copy/scripts/browser
    run copy/scripts/run browser
    expect_status 0
    expect_said 'system=dummy,mode=1920x1080,quiet,no-cursor: --play'
}

# The window takes keys: Escape leaves the page.
test_on_a_display_the_screen_takes_keys() {
    run "$scripts/with-screen" sh -c 'unset DFBARGS
        "$0" screen >said 2>&1 &
        host=$!
        until inner=$(sed -n "s/^The screen is the display //p" said) && grep -q ready said; do
            kill -0 $host || exit 3
            sleep 0.05
        done
        DISPLAY=${inner%.} xdotool key Escape
        wait $host' "$scripts/run"
    output=$(cat said)
    expect_status 1
    [[ ${output##*$'\n'} == 'screen_host: ready'* ]] || fail "what to press does not stand last"
}

test_the_drivers_prompts_say_what_to_type_last() {
    printf 'getkey\nquit \n\n' | timeout 60 script -qefc "'$scripts/run' driver" typed >/dev/null ||
        fail "ended with status $?: $(tail -n 5 typed)"
    output=$(tr -d '\r' <typed)
    expect_said 'test getkey using:'
    [ "$(grep -c '^Type: right 4.*DISPLAY=:[0-9]* scrot' <<<"$output")" -eq 2 ] ||
        fail "expected what to type behind each of two prompts"
    [[ $(grep -A 1 -F '=>pls input cmd' <<<"$output" | tail -n 1) == Type:* ]] ||
        fail "something stands behind what to type"
}

test_a_driver_that_fails_fails() {
    DRIVER=false run "$scripts/run" driver
    expect_status 1
}

test_nothing_to_run_is_a_usage_error() {
    run "$scripts/run"
    expect_status 1
    expect_said 'usage: run terminal|screen|browser|driver'
}
