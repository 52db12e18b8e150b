#!/usr/bin/env bash
# wayland-run.sh COMMAND...: runs the command under a Wayland compositor of its own and ends all of
# it afterwards. The compositor shows its screen, 1280 x 960, in a window on the left of a virtual X
# display, so what xdotool does there (DISPLAY) is real input for the command, which sees only
# Wayland.
set -euo pipefail

[ $# -gt 0 ] || { echo "usage: wayland-run.sh COMMAND..." >&2; exit 2; }

runtime=$(mktemp -d "${TMPDIR:-/tmp}/voxi-wayland.XXXXXX")
chmod 0700 "$runtime"
server=""
compositor=""
child=""

cleanup() {
    trap - EXIT
    for process in $child $compositor $server; do
        kill "$process" 2>/dev/null || true
    done
    wait 2>/dev/null || true
    rm -rf "$runtime"
}
trap cleanup EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# The server writes the number of its display into the pipe once it accepts clients. Its pointer is in
# the middle at first, beside the compositor's window: one that is in it before the compositor has
# painted for the first time is taken to be at no number, and stays off by as much from then on.
mkfifo "$runtime/display"
Xvfb -displayfd 3 -screen 0 2600x960x24 -dpi 96 -nolisten tcp -noreset \
    3<>"$runtime/display" >"$runtime/xvfb.log" 2>&1 &
server=$!
if ! read -r -t 30 number <>"$runtime/display"; then
    echo "wayland-run.sh: Xvfb did not start:" >&2
    cat "$runtime/xvfb.log" >&2
    exit 1
fi

export DISPLAY=":$number"
export XDG_RUNTIME_DIR="$runtime"
export DBUS_SESSION_BUS_ADDRESS="disabled:"
unset WAYLAND_DISPLAY SESSION_MANAGER XAUTHORITY

# No panel and no animations: nothing but the command's windows, where they are at once.
cat >"$runtime/weston.ini" <<'INI'
[core]
idle-time=0
[shell]
panel-position=none
animation=none
close-animation=none
startup-animation=none
focus-animation=none
locking=false
INI
weston --backend=x11-backend.so --use-pixman --width=1280 --height=960 --config="$runtime/weston.ini" \
    --socket=voxi --log="$runtime/weston.log" >"$runtime/output.log" 2>&1 &
compositor=$!
# Its socket is there before it accepts, and what connects meanwhile waits.
deadline=$((SECONDS + 30))
until [ -S "$runtime/voxi" ]; do
    if ! kill -0 "$compositor" 2>/dev/null || [ "$SECONDS" -ge "$deadline" ]; then
        echo "wayland-run.sh: weston did not start:" >&2
        cat "$runtime/weston.log" "$runtime/output.log" >&2
        exit 1
    fi
    sleep 0.05
done
export WAYLAND_DISPLAY=voxi

# In the background, because bash answers no signal while it waits for a foreground command.
"$@" <&0 &
child=$!
status=0
wait "$child" || status=$?
child="" # its number may be another's by now
exit "$status"
