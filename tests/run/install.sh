# shellcheck shell=bash disable=SC2154,SC2016
# Tests of scripts/install. BUILD is the build tree that is tested.

layouts=/usr/local/opt/nerovista/resources/oskeyboard_config

test_files_land_where_they_belong() {
    export DESTDIR=$PWD/machine PREFIX=/opt/keyboard
    run "$scripts/install"
    expect_status 0
    [ -x machine/opt/keyboard/bin/os_keyboard_test ] || fail "no driver"
    [ -f machine/opt/keyboard/lib/libcspdebug.so ] ||
        compgen -G 'machine/opt/keyboard/lib/*/libcspdebug.so' >/dev/null || fail "no log library"
    diff <(cd "$root/resources/oskeyboard_config" && ls Language_*.json) <(ls "machine$layouts") ||
        fail "not the layouts"
}

test_installed_driver_finds_its_log_library() {
    export DESTDIR=$PWD/machine PREFIX=/opt/keyboard
    run "$scripts/install"
    expect_status 0
    run machine/opt/keyboard/bin/os_keyboard_test
    expect_status 255
    expect_said 'main_test.cpp'
}

test_place_of_somebody_else_says_what_to_do() {
    mkdir locked
    chmod a-w locked
    export DESTDIR=$PWD/locked
    # Root may write everywhere, so somebody else tries, with scripts that anybody may read.
    cp -r "$scripts" scripts
    chmod -R a+rX .
    if [ "$(id -u)" -eq 0 ]; then
        run setpriv --reuid=65534 --regid=65534 --clear-groups bash scripts/install
    else
        run scripts/install
    fi
    expect_status 1
    expect_said 'needs the rights of root'
    expect_said 'sudo make install'
}
