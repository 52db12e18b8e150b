# Sourced by xvfb-run.sh and wayland-run.sh: a virtual X display with a private runtime folder and
# without a session bus, and the end of all that runs there, however the script ends.
# shellcheck shell=bash

me=$(basename "$0")
runtime=$(mktemp -d "${TMPDIR:-/tmp}/voxi-display.XXXXXX")
chmod 0700 "$runtime"
processes=() # the latest first

cleanup() {
    trap - EXIT
    for process in "${processes[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    wait 2>/dev/null || true
    rm -rf "$runtime"
}
trap cleanup EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# fail_to_start PROGRAM LOG...
fail_to_start() {
    echo "$me: $1 did not start:" >&2
    shift
    cat "$@" >&2
    exit 1
}

# start_display WIDTHxHEIGHT: every call takes a free display, so several can run at the same time.
start_display() {
    local number
    # The server writes the number of its display into the pipe once it accepts clients.
    mkfifo "$runtime/display"
    Xvfb -displayfd 3 -screen 0 "$1x24" -dpi 96 -nolisten tcp -noreset \
        3<>"$runtime/display" >"$runtime/xvfb.log" 2>&1 &
    processes=($! "${processes[@]}")
    read -r -t 30 number <>"$runtime/display" || fail_to_start Xvfb "$runtime/xvfb.log"
    export DISPLAY=":$number"
    export XDG_RUNTIME_DIR="$runtime"
    export DBUS_SESSION_BUS_ADDRESS="disabled:"
    unset WAYLAND_DISPLAY SESSION_MANAGER XAUTHORITY
}

# run_and_exit COMMAND...: with its status.
run_and_exit() {
    # In the background, because bash answers no signal while it waits for a foreground command.
    local status=0 child
    "$@" <&0 &
    child=$!
    processes=("$child" "${processes[@]}")
    wait "$child" || status=$?
    processes=("${processes[@]:1}") # its number may be another's by now
    exit "$status"
}
