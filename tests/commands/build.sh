# shellcheck shell=bash disable=SC2154,SC2016
# Tests of scripts/build and scripts/test.

test_old_cmake_says_what_to_do() {
    fake cmake 'case $1 in --version) echo "cmake version 3.18.4" ;; *) exit 1 ;; esac'
    mkdir -p project/scripts
    cp "$scripts/common.sh" "$scripts/build" project/scripts
    touch project/CMakePresets.json
    run project/scripts/build keyboard
    expect_status 1
    expect_said 'this is cmake version 3.18.4; Debian 12 has 3.25, which is the oldest that will do'
}

test_no_cmake_says_what_to_do() {
    only bash dirname basename
    run bash "$scripts/build" keyboard
    expect_status 1
    expect_said 'cmake is not here'
    expect_said 'scripts/install-packages build'
}

test_old_compiler_says_what_to_do() {
    run cmake -DCMAKE_CXX_COMPILER_ID=GNU -DCMAKE_CXX_COMPILER_VERSION=6.3 \
        -P "$root/cmake/RequireCompiler.cmake"
    expect_status 1
    expect_said 'GNU 6.3'
    expect_said 'package g++'
}

test_compiler_of_debian_12_will_do() {
    run cmake -DCMAKE_CXX_COMPILER_ID=GNU -DCMAKE_CXX_COMPILER_VERSION=12.2.0 \
        -P "$root/cmake/RequireCompiler.cmake"
    expect_status 0
}

# project TESTS: a project of its own, with scripts/test and these tests, built.
project() {
    mkdir -p project/scripts
    cp "$scripts/common.sh" "$scripts/test" project/scripts
    cp "$root/CMakePresets.json" project
    printf '%s\n' 'cmake_minimum_required(VERSION 3.25)' 'project(none NONE)' 'enable_testing()' "$1" \
        >project/CMakeLists.txt
    cmake -S project -B project/build/default -G Ninja >/dev/null
}

test_passing_tests_are_summed_up() {
    project 'add_test(NAME one COMMAND true)
        add_test(NAME two COMMAND true)'
    run project/scripts/test
    expect_status 0
    expect_said 'Running 2 tests of build/default'
    expect_said '100% tests passed, 0 tests failed out of 2'
    expect_not_said 'Test #2'
}

test_a_preset_of_another_ones_folder_names_that() {
    project 'add_test(NAME SoakInputMethod COMMAND true)'
    cmake -S project -B project/build/asan -G Ninja >/dev/null
    run project/scripts/test asan-soak
    expect_status 0
    expect_said 'Running 1 tests of build/asan: '
}

test_start_says_how_long_it_takes() {
    project 'add_test(NAME one COMMAND sleep 1)
        add_test(NAME two COMMAND sleep 1)'
    run project/scripts/test
    expect_said 'Running 2 tests of build/default: a few minutes on two cores'
    run project/scripts/test
    [[ $output =~ 'Running 2 tests of build/default: about 0 min '[1-9][0-9]*' s, as the last time here' ]] ||
        fail 'the second time it must say how long'
}

test_progress_on_a_terminal_is_one_line() {
    project 'foreach(i RANGE 1 9)
        add_test(NAME "number${i}" COMMAND true)
        endforeach()'
    timeout 60 script -qefc project/scripts/test typed >/dev/null || fail "ended with $?"
    output=$(grep -a number typed)
    [ "$(wc -l <<<"$output")" -eq 1 ] || fail "expected one line"
    expect_said number9
}

test_failing_test_fails() {
    project 'add_test(NAME one COMMAND true)
        add_test(NAME two COMMAND sh -c "echo the reason; false")'
    run project/scripts/test
    [ "$status" -ne 0 ] || fail "a failing test must fail"
    expect_said 'the reason'
    expect_said '50% tests passed, 1 tests failed out of 2'
}

test_filter_that_matches_nothing_fails() {
    project 'add_test(NAME one COMMAND true)'
    run project/scripts/test default -R two
    [ "$status" -ne 0 ] || fail "no test at all must fail"
    expect_said 'No tests were found'
}

# build_project: a project of its own with scripts/build, built once.
build_project() {
    project 'add_custom_command(OUTPUT made COMMAND ${CMAKE_COMMAND} -E touch made)
        add_custom_target(make_it ALL DEPENDS made)'
    cp "$scripts/build" project/scripts
    run project/scripts/build default
    expect_status 0
    expect_said 'Building build/default'
}

test_nothing_to_build_says_nothing() {
    build_project
    run project/scripts/build default
    expect_status 0
    [ -z "$output" ] || fail "it spoke"
}

test_no_tests_at_all_fail() {
    project ''
    run project/scripts/test
    [ "$status" -ne 0 ] || fail "no test at all must fail"
}

test_skipped_test_is_named() {
    project 'add_test(NAME one COMMAND true)
        add_test(NAME two COMMAND sh -c "exit 77")
        set_tests_properties(two PROPERTIES SKIP_RETURN_CODE 77)'
    run project/scripts/test
    expect_status 0
    expect_said 'two (Skipped)'
}
