#!/usr/bin/env bash
# The main job: builds the module and opens the Fanuc S2000i panel on an
# example record with krn-panel. With a display it is a window to work in
# (the returned record is printed after OK); without one the panel runs on
# Qt's offscreen platform, writes a picture of every page to shots/ and
# prints what each page shows.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j "$(nproc)" --target krn-panel KRNPANEL

controller=${1:-FANUC-A}
record=${2:-examples/records/housing-40mm.json}
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec build/bin/krn-panel "$controller" --record "$record"
fi
mkdir -p shots
build/bin/krn-panel "$controller" --record "$record" --shots shots --dump
echo "pictures of every page: $(ls shots/*.png | tr '\n' ' ')"
