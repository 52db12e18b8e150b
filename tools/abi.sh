#!/usr/bin/env bash
# abi.sh save|compare LIBRARIES FOLDER: keeps the libraries of a release, with their debug
# information, or tells what has changed since. Fails when programs that are compiled already might
# not run any more; what is only new is told.
# The peers are left out: who uses their headers is compiled with them anyway, and they would take
# as long as all others together several times over.
set -euo pipefail

mode=$1
libraries=$2
folder=$3

status=0
mkdir -p "$folder"
for room in voxi_util trov voxi voxi2 jhost_services qthost; do
    kept=$folder/lib$room.so
    if [ "$mode" = save ]; then
        cp -L "$libraries/lib$room.so" "$kept"
        continue
    fi
    [ -f "$kept" ] || { echo "abi.sh: there is no $kept" >&2; exit 1; }
    headers=platform/$room/include
    result=0
    changes=$(abidiff --headers-dir1 "$headers" --headers-dir2 "$headers" --drop-private-types \
        --no-show-locs "$kept" "$libraries/lib$room.so") || result=$?
    # The two lowest bits are errors. The others do not tell a member that is new in a class, which
    # breaks programs, from a class that is new.
    if [ $((result & 3)) -ne 0 ]; then
        echo "abi.sh: abidiff failed with $result: $changes" >&2
        exit 1
    elif grep -qE 'summary: ([1-9][0-9]* Removed|0 Removed, [1-9][0-9]* Changed)' <<<"$changes"; then
        echo "CHANGED $room"
        status=1
    elif [ $result -ne 0 ]; then
        echo "new     $room"
    else
        echo "same    $room"
    fi
    [ -z "$changes" ] || head -n 60 <<<"$changes" | sed 's/^/        /'
done
exit $status
