#!/usr/bin/env bash
# check_qt_symbols.sh LIBRARY-FOLDER: no platform library but qthost needs a symbol of Qt.
set -euo pipefail

status=0
checked=0
for library in trov voxi_util voxi voxi2 jhost_services; do
    file=$1/lib$library.so
    [ -e "$file" ] || continue
    checked=$((checked + 1))
    # Qt's C++ symbols bear the version Qt_6; what it exports to C starts with q or qt_.
    if symbols=$(nm -D --undefined-only "$file" | grep -E '@Qt_| _ZN?K?[0-9]+Q[A-Z]| qt_'); then
        printf '%s needs Qt:\n%s\n' "$file" "$(head -n 5 <<<"$symbols" | c++filt)"
        status=1
    fi
    if objdump -p "$file" | grep -E 'NEEDED +libQt'; then
        printf '%s is linked to Qt\n' "$file"
        status=1
    fi
done
[ "$checked" -gt 0 ] || { echo "no library in $1"; exit 1; }
exit $status
