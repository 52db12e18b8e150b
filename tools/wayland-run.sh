#!/usr/bin/env bash
# wayland-run.sh COMMAND...: runs the command under a Wayland compositor of its own and ends all of
# it afterwards. The compositor shows its screen, 1280 x 960, in a window on the left of a virtual X
# display, so what xdotool does there (DISPLAY) is real input for the command, which sees only
# Wayland.
set -euo pipefail

[ $# -gt 0 ] || { echo "usage: wayland-run.sh COMMAND..." >&2; exit 2; }

# shellcheck source=tools/virtual-display.sh
source "$(dirname "${BASH_SOURCE[0]}")/virtual-display.sh"

# The pointer is in the middle at first, beside the compositor's window: one that is in it before the
# compositor has painted for the first time is taken to be at no number, and stays off by as much from
# then on.
start_display 2600x960

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
processes=("$compositor" "${processes[@]}")
# Its socket is there before it accepts, and what connects meanwhile waits.
deadline=$((SECONDS + 30))
until [ -S "$runtime/voxi" ]; do
    if ! kill -0 "$compositor" 2>/dev/null || [ "$SECONDS" -ge "$deadline" ]; then
        fail_to_start weston "$runtime/weston.log" "$runtime/output.log"
    fi
    sleep 0.05
done
export WAYLAND_DISPLAY=voxi

run_and_exit "$@"
