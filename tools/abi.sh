#!/usr/bin/env bash
# abi.sh save|compare LIBRARIES FOLDER: writes down what each library exports, or tells what has
# changed since. Fails when programs that are compiled already would not run any more; what is only
# new is told. The peers are left out: who uses their headers is compiled with them anyway, and they
# would take as long as all others together several times over.
set -euo pipefail

mode=$1
libraries=$2
folder=$3
headers=()
for room in platform/*/include; do
    headers+=(--headers-dir "$room")
done

status=0
mkdir -p "$folder"
for name in voxi_util trov voxi voxi2 jhost_services qthost; do
    file=$folder/$name.abi
    if [ "$mode" = save ]; then
        abidw "${headers[@]}" --drop-private-types --no-show-locs --no-comp-dir-path \
            --out-file "$file" "$libraries/lib$name.so"
        continue
    fi
    result=0
    abidiff "${headers[@]/--headers-dir/--headers-dir2}" --drop-private-types --no-show-locs \
        "$file" "$libraries/lib$name.so" >"$folder/$name.changes" || result=$?
    # abidiff's bits: 1 and 2 are errors, 4 something new, 8 what breaks programs.
    case $result in
    0) echo "same    $name" ;;
    4) echo "new     $name" ;;
    *)
        echo "BROKEN  $name ($result)"
        status=1
        ;;
    esac
    [ $result -eq 0 ] || sed 's/^/        /' "$folder/$name.changes" | head -n 60
done
exit $status
