#!/usr/bin/env bash
# draw_looks.sh GALLERY FOLDER [ARGUMENTS]: pictures of the gallery's pages as users have them: at
# the scale factors of their displays, dark, from right to left and with large letters. Each kind of
# looks has a folder of its own. ARGUMENTS go to the gallery. Expects a display.
set -euo pipefail

[ $# -ge 2 ] || { echo "usage: draw_looks.sh GALLERY FOLDER [ARGUMENTS]" >&2; exit 2; }
gallery=$1
folder=$2
shift 2

# Not each with each: what goes wrong with two of them mostly does so with one.
looks=(light dark right-to-left font-150 scale-1.25 scale-1.5-dark scale-2-right-to-left
    font-150-dark-right-to-left)

settings=$(mktemp -d "${TMPDIR:-/tmp}/voxi-looks.XXXXXX")
trap 'rm -rf "$settings"' EXIT

# write_settings FOLDER LETTERS WINDOW VIEW BUTTON TEXT LINK: the palette and the size of letters come
# the way in which a desktop tells them, by a file that Qt reads itself.
write_settings() {
    mkdir -p "$1"
    cat >"$1/kdeglobals" <<SETTINGS
[General]
font=Sans Serif,$2,-1,5,50,0,0,0,0,0
menuFont=Sans Serif,$2,-1,5,50,0,0,0,0,0
toolBarFont=Sans Serif,$2,-1,5,50,0,0,0,0,0
[Colors:Window]
BackgroundNormal=$3
ForegroundNormal=$6
[Colors:View]
BackgroundNormal=$4
BackgroundAlternate=$3
ForegroundNormal=$6
ForegroundLink=$7
ForegroundVisited=155,89,182
[Colors:Button]
BackgroundNormal=$5
ForegroundNormal=$6
[Colors:Selection]
BackgroundNormal=48,140,198
ForegroundNormal=255,255,255
[Colors:Tooltip]
BackgroundNormal=$5
ForegroundNormal=$6
SETTINGS
}

for look in "${looks[@]}"; do
    letters=9
    case "$look" in *font-150*) letters=13.5 ;; esac
    case "$look" in
    *dark*) colours=(42,46,50 27,30,32 49,54,59 252,252,252 29,153,243) ;;
    *) colours=(239,239,239 255,255,255 239,239,239 0,0,0 0,0,255) ;;
    esac
    write_settings "$settings/$look" "$letters" "${colours[@]}"
    variables=(XDG_CONFIG_HOME="$settings/$look" QT_QPA_PLATFORMTHEME=kde XDG_CURRENT_DESKTOP=KDE
        KDE_SESSION_VERSION=5 "QT_LOGGING_RULES=qt.qpa.theme.dbus=false")
    arguments=()
    case "$look" in *right-to-left*) arguments+=(-reverse) ;; esac
    if [[ "$look" =~ ^scale-([0-9.]+) ]]; then
        variables+=(QT_SCALE_FACTOR="${BASH_REMATCH[1]}")
    fi
    env "${variables[@]}" "$gallery" "${arguments[@]}" "$@" --screenshot "$folder/$look"
done
