#!/usr/bin/env bash
# xvfb-run.sh [--session-bus] COMMAND...: runs the command on a virtual display of its own, with a
# window manager, a private runtime folder and no session bus, or one of its own, and ends all of it
# afterwards.
# Every call takes a free display, so several can run at the same time.
set -euo pipefail

bus=""
if [ "${1:-}" = --session-bus ]; then
    bus=yes
    shift
fi
[ $# -gt 0 ] || { echo "usage: xvfb-run.sh [--session-bus] COMMAND..." >&2; exit 2; }

runtime=$(mktemp -d "${TMPDIR:-/tmp}/voxi-x11.XXXXXX")
chmod 0700 "$runtime"
server=""
manager=""
child=""

cleanup() {
    trap - EXIT
    for process in $child $manager $server; do
        kill "$process" 2>/dev/null || true
    done
    wait 2>/dev/null || true
    rm -rf "$runtime"
}
trap cleanup EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# The server writes the number of its display into the pipe once it accepts clients.
mkfifo "$runtime/display"
Xvfb -displayfd 3 -screen 0 1600x1200x24 -dpi 96 -nolisten tcp -noreset \
    3<>"$runtime/display" >"$runtime/xvfb.log" 2>&1 &
server=$!
if ! read -r -t 30 number <>"$runtime/display"; then
    echo "xvfb-run.sh: Xvfb did not start:" >&2
    cat "$runtime/xvfb.log" >&2
    exit 1
fi

export DISPLAY=":$number"
export XDG_RUNTIME_DIR="$runtime"
export DBUS_SESSION_BUS_ADDRESS="disabled:"
unset WAYLAND_DISPLAY SESSION_MANAGER XAUTHORITY

# openbox runs its start-up command once it manages the display.
mkfifo "$runtime/managed"
openbox --sm-disable --startup "sh -c 'echo managed >$runtime/managed'" >"$runtime/openbox.log" 2>&1 &
manager=$!
if ! read -r -t 30 <>"$runtime/managed"; then
    echo "xvfb-run.sh: openbox did not start:" >&2
    cat "$runtime/openbox.log" >&2
    exit 1
fi

if [ -n "$bus" ]; then
    unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS
    set -- dbus-run-session -- "$@"
fi

# In the background, because bash answers no signal while it waits for a foreground command.
"$@" <&0 &
child=$!
status=0
wait "$child" || status=$?
child="" # its number may be another's by now
exit "$status"
