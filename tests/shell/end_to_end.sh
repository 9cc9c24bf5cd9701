#!/bin/bash
# Runs the real program on its own display with keys and mouse. Opens a track from the command line, applies two
# tools, and saves under a new name. The file must equal the one that the command line tool writes.
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
# In the simulator's folder, the program does not ask for that folder.
cp "$program" "$work/railwright"
touch "$work/NoLimitsSimulator.exe"
QT_QPA_PLATFORM=xcb "$work/railwright" "$track" &
running=$!
await_window '^Railwright: harbor-comet.nltrack$'
# Without a window manager, no window gets the keyboard focus.
xdotool windowfocus "$window"
wait_for has_keyboard '^Railwright'
work_on_track
xdotool windowfocus "$(find_window '^Save NoLimits Track File')"
type_name "$work/changed"
expect_changed "$tool" "$track" "$work/changed.nltrack"
# Exit ends the process with status 0, even with unsaved changes.
click 504 288
wait_for find_window '^Railwright: changed.nltrack[*]$'
xdotool windowfocus "$window"
wait_for has_keyboard '^Railwright'
choose_exit
wait "$running"
