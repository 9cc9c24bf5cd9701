#!/bin/bash
# Runs the real program on a display of its own with keys and mouse: opens a track from the command line, picks
# a tool, applies it, and saves under a new name. The file must be the one that the command line tool writes.
set -euo pipefail
program=$1 tool=$2 track=$3/harbor-comet.nltrack
work=$(mktemp -d)
running=()
trap 'kill "${running[@]}" 2>/dev/null || true; rm -rf "$work"' EXIT
wait_for() {
    for _ in $(seq 150); do
        if "$@" >/dev/null 2>&1; then return; else sleep 0.1; fi
    done
    echo "waited in vain for: $*" >&2 && exit 1
}
# Beside the simulator's program no question about its folder comes up.
cp "$program" "$work/railwright"
touch "$work/NoLimitsSimulator.exe"
exec 3> >(cat > "$work/display")
Xvfb -displayfd 3 -screen 0 1024x768x24 2>/dev/null &
running+=($!)
wait_for test -s "$work/display"
DISPLAY=:$(cat "$work/display")
export DISPLAY XDG_RUNTIME_DIR=$work QT_QPA_PLATFORM=xcb
"$work/railwright" "$track" &
running+=($!)
find_window() { xdotool search --onlyvisible --name "$1" | head -n 1 | grep .; }
wait_for find_window '^Railwright: harbor-comet.nltrack$'
window=$(find_window '^Railwright: harbor-comet.nltrack$')
# Places are told as the layout has them, below the menu bar.
menu=$(($(xdotool getwindowgeometry --shell "$window" | sed -n 's/^HEIGHT=//p') - 445))
click() { xdotool mousemove --window "$window" "$1" $((menu + $2)) click 1 sleep 0.3; }
click 40 82                # the tool Move
click 504 288              # to the north
wait_for find_window '^Railwright: harbor-comet.nltrack[*]$'
click 160 16               # the picture that saves
wait_for find_window '^Save NoLimits Track File'
dialog=$(find_window '^Save NoLimits Track File')
# No window manager gives the dialog the keyboard.
xdotool windowfocus "$dialog" sleep 0.5 key ctrl+a type --delay 20 "$work/moved"
xdotool key Return
wait_for find_window '^Railwright: moved.nltrack$'
"$tool" apply "$track" move=0,0,-5 -o "$work/expected.nltrack" >/dev/null
cmp "$work/moved.nltrack" "$work/expected.nltrack"
# A click on Exit in the menu ends the process with success, whatever is not saved.
click 504 288
wait_for find_window '^Railwright: moved.nltrack[*]$'
xdotool windowfocus "$window"
xdotool mousemove --window "$window" 16 9 click 1 sleep 0.5 key Up Return
wait "${running[1]}"
