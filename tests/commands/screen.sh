# shellcheck shell=bash disable=SC2154,SC2016
# Tests of scripts/with-screen.

with_screen=$scripts/with-screen

# Whether an X server of ours still shows that display.
gone() { ! xdotool getdisplaygeometry >/dev/null 2>&1; }

test_gives_a_television_screen_and_takes_it_away() {
    run "$with_screen" sh -c 'xdotool getdisplaygeometry; echo "display=$DISPLAY"; echo "$DFBARGS"'
    expect_status 0
    expect_said '1920 1080'
    expect_said 'system=x11,mode=1920x1080'
    export DISPLAY=${output#*display=}
    DISPLAY=${DISPLAY%%$'\n'*}
    eventually gone
}

test_passes_the_status_on() {
    run "$with_screen" sh -c 'exit 7'
    expect_status 7
}

test_hands_standard_input_on() {
    [ "$(echo word | "$with_screen" cat | tail -n 1)" = word ] || fail "the command did not get its input"
}

# end_of SIGNAL: the command and the screen end with the script.
end_of() {
    "$with_screen" sh -c 'echo "$DISPLAY" >display; echo $$ >command; exec sleep 1000' >/dev/null &
    local script=$!
    eventually test -s command
    export DISPLAY
    DISPLAY=$(cat display)
    ! gone || fail "the screen is not there"
    kill -s "$1" "$script"
    wait "$script" && status=0 || status=$?
    [ "$status" -eq "$((128 + $(kill -l "$1")))" ] || fail "the script ended with $status"
    eventually gone
    [ "$1" = KILL ] || ! kill -0 "$(cat command)" 2>/dev/null || fail "the command is left behind"
    [ "$1" != KILL ] || kill "$(cat command)"
}
test_terminated_leaves_nothing() { end_of TERM; }
test_hung_up_leaves_nothing() { end_of HUP; }
test_killed_leaves_no_screen() { end_of KILL; }

test_two_screens_at_once() {
    run "$with_screen" sh -c 'echo "first=$DISPLAY"; env -u DISPLAY "$0" sh -c "echo second=\$DISPLAY"' "$with_screen"
    expect_status 0
    local first second
    first=$(sed -n 's/^first=//p' <<<"$output")
    second=$(sed -n 's/^second=//p' <<<"$output")
    [[ -n $first && -n $second && $first != "$second" ]] || fail "the displays are $first and $second"
}

test_on_a_display_the_screen_is_a_window() {
    run "$with_screen" sh -c 'export OUTER=$DISPLAY; unset DFBARGS
        "$0" sh -c "DISPLAY=\$OUTER xdotool search --name \"^Television\" && xdotool getdisplaygeometry"' \
        "$with_screen"
    expect_status 0
    expect_said '1920 1080'
}

test_display_that_is_not_there_falls_back() {
    export DISPLAY=:7777
    run "$with_screen" xdotool getdisplaygeometry
    expect_status 0
    expect_said 'The display :7777 cannot show a window, so the screen is invisible.'
    expect_said '1920 1080'
}

test_no_screen_program_says_what_to_do() {
    only bash dirname basename mktemp rm
    run bash "$with_screen" true
    expect_status 1
    expect_said 'Xvfb is not here'
    expect_said 'scripts/install-packages run'
}

test_screen_that_does_not_start_shows_its_words() {
    fake Xvfb 'echo "no room for a screen" >&2; exit 1'
    run "$with_screen" true
    expect_status 1
    expect_said 'the screen did not start'
    expect_said 'no room for a screen'
}
