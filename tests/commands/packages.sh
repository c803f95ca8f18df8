# shellcheck shell=bash disable=SC2154,SC2016
# Tests of scripts/install-packages.

install=$scripts/install-packages

# Nothing here may really install.
no_apt() { fake apt-get 'echo "apt-get was called: $*"; exit 99'; }

# A package that is not installed. apt can install it once the file "known" is there, and writes what
# it was asked for to "calls".
missing_package() {
    fake dpkg-query 'shift 2; for p; do [ "$p" = ninja-build ] || echo "installed $p"; done'
    fake id 'echo 0'
    fake apt-get 'echo "$*" >>calls
        case $* in
        update*) touch known ;;
        install*) [ -f known ] || { echo "Unable to locate package"; exit 100; } ;;
        esac'
}

test_nothing_missing_calls_no_apt() {
    no_apt
    run "$install" build run tools hosts test
    expect_status 0
    [ -z "$output" ] || fail "it spoke"
}

# Measured against one bare question to dpkg, in the same moment on the same machine.
test_a_check_takes_little_more_than_asking_dpkg() {
    no_apt
    local start asked checked
    start=${EPOCHREALTIME/./}
    dpkg-query -W >all
    asked=$((${EPOCHREALTIME/./} - start))
    start=${EPOCHREALTIME/./}
    run "$install" build run tools hosts test
    checked=$((${EPOCHREALTIME/./} - start))
    expect_status 0
    ((checked < 20 * asked)) || fail "the check took $checked us, dpkg alone $asked us"
}

test_says_what_is_missing_and_why_then_installs_only_that() {
    missing_package
    touch known
    run "$install" build
    expect_status 0
    expect_said 'Packages: 1 are missing (build)'
    expect_said 'ninja-build - the generator that the CMake presets name'
    [ "$(tail -n 1 calls)" = 'install -y --no-install-recommends -q ninja-build' ] || fail "$(cat calls)"
    ! grep -q update calls || fail "the lists were fetched without need"
}

test_nothing_installed_at_all_misses_everything() {
    missing_package
    touch known
    fake dpkg-query 'exit 1'
    run "$install" build
    expect_status 0
    expect_said "$(grep -c '^[a-z]' "$scripts/packages/build.txt") are missing"
}

test_unknown_to_old_lists_fetches_them_first() {
    missing_package
    run "$install" build
    expect_status 0
    expect_said 'Fetching the lists of packages'
    expect_not_said 'Unable to locate'
}

test_old_lists_that_name_gone_versions_are_fetched_again() {
    missing_package
    fake apt-get 'case $* in
        update*) touch known ;;
        *--simulate*) ;;
        install*) [ -f known ] || { echo "404 Not Found"; exit 100; } ;;
        esac'
    run "$install" build
    expect_status 0
    expect_said 'Fetching the lists of packages'
}

test_what_cannot_be_installed_says_what_to_look_at() {
    missing_package
    fake apt-get 'echo "Could not resolve"; exit 100'
    run "$install" build
    expect_status 1
    expect_said 'Could not resolve'
    expect_said 'apt could not install the packages'
    expect_said 'is there a network?'
    expect_said 'the lists are made for Debian 12, and this is'
}

test_without_apt() {
    fake dpkg-query 'exit 1'
    only bash sed sort tr dirname basename cut
    run bash "$install" build
    expect_status 1
    expect_said 'this machine has no apt'
    expect_said 'ninja-build'
}

test_not_root_and_no_sudo() {
    missing_package
    no_apt
    fake id 'echo 1000'
    only bash sed sort tr dirname basename cut join
    run bash "$install" build
    expect_status 1
    expect_said 'there is no sudo here'
    expect_said 'as root, run: apt-get install ninja-build'
    expect_not_said 'apt-get was called'
}

test_not_root_uses_sudo_and_says_so() {
    missing_package
    touch known
    fake id 'echo 1000'
    fake sudo 'echo "sudo ran: $*"'
    run "$install" build
    expect_status 0
    expect_said 'sudo will ask for your password: installing packages needs the rights of root'
    expect_said 'sudo ran: env DEBIAN_FRONTEND=noninteractive apt-get install'
}

test_unknown_set_is_named() {
    no_apt
    run "$install" build kitchen
    expect_status 1
    expect_said 'no such set of packages among: build kitchen'
}

test_no_set_shows_the_sets() {
    run "$install"
    expect_status 1
    expect_said 'usage: install-packages SET...'
    expect_said 'build'
}

# A set with a misspelt package would only be noticed on a fresh machine.
test_every_listed_package_is_a_name_with_a_reason() {
    local file line
    for file in "$scripts"/packages/*.txt; do
        while IFS= read -r line; do
            [[ $line =~ ^[a-z0-9][a-z0-9+.-]+[[:space:]]+#.+$ || $line =~ ^(#.*)?$ ]] ||
                fail "${file##*/}: found '$line', expected a package, a blank and # with a reason"
        done <"$file"
    done
}
