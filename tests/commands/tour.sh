# shellcheck shell=bash disable=SC2154,SC2016
# Tests of scripts/tour's own ends; what a real tour shows is looked at in pictures_test.

# A driver that answers each command with the line in the file "result".
driver_that_answers() {
    fake answering_driver 'echo "=>pls input cmd  [parames]"
        while read -r line; do
            [ "$line" != die ] || exit 3
            printf "B-LOG kb_test.cpp:20:kb_test_get_key(): %s\n" "$(cat result)"
            echo "=======>test right move using:1 ms"
            echo "=>pls input cmd  [parames]"
        done'
    echo "$1" >result
    export DRIVER=$PWD/fakes/answering_driver PICTURES=$PWD/pictures
}

test_wrong_result_fails_and_names_the_step() {
    driver_that_answers 'curernt key :7'
    run "$scripts/with-screen" "$scripts/tour"
    expect_status 1
    expect_said 'step 2 (right 4) must end with "curernt key :1" and gave "curernt key :7"'
}

test_screen_without_a_change_fails() {
    driver_that_answers 'curernt key :1'
    export PATIENCE=1
    run "$scripts/with-screen" "$scripts/tour"
    expect_status 1
    expect_said 'the screen shows no change'
}

test_driver_that_ends_fails() {
    driver_that_answers ''
    fake answering_driver 'echo "cannot open the display"; exit 3'
    run "$scripts/with-screen" "$scripts/tour"
    expect_status 1
    expect_said 'the driver does not answer'
    expect_said 'cannot open the display'
}

test_without_a_screen_says_what_to_do() {
    run "$scripts/tour"
    expect_status 1
    expect_said 'no screen to play on'
}

test_without_a_driver_says_what_to_do() {
    export DISPLAY=:7777 DRIVER=$PWD/none
    run "$scripts/tour"
    expect_status 1
    expect_said 'no driver at'
    expect_said 'make keyboard'
}
