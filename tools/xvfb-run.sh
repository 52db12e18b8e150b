#!/usr/bin/env bash
# xvfb-run.sh [--session-bus] COMMAND...: runs the command on a virtual display of its own, with a
# window manager, a private runtime folder and no session bus, or one of its own, and ends all of it
# afterwards.
set -euo pipefail

bus=""
if [ "${1:-}" = --session-bus ]; then
    bus=yes
    shift
fi
[ $# -gt 0 ] || { echo "usage: xvfb-run.sh [--session-bus] COMMAND..." >&2; exit 2; }

# shellcheck source=tools/virtual-display.sh
source "$(dirname "${BASH_SOURCE[0]}")/virtual-display.sh"
start_display 1600x1200

# openbox runs its start-up command once it manages the display.
mkfifo "$runtime/managed"
openbox --sm-disable --startup "sh -c 'echo managed >$runtime/managed'" >"$runtime/openbox.log" 2>&1 &
processes=($! "${processes[@]}")
read -r -t 30 <>"$runtime/managed" || fail_to_start openbox "$runtime/openbox.log"

if [ -n "$bus" ]; then
    unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS
    set -- dbus-run-session -- "$@"
fi
run_and_exit "$@"
