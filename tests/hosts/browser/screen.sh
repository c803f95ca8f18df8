# shellcheck shell=bash disable=SC2154
# The browser host on a screen with a keyboard's real events.

. "$root/tests/hosts/browser/host.sh"

# keys ARGUMENT...: xdotool's. When the last of them ends the session, the screen may go before xdotool has
# let go of it; a key that did not arrive leaves the session waiting.
keys() { xdotool "$@" 2>/dev/null || true; }

# with_keys PAGE: the host on a screen of its own; the session in "steps" says with pictures how far it is,
# and keys come from xdotool meanwhile.
with_keys() {
    export -f host
    export PRELOAD HOST patience font
    # shellcheck disable=SC2016 # the inner shell's own
    "$scripts/with-screen" bash -c 'echo "$DISPLAY" >display; host "$@"' - "$@" >said 2>&1 &
    there display
    DISPLAY=$(cat display)
    export DISPLAY
}

test_burst_of_200_keys_without_a_pause() {
    cat >steps <<'STEPS'
wait page ready
picture ready.png
wait keyboard shown
press down
press right
picture there.png
wait title 200 letters.
wait keyboard shown
press back
STEPS
    with_keys "file://$pages/count.html"
    there ready.png
    keys key Return # on the page's button
    there there.png
    keys key --delay 0 --repeat-delay 0 --repeat 200 Return
    ends_with 0
}

# What is held down from the page into the keyboard presses no key there.
test_key_that_is_held_while_a_field_is_entered() {
    cat >steps <<'STEPS'
wait page ready
picture ready.png
wait keyboard shown
picture shown.png
wait page held
wait keyboard shown
STEPS
    sed 's|</script>|setTimeout(() => say("held"), 2000);</script>|' "$pages/count.html" >held.html
    cp "$pages"/tools.js "$pages"/style.css .
    with_keys "file://$PWD/held.html" --log log
    there ready.png
    keys keydown Return
    ends_with 0
    keys keyup Return
    # The focus begins on the key that hides.
    ! grep -q 'Hide the VKB' log || fail "OK pressed a key of the keyboard"
}

# The screen's own repetition; the log tells of each step.
test_arrow_that_is_held_goes_on() {
    cat >steps <<'STEPS'
wait page ready
picture ready.png
wait keyboard shown
picture shown.png
wait keyboard hidden
STEPS
    with_keys "file://$pages/count.html" --log log
    there ready.png
    keys key Return
    there shown.png
    local before
    before=$(steps_of_focus)
    keys keydown Right
    within_patience went_on "$((before + 5))"
    keys keyup Right
    keys key Escape
    ends_with 0
}
steps_of_focus() { grep -c 'focus button:' log || true; }
went_on() { (($(steps_of_focus) >= $1)); }
