#!/bin/bash
# Runs the real program on a display of its own with keys and mouse: opens a track from the command line, applies two
# tools, and saves under a new name. The file must be the one that the command line tool writes.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
if [ "$1" != --on-display ]; then
    exec "$here/../../scripts/with-display" "$0" --on-display "$@"
fi
# shellcheck source=tests/shell/user.sh
. "$here/user.sh"
program=$2 tool=$3 track=$4/harbor-comet.nltrack
work=$(mktemp -d)
trap 'kill "$running" 2>/dev/null || true; rm -rf "$work"' EXIT
# Beside the simulator's program no question about its folder comes up.
cp "$program" "$work/railwright"
touch "$work/NoLimitsSimulator.exe"
QT_QPA_PLATFORM=xcb "$work/railwright" "$track" &
running=$!
await_window '^Railwright: harbor-comet.nltrack$'
# No window manager gives a window the keyboard.
xdotool windowfocus "$window"
wait_for has_keyboard '^Railwright'
work_on_track
xdotool windowfocus "$(find_window '^Save NoLimits Track File')"
type_name "$work/changed"
expect_changed "$tool" "$track" "$work/changed.nltrack"
# Exit ends the process with success, whatever is not saved.
click 504 288
wait_for find_window '^Railwright: changed.nltrack[*]$'
xdotool windowfocus "$window"
wait_for has_keyboard '^Railwright'
choose_exit
wait "$running"
