#!/usr/bin/env bash
# The demo panel on a real X display: krn-panel opens the Fanuc S2000i panel
# under Xvfb on Qt's xcb platform and is driven by X input events (xdotool),
# as a person at a desktop would: a page key, a click into a field, select
# all, type, Tab away, Enter and Escape (which must leave the panel open), OK.
# The record written after OK must hold the typed values converted as the
# panel converts them, so focus, kill focus and key handling hold on a real
# display as they do under the synthetic driver.
#
#   xvfb-smoke.sh KRN-PANEL [SOURCE-DIR]
#
# Exit 0 passed, 1 failed (saying what and where), 77 skipped (no Xvfb,
# xdotool or python3). Every wait is bounded; the whole run takes seconds.
set -euo pipefail

panel=${1:?usage: xvfb-smoke.sh KRN-PANEL [SOURCE-DIR]}
here=$(cd "$(dirname "$0")" && pwd)
source_dir=${2:-$(cd "$here/../.." && pwd)}
forms=$source_dir/resources/forms
record=$source_dir/examples/records/housing-40mm.json

for tool in Xvfb xdotool python3; do
  if ! command -v "$tool" >/dev/null; then
    echo "skipped: $tool is not installed (scripts/setup.sh installs it)"
    exit 77
  fi
done

started=$EPOCHREALTIME
work=$(mktemp -d)
xvfb_pid=
panel_pid=
cleanup() {
  [ -n "$panel_pid" ] && kill "$panel_pid" 2>/dev/null || true
  [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT

fail() {
  echo "xvfb-smoke: FAILED: $*" >&2
  # What was on the screen: a message box left open names itself here.
  if [ -n "$panel_pid" ] && kill -0 "$panel_pid" 2>/dev/null; then
    echo "--- windows shown:" >&2
    for w in $(timeout 5 xdotool search --onlyvisible --class krn-panel 2>/dev/null); do
      echo "  $(timeout 5 xdotool getwindowname "$w" 2>/dev/null) ($(timeout 5 xdotool getwindowgeometry "$w" 2>/dev/null | tr '\n' ' '))" >&2
    done
  fi
  if [ -s "$work/stderr" ]; then
    echo "--- krn-panel's standard error:" >&2
    cat "$work/stderr" >&2
  fi
  exit 1
}

# Waits up to $1 seconds for the command after it to succeed.
wait_for() {
  local limit=$1
  shift
  local deadline=$(($(date +%s) + limit))
  until "$@"; do
    [ "$(date +%s)" -lt "$deadline" ] || return 1
    sleep 0.1
  done
}

# ---- the display ------------------------------------------------------------
# Xvfb picks a free display itself and names it on descriptor 3.
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
xvfb_pid=$!
wait_for 10 test -s "$work/display" || fail "Xvfb did not start: $(cat "$work/xvfb.log")"
export DISPLAY=:$(tr -d '[:space:]' <"$work/display")
export QT_QPA_PLATFORM=xcb
# One device pixel per pixel of the forms, whatever the caller's environment says.
unset QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_AUTO_SCREEN_SCALE_FACTOR QT_ENABLE_HIGHDPI_SCALING
export XDG_RUNTIME_DIR=$work

x() { timeout 10 xdotool "$@"; }

# ---- where the controls are -------------------------------------------------
# Fanuc S2000i: frame 31157 shows its pages over placeholder 1091; the
# packing page is 825. Page key 1747 opens it; 1123 is the first stage's
# injection speed (mm/s, taken at every keystroke), 1128 the first stage's
# position (mm, taken when the field loses the focus; it sets the full stroke).
frame=$forms/31157.ui
page=$forms/825.ui
geometry() { python3 "$here/form-geometry.py" "$@" || fail "the forms do not place $*"; }
read -r _ _ frame_w frame_h < <(geometry "$frame" .)
read -r page_x page_y _ _ < <(geometry "$frame" IDC_1091)
mapfile -t frame_controls < <(geometry "$frame" IDC_1747 IDOK)
mapfile -t page_controls < <(geometry "$page" IDC_1123 IDC_1128)
[ ${#frame_controls[@]} -eq 2 ] && [ ${#page_controls[@]} -eq 2 ] || fail "the forms do not place the controls"

# ---- the panel --------------------------------------------------------------
timeout 60 "$panel" FANUC-A --record "$record" --out "$work/out.json" >"$work/stdout" 2>"$work/stderr" &
panel_pid=$!

panel_window() { x search --onlyvisible --class krn-panel 2>/dev/null | head -n1; }
find_window() {
  window=$(panel_window)
  [ -n "$window" ] || return 1
  eval "$(x getwindowgeometry --shell "$window")"
  # The frame is the window of the frame form's size (not a tooltip or a box).
  [ "$WIDTH" = "$frame_w" ] && [ "$HEIGHT" = "$frame_h" ]
}
wait_for 20 find_window || fail "no ${frame_w}x${frame_h} panel window appeared on $DISPLAY"
win_x=$X
win_y=$Y
# With no window manager the window is given the keyboard focus directly.
x windowfocus --sync "$window"

# Clicks the middle of a control, given "x y width height" and the corner of
# what it lies in (frame or page), in window pixels.
click() {
  local cx cy cw ch
  read -r cx cy cw ch <<<"$1"
  x mousemove --sync $((win_x + $2 + cx + cw / 2)) $((win_y + $3 + cy + ch / 2)) click 1
  sleep 0.3
}
alive() { kill -0 "$panel_pid" 2>/dev/null && [ -n "$(panel_window)" ]; }

click "${frame_controls[0]}" 0 0                # packing page key
click "${page_controls[0]}" "$page_x" "$page_y"  # first stage speed
x key --delay 50 ctrl+a
x type --delay 60 100
x key --delay 50 Tab
click "${page_controls[1]}" "$page_x" "$page_y"  # first stage position
x key --delay 50 ctrl+a
x type --delay 60 110
x key --delay 50 Tab
sleep 0.3
x key --delay 100 Return Escape KP_Enter
sleep 0.5
alive || fail "Enter or Escape closed the panel"
[ ! -e "$work/out.json" ] || fail "a record was written before OK"
click "${frame_controls[1]}" 0 0                # OK

wait_for 15 eval '! kill -0 "$panel_pid" 2>/dev/null' || fail "the panel did not close after OK"
code=0
wait "$panel_pid" || code=$?
panel_pid=
[ "$code" -eq 0 ] || fail "krn-panel ended with exit code $code"
[ -s "$work/out.json" ] || fail "no record was written after OK"
if grep -q '^message:' "$work/stderr"; then fail "the panel refused an entry"; fi

# ---- the record -------------------------------------------------------------
# Top speed of a 40 mm screw at 200 cm3/s: 200 / (3.14159 * 2^2) cm/s, with the
# screens' own pi, is 159.155 mm/s, so 100 mm/s is 62.8318 % (20 * 3.14159);
# the first position typed is the full stroke, 110 mm, and stays the first
# stage's 100 %.
python3 - "$work/out.json" <<'EOF' || fail "the record after OK is not what was typed"
import json, sys
record = json.load(open(sys.argv[1]))
checks = [
    ("MI_MAX_RAM_POSITION", record["MI_MAX_RAM_POSITION"], 110.0),
    ("MI_FP_PROFILE[0] speed %", record["MI_FP_PROFILE"][0][1], 20 * 3.14159),
    ("MI_FP_PROFILE[0] position %", record["MI_FP_PROFILE"][0][0], 100.0),
    ("MI_COOLING_TIME (untouched)", record["MI_COOLING_TIME"], 15.0),
]
bad = [(name, got, want) for name, got, want in checks if abs(got - want) > 1e-9 * max(1.0, abs(want))]
for name, got, want in bad:
    print("%s is %r, expected %r" % (name, got, want), file=sys.stderr)
sys.exit(1 if bad else 0)
EOF

elapsed_ms=$(( (${EPOCHREALTIME/./} - ${started/./}) / 1000 ))
printf 'xvfb-smoke: passed in %d.%01d s on display %s\n' $((elapsed_ms / 1000)) $((elapsed_ms % 1000 / 100)) "$DISPLAY"
