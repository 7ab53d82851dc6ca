#!/bin/sh
# Render the icon to every size a desktop asks for, from its one drawing, the scalable one.
# Needs `./setup art`.
set -eu
cd "$(dirname "$0")/.."
theme=packaging/icons/hicolor
drawing=$theme/scalable/apps/velora.svg

# The smallest sizes have no room for the groove: a larger mark instead.
plain() {
    sed -e '/<g id="groove"/,/<\/g>/d' -e 's/scale(0.84)/scale(1.16)/' \
        "$drawing"
}

render() {
    folder=$theme/${1}x${1}/apps
    mkdir -p "$folder"
    rsvg-convert -w "$1" -h "$1" -o "$folder/velora.png"
}

for size in 16 24; do
    plain | render "$size"
done
for size in 32 48 64 128 256; do
    render "$size" < "$drawing"
done
