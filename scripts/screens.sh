#!/usr/bin/env bash
# Pictures of every page of every panel, as docs/panels.md and the README show
# them: docs/screens/<panel>/<page template>.png, taken by krn-panel --shots
# from examples/records/housing-40mm.json on the offscreen platform.
#
#   bash scripts/screens.sh                          # builds krn-panel in build/, every panel
#   bash scripts/screens.sh --build build-x SELOGICA # a given build tree, only the panels named
#
# A panel's folder is replaced as a whole, so pages that went away go too.
set -euo pipefail
cd "$(dirname "$0")/.."

build=
if [ "${1:-}" = "--build" ]; then
  build=${2:?--build needs a build directory}
  shift 2
fi
if [ -z "$build" ]; then
  build=build
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
  cmake --build "$build" --target krn-panel
fi
krn_panel=$build/bin/krn-panel
[ -x "$krn_panel" ] || { echo "screens.sh: $krn_panel not found; build krn-panel first" >&2; exit 2; }

# Controller name and its folder, in the README's order; the Selogica panel last.
panels=(
  "FANUC-A|fanuc_s2000i"
  "JSW-Series|jsw_syscom3000"
  "NIIGATA-Series|niigata_mdseries"
  "MITSUBISHI-Electric|mitsubishi_electric"
  "Polypax-Series|polypax_series"
  "MITSUBISHI-Hydraulic|mitsubishi_hydraulic"
  "CLF-Series|clf_series"
  "UMS-Series|universal_multishot"
  "CHEN HSONG-CDC2000|chenhsong_cdc2000"
  "Taichung machinery-Series|taichung_v8000ac"
  "SELOGICA|arburg_selogica"
)

wanted() {
  [ $# -eq 1 ] && return 0
  local name=$1; shift
  for w in "$@"; do [ "$w" = "$name" ] && return 0; done
  return 1
}

record=examples/records/housing-40mm.json
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
done_any=
for entry in "${panels[@]}"; do
  name=${entry%%|*}
  folder=${entry#*|}
  wanted "$name" "$@" || continue
  rm -rf "$tmp/shots"
  # With no script the panel closes once the pictures are taken.
  QT_QPA_PLATFORM=offscreen "$krn_panel" "$name" --record "$record" --shots "$tmp/shots" >/dev/null
  # --shots shows each page as the panel holds it when it opens. The Selogica
  # injection screen turns the record's stroke percentages into stage volumes
  # only when its key is pressed, so that picture is taken after the key.
  if [ "$name" = SELOGICA ]; then
    printf 'click 1367\nshot %s\ncancel\n' "$tmp/shots/31133.png" >"$tmp/injection.txt"
    QT_QPA_PLATFORM=offscreen "$krn_panel" "$name" --record "$record" --script "$tmp/injection.txt" >/dev/null
  fi
  rm -rf "docs/screens/$folder"
  mkdir -p "docs/screens/$folder"
  cp "$tmp"/shots/*.png "docs/screens/$folder/"
  if command -v optipng >/dev/null; then
    optipng -quiet -o2 -strip all "docs/screens/$folder"/*.png
  fi
  echo "$name: $(ls "docs/screens/$folder" | wc -l) pages in docs/screens/$folder"
  done_any=1
done
[ -n "$done_any" ] || { echo "screens.sh: no panel of that name" >&2; exit 2; }
