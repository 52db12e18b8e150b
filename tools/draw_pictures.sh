#!/usr/bin/env bash
# draw_pictures.sh: draws the PNG files of the Qt library's resources from the SVG files beside
# them, for screens of scale 1 and 2. To be run after a drawing has changed; needs librsvg2-bin.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../voxi2_qt"

find . -path '*/resources/*' -name '*.svg' | while read -r drawing; do
    rsvg-convert --zoom 1 --output "${drawing%.svg}.png" "$drawing"
    rsvg-convert --zoom 2 --output "${drawing%.svg}@2x.png" "$drawing"
done
