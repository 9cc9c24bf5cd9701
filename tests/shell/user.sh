# shellcheck shell=bash
# Functions of the end-to-end tests, which use the window like a user, with mouse and keys.
fail() {
    echo "$*" >&2
    exit 1
}
# Waits until the command succeeds.
wait_for() {
    for _ in $(seq 600); do
        if "$@" >/dev/null 2>&1; then return; else sleep 0.1; fi
    done
    fail "waited in vain for: $*"
}
find_window() { xdotool search --onlyvisible --name "$1" | head -n 1 | grep .; }
has_keyboard() { xdotool getwindowfocus getwindowname | grep -q "$1"; }
# Coordinates are those of the layout, below the menu bar.
click() { xdotool mousemove --window "$window" "$1" $((menu + $2)) click 1; }

# Waits for a window with that title. Later clicks go to this window.
await_window() {
    wait_for find_window "$1"
    window=$(find_window "$1")
    menu=$(($(xdotool getwindowgeometry --shell "$window" | sed -n 's/^HEIGHT=//p') - 445))
}
# Mirrors and moves the track, then opens the save dialog.
work_on_track() {
    # With keys only: down the list of tools to Mirror, and to its first button.
    xdotool key --repeat 7 Tab key Return key --repeat 8 Tab key space
    wait_for find_window '^Railwright: harbor-comet.nltrack[*]$'
    click 40 82   # the tool Move
    click 504 288 # to the north
    click 160 16  # the picture that saves
    wait_for find_window '^Save NoLimits Track File'
}
type_name() {
    wait_for has_keyboard '^Save NoLimits Track File'
    xdotool key ctrl+a type --delay 20 "$1"
    xdotool key Return
    wait_for find_window '^Railwright: changed.nltrack$'
}
# expect_changed CLI ORIGINAL CHANGED: the command line creates the same file with the same steps.
expect_changed() {
    local expected=${3%.nltrack}-expected.nltrack
    "$1" apply "$2" mirror=north-south move=0,0,-5 -o "$expected" >/dev/null
    cmp "$3" "$expected"
    rm "$expected"
}
# The last entry of the menu File.
choose_exit() {
    click 16 -9
    xdotool key Up Return
}
