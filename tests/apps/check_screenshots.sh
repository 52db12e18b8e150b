#!/usr/bin/env bash
# check_screenshots.sh GALLERY: the gallery shows every page, writes its picture and says nothing
# else; an unknown page is refused.
set -euo pipefail

gallery=$1
folder=$(mktemp -d "${TMPDIR:-/tmp}/voxi-gallery.XXXXXX")
trap 'rm -rf "$folder"' EXIT
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$folder}"

fail() {
    echo "check_screenshots.sh: $*" >&2
    cat "$folder/messages" >&2
    exit 1
}

"$gallery" --screenshot "$folder/pictures" >"$folder/written" 2>"$folder/messages" ||
    fail "the gallery ended with status $?"
# What a platform without a window manager says about itself is no fault.
! grep -qv '^This plugin does not support ' "$folder/messages" || fail "the gallery complained:"

pages=0
while read -r picture; do
    [ "$(head -c 8 "$picture" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ] ||
        fail "$picture is no PNG file"
    # An empty window compresses to less.
    [ "$(stat -c %s "$picture")" -gt 2000 ] || fail "$picture shows nothing"
    pages=$((pages + 1))
done <"$folder/written"
[ "$pages" -ge 1 ] || fail "there are no pages"
different=$(sha256sum "$folder"/pictures/*.png | cut -d' ' -f1 | sort -u | wc -l)
[ "$different" -eq "$pages" ] || fail "$pages pages gave $different different pictures"

if "$gallery" --page "no such page" 2>"$folder/messages"; then
    fail "an unknown page was taken"
fi
grep -q 'there is no page' "$folder/messages" || fail "the refusal says nothing:"
echo "$pages pages"
