# shellcheck shell=bash disable=SC2154
# Tests of the browser host as a whole: what goes wrong, and what nobody must see. They use HOST, the
# program, and PRELOAD, which gives it its layouts.

pages=$root/tests/hosts/browser/pages
patience=${PATIENCE:-240}
font=/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf

# host [PAGE] [OPTION...]: with the steps in the file "steps".
host() {
    DFBARGS=${DFBARGS-system=dummy,mode=1920x1080,quiet,no-cursor} VIRTUAL_KEYBOARD_FONT_PATH=$font \
        LD_PRELOAD=$PRELOAD "$HOST" --play steps --patience "$patience" "$@"
}

# in_background PAGE OPTION...: sets browser to its process.
in_background() {
    host "$@" >said 2>&1 &
    browser=$!
    # The function's shell becomes no program: the host is its child.
    within_patience has_child "$browser"
    browser=$(child_of "$browser")
}
child_of() { ps -o pid= --ppid "$1" | head -n 1 | tr -d ' '; }
has_child() { [ -n "$(child_of "$1")" ]; }

ends_with() { # STATUS
    local ended=0
    wait %1 || ended=$?
    output=$(cat said)
    [ "$ended" -eq "$1" ] || fail "expected status $1, got $ended"
}

# descendants PID: all processes below it.
descendants() {
    local child
    for child in $(ps -o pid= --ppid "$1"); do
        echo "$child"
        descendants "$child"
    done
}

# kill_process NAME: those below the host that run this program.
kill_process() {
    local process killed=
    for process in $(descendants "$browser"); do
        [[ $(readlink "/proc/$process/exe") == */"$1" ]] || continue
        kill -KILL "$process"
        killed=yes
    done
    [ -n "$killed" ] || fail "found no process $1"
}

# within_patience COMMAND...: asks until it is true.
within_patience() {
    local deadline=$((SECONDS + patience))
    until "$@"; do
        ((SECONDS < deadline)) || fail "not within $patience seconds: $*; $(cat said)"
        sleep 0.05
    done
}

# there FILE: the session got so far that it wrote the picture.
there() { within_patience test -s "$1"; }

# The session's steps "picture reached" and "picture go_on" are pipes: it stands still from when the first
# is read until the second is.
pause() { mkfifo reached go_on; }
at_pause() {
    timeout "$patience" cat reached >/dev/null || fail "did not get so far: $(cat said)"
    "$@"
    timeout "$patience" cat go_on >/dev/null || fail "did not go on: $(cat said)"
}

test_step_that_does_not_come_says_what_was_there() {
    printf 'wait page ready\n\n# a remark\nwait title Nothing\n' >steps
    # The page, too, must come within the patience.
    for patience in 1 4 16 64; do
        run host "file://$pages/field.html"
        [[ $output != *"steps:1:"* ]] || continue
        break
    done
    expect_status 1
    expect_said "steps:4: 'wait title Nothing': awaited a title with 'Nothing', found 'field'"
}

test_key_that_no_layout_has_ends_the_session() {
    printf 'wait keyboard shown\ntype 漢\n' >steps
    run host "file://$pages/field.html"
    expect_status 1
    expect_said "steps:2: 'type 漢': awaited keys that can do it, found none for '漢'"
    printf 'wait keyboard shown\nkey Nothing\n' >steps
    run host "file://$pages/field.html"
    expect_status 1
    expect_said "found no such key in the layouts"
}

test_typing_without_a_keyboard_ends_the_session() {
    printf 'wait page ready\ntype a\n' >steps
    run host "file://$pages/dialogs.html"
    expect_status 1
    expect_said "awaited a keyboard to type with, found it hidden"
}

test_line_that_is_no_step_is_named() {
    local line
    while IFS= read -r line; do
        printf 'wait page ready\n%s\n' "$line" >steps
        run host "file://$pages/field.html"
        expect_status 2
        expect_said "steps:2: found '$line', expected "
    done <<'LINES'
jump
press
press sideways
press left many
press left 0x3
wait keyboard here
reload now
type 
LINES
}

test_wrong_options_are_refused() {
    run "$HOST" --patience 5
    expect_status 2
    run "$HOST" --nothing
    expect_status 2
    run "$HOST" --help
    expect_status 0
    expect_said "--play FILE"
    run "$HOST" --play none
    expect_status 2
    expect_said "none: cannot be read"
}

test_page_that_is_not_there() {
    printf 'wait title This page cannot be shown\nwait page none.html\nwait page Try again\npress ok\nwait page none.html\n' >steps
    run host "file://$pages/none.html"
    expect_status 0
    expect_said "none.html: cannot be shown: "
}

test_no_network() {
    # Nobody listens at this port of this machine.
    printf 'wait title This page cannot be shown\nwait page 127.0.0.1:61999\npress back\n' >steps
    run host http://127.0.0.1:61999/
    expect_status 0
    expect_said "http://127.0.0.1:61999/: cannot be shown: "
}

test_page_whose_process_is_killed_in_the_middle_of_a_word() {
    cat >steps <<'STEPS'
wait keyboard shown
type ab
wait page <ab>
picture reached
picture go_on
wait title This page ended
wait keyboard hidden
press ok
wait page ready
wait keyboard shown
type c
wait page <c>
STEPS
    pause
    in_background "file://$pages/field.html"
    at_pause kill_process WPEWebProcess
    ends_with 0
    expect_said "field.html: the page's process ended"
}

test_network_process_that_is_killed_in_the_middle_of_a_word() {
    cat >steps <<'STEPS'
wait keyboard shown
type ab
wait page <ab>
picture reached
picture go_on
type c
wait page <abc>
reload
wait page ready
wait keyboard shown
type d
wait page <d>
STEPS
    pause
    in_background "file://$pages/field.html"
    at_pause kill_process WPENetworkProcess
    ends_with 0
}

test_no_layouts() {
    mkdir empty
    printf 'wait title There is no keyboard\nwait page Language_Name.json\npress ok\nwait page ready\nwait keyboard hidden\npress 5\nwait page <5>\n' >steps
    VKB_TEST_ROOT=$PWD/empty run host "file://$pages/field.html"
    expect_status 0
    expect_said "found no layouts"
}

test_no_font() {
    printf 'wait title There is no keyboard\nwait page VIRTUAL_KEYBOARD_FONT_PATH\npress ok\nwait page ready\nwait keyboard hidden\n' >steps
    font=/none run host "file://$pages/field.html"
    expect_status 0
    expect_said "found no font file"
}

# The log has every key code of the fields before and after, and none of the password's. Y, Z and W are
# typed there alone.
test_password_is_nobodys_business() {
    cat >steps <<'STEPS'
wait keyboard shown
type ab
key Tab
wait keyboard shown
type zyw
wait page password of 3
key Back
wait page password of 2
key Tab
wait keyboard shown
type c
wait page <c>
STEPS
    run host "file://$pages/password.html" --log log
    expect_status 0
    expect_not_said zyw
    local code
    for code in 0x41 0x42 0x43; do
        grep -q "keycode:$code\$" log || fail "the log lacks $code"
    done
    for code in 0x5a 0x59 0x57; do
        ! grep -q "keycode:$code\$" log || fail "the log tells $code of the password"
    done
    ! grep -qE 'focus button:[zyw]$' log || fail "the log tells the way to the password's letters"
}

test_nothing_is_kept_on_the_disk() {
    mkdir home
    printf 'wait keyboard shown\ntype a\nwait page <a>\nreload\nwait page ready\n' >steps
    HOME=$PWD/home XDG_CACHE_HOME=$PWD/home/cache XDG_DATA_HOME=$PWD/home/data XDG_CONFIG_HOME=$PWD/home/config \
        XDG_RUNTIME_DIR=$PWD/home run host "file://$pages/field.html"
    expect_status 0
    # The system's libraries keep their own caches, which know nothing of pages.
    output=$(find home -type f | grep -vE '/(fontconfig|mesa_shader_cache|gstreamer-1.0)/' || true)
    [ -z "$output" ] || fail "files are left"
}

# memory_after PAGES: sets memory to the KiB of the host's own memory once so many pages have been typed
# into. Nothing is drawn into a file meanwhile: a picture in the making takes 16 MiB.
memory_after() {
    local i
    for ((i = 1; i < $1; ++i)); do
        printf 'wait title page %d.\nwait keyboard shown\ntype a\nkey Enter\n' $((i - 1))
    done >steps
    printf 'wait title page %d.\nwait keyboard shown\ntype b\nwait title the end\n' $(($1 - 1)) >>steps
    patience=$((5 * patience)) in_background "file://$pages/chain.html" --log log
    within_patience typed_last # the log is as good as the page, and costs the host nothing
    memory=$(awk '$1 == "Anonymous:" { print $2 }' "/proc/$browser/smaps_rollup")
    kill "$browser"
    wait %1 || true
    rm log
}
typed_last() {
    [ -e "/proc/$browser" ] || fail "the host ended: $(cat said)"
    grep -q 'keycode:0x42$' log
}

test_fifty_pages_in_a_row_take_no_memory() {
    local early
    memory_after 16
    early=$memory
    memory_after 50
    echo "anonymous memory of the host: $early KiB after 16 pages, $memory KiB after 50"
    ((memory - early < 2048)) || fail "it grew by $((memory - early)) KiB"
}

test_start_page_and_its_demonstration() {
    cp "$root/hosts/browser/pages/demonstration.txt" steps
    run host --record session.gif
    expect_status 0
    file session.gif | grep -q 'GIF image data.* 960 x 540' || fail "$(file session.gif)"
    cmp session.gif "$root/docs/browser.gif" ||
        fail "docs/browser.gif: found an older look. To take the new one over, and look at it:" \
            "env -u DISPLAY make run-browser && cp build/run/browser.gif docs/"
}
