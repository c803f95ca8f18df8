# shellcheck shell=bash disable=SC2154,SC2016
# Tests of scripts/build and scripts/test.

test_old_cmake_says_what_to_do() {
    fake cmake 'echo "cmake version 3.18.4"'
    run "$scripts/build" keyboard
    expect_status 1
    expect_said 'cmake is 3.18.4, and the build needs 3.25 or newer'
    expect_said 'Debian 12 and newer have it'
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
    expect_said '100% tests passed, 0 tests failed out of 2'
    expect_said 'Tests: 2, failures: 0, skipped: 0, time: '
}

test_failing_test_fails() {
    project 'add_test(NAME one COMMAND true)
        add_test(NAME two COMMAND sh -c "echo the reason; false")'
    run project/scripts/test
    [ "$status" -ne 0 ] || fail "a failing test must fail"
    expect_said 'the reason'
    expect_said 'Tests: 2, failures: 1, skipped: 0, time: '
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
    expect_said 'skipped: 1'
    expect_said 'skipped: two'
}
