# shellcheck shell=bash disable=SC2154,SC2016
# Tests of `make install` and `make uninstall`. BUILD is the build tree that is tested.

layouts=/usr/local/opt/nerovista/resources/oskeyboard_config

# The tested tree is built already.
make_it() { make -C "$root" --no-print-directory -o installable "$@"; }

# own_machine: a folder for one. What lies below /usr shows through.
own_machine() {
    [ ! -e "$layouts" ] || skip "layouts are installed on this machine; take them away first: rm -r $layouts"
    mkdir -p machine
}

# changing COMMAND...: run, on a machine of its own in $PWD/machine.
changing() {
    own_machine
    run "$here/own-machine" machine "$@"
    ((status != 77)) || skip "this system forbids a process its own folders"
}

# as_somebody COMMAND...: run, as a user who is not root and owns $PWD/home and $PWD/machine.
as_somebody() {
    own_machine
    mkdir -p home
    if [ "$(id -u)" -ne 0 ]; then
        changing env HOME="$PWD/home" "$@"
        return
    fi
    chmod a+rx .
    chown -R 65534:65534 home machine
    local somebody=(setpriv --reuid=65534 --regid=65534 --clear-groups env "HOME=$PWD/home")
    "${somebody[@]}" test -r "$root/Makefile" || skip "somebody else may not read $root"
    run "${somebody[@]}" "$here/own-machine" machine "$@"
    ((status != 77)) || skip "this system forbids a process its own folders"
}

typing() {
    env DFBARGS=system=dummy,mode=1920x1080,quiet,no-cursor \
        VIRTUAL_KEYBOARD_FONT_PATH=/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf "$@"
}

export -f make_it typing
export root

# What is left below a folder, whatever it was.
left_below() { find "$1" -mindepth 1 ! -type d | grep -v /ld.so.cache | grep -v /aux-cache || true; }

test_files_land_where_they_belong() {
    export DESTDIR=$PWD/machine PREFIX=/opt/keyboard
    run make_it install
    expect_status 0
    [ -x machine/opt/keyboard/bin/os_keyboard_test ] || fail "no driver"
    [ -f machine/opt/keyboard/lib/libcspdebug.so ] ||
        compgen -G 'machine/opt/keyboard/lib/*/libcspdebug.so' >/dev/null || fail "no log library"
    local place
    for place in "$layouts" /opt/keyboard/share/velmora_vkb/oskeyboard_config; do
        diff <(cd "$root/resources/oskeyboard_config" && ls Language_*.json) <(ls "machine$place") ||
            fail "not the layouts: $place"
    done
}

test_summary_is_short() {
    export DESTDIR=$PWD/machine PREFIX=/opt/keyboard
    run make_it install
    expect_status 0
    (($(wc -l <<<"$output") <= 10)) || fail "more than ten lines"
    expect_said "Installed below $DESTDIR/opt/keyboard"
    expect_said 'layouts os_keyboard_test'
    local shipped=("$root"/resources/oskeyboard_config/Language_*.json)
    expect_said " $((${#shipped[@]} - 1)) layouts"
}

# Also what was installed twice, and below a folder with an odd name.
test_uninstall_leaves_nothing() {
    export DESTDIR="$PWD/machine & all" PREFIX=/opt/keyboard
    run make_it install
    expect_status 0
    run make_it install
    expect_status 0
    run make_it uninstall
    expect_status 0
    [ -z "$(ls -A "$DESTDIR")" ] || fail "left: $(find "$DESTDIR")"
    run make_it uninstall
    expect_status 2
    expect_said 'nothing is installed below'
}

test_installation_that_was_cut_short_is_taken_away() {
    export DESTDIR=$PWD/machine PREFIX=/opt/keyboard
    fake tar 'case $* in *-x*) head -c 3000000 | /usr/bin/tar "$@"; exit ;; esac
        exec /usr/bin/tar "$@"'
    run make_it install
    expect_status 2
    [ -n "$(left_below machine)" ] || fail "nothing was installed"
    run make_it uninstall
    expect_status 0
    [ ! -e machine/opt ] || fail "left: $(left_below machine)"
}

test_files_that_an_older_version_had_go() {
    export DESTDIR=$PWD/machine PREFIX=/opt/keyboard
    run make_it install
    expect_status 0
    touch machine/opt/keyboard/bin/older
    echo /opt/keyboard/bin/older >>machine/opt/keyboard/share/velmora_vkb/installed_files.txt
    sort -o machine/opt/keyboard/share/velmora_vkb/installed_files.txt{,}
    run make_it install
    expect_status 0
    [ ! -e machine/opt/keyboard/bin/older ] || fail "it is still there"
}

test_installed_driver_finds_its_log_library() {
    export DESTDIR=$PWD/machine PREFIX=/opt/keyboard
    run make_it install
    expect_status 0
    run machine/opt/keyboard/bin/os_keyboard_test
    expect_status 255
    expect_said 'main_test.cpp'
}

test_languages_are_chosen_after_installing() {
    changing bash -ec '
        make_it install
        layouts install French Dutch
        ls '"$layouts"'
        typing terminal_host --type "ça va"'
    expect_status 0
    expect_said 'To choose languages: layouts install'
    expect_said " $(find "$root/resources/oskeyboard_config" -name 'Language_*' ! -name '*_Name.json' | wc -l) layouts"
    expect_said $'Language_Dutch.json\nLanguage_French.json\nLanguage_Name.json\nça va'
}

test_choice_outlives_the_next_installation_and_the_removal() {
    changing bash -ec '
        make_it install
        layouts install French Dutch
        make_it install
        ls '"$layouts"' | wc -l
        make_it uninstall'
    expect_status 0
    expect_said "the layouts that were there have stayed"
    expect_said $'\n3\n'
    expect_said "rm -r $layouts"
    [ "$(left_below machine/usr | wc -l)" -eq 3 ] || fail "left: $(left_below machine/usr)"
}

test_untouched_layouts_are_brought_up_to_date() {
    changing bash -ec '
        make_it install
        for place in '"$layouts"' /usr/local/share/velmora_vkb/oskeyboard_config; do
            echo old >$place/Language_French.json
            echo gone >$place/Language_Gone.json
        done
        make_it install
        cmp '"$layouts"'/Language_French.json $root/resources/oskeyboard_config/Language_French.json
        test ! -e '"$layouts"'/Language_Gone.json'
    expect_status 0
}

test_plain_user_is_told_before_anything_is_touched() {
    as_somebody bash -ec 'make_it install PREFIX=$HOME/keyboard'
    expect_status 2
    expect_said 'installing needs the rights of root'
    expect_said "sudo install -d -o"
    expect_said "$layouts"
    expect_not_said CMake
    [ -z "$(ls -A home)" ] || fail "installed all the same: $(find home)"

    as_somebody bash -ec 'make_it install'
    expect_status 2
    expect_said 'sudo make install'
    expect_not_said "sudo install -d"
}

test_plain_user_is_told_that_the_layouts_are_not_his() {
    as_somebody "$BUILD/tools/layouts/layouts" install French
    expect_status 1
    expect_said 'is not yours to write; run the command as root'
}

test_plain_user_installs_for_himself() {
    # What the message says that root should do once.
    mkdir -p "machine$layouts"
    as_somebody bash -ec '
        make_it install PREFIX=$HOME/keyboard
        PATH=$HOME/keyboard/bin:$PATH
        layouts install French Dutch
        typing terminal_host --type "ça va"
        make_it uninstall PREFIX=$HOME/keyboard
        find $HOME -mindepth 1'
    expect_status 0
    expect_said 'home/keyboard/bin/layouts install'
    expect_said 'PKG_CONFIG_PATH='
    expect_said 'ça va'
    expect_not_said 'home/keyboard/share/velmora_vkb/schema'
    [[ $output == *"rm -r $layouts" ]] || fail "left at home"
}

test_file_in_a_folders_place_is_named() {
    mkdir -p machine/opt/keyboard
    echo mine >machine/opt/keyboard/bin
    export DESTDIR=$PWD/machine PREFIX=/opt/keyboard
    run make_it install
    expect_status 2
    expect_said "$DESTDIR/opt/keyboard/bin: found a file, expected a folder"
    [ "$(left_below machine)" = machine/opt/keyboard/bin ] || fail "installed all the same"
}

test_relative_places_are_refused() {
    run make_it install PREFIX=keyboard
    expect_status 2
    expect_said "PREFIX: found 'keyboard', expected a path that begins with /"
    run make_it install DESTDIR=image
    expect_status 2
    expect_said "DESTDIR: found 'image', expected a path that begins with /"
}
