#!/usr/bin/env bash
# Installs what the module needs to build, test and run on Debian 12 (as root).
set -euo pipefail
packages=(cmake ninja-build g++ qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-tools-dev-tools
          libgl-dev libgtest-dev libbenchmark-dev locales fonts-dejavu-core ccache pkg-config
          clang libclang-rt-dev  # clang and its libFuzzer and sanitizer runtimes, for fuzz/
          fonts-wqy-microhei     # CJK glyphs for the zh-TW captions the bitmap generator draws
          doxygen python3-jsonschema optipng  # API reference, record schema test, docs/screens pictures
          # tests/display: an X server without a screen, X input events, and what Qt's xcb platform loads
          xvfb xdotool python3 libxcb-cursor0 libxcb-icccm4 libxcb-image0 libxcb-keysyms1
          libxcb-render-util0 libxcb-xkb1 libxkbcommon-x11-0)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq "${missing[@]}"
fi
# A comma-decimal locale for the second test run.
if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
  sed -i 's/^# *de_DE.UTF-8 UTF-8/de_DE.UTF-8 UTF-8/' /etc/locale.gen
  grep -q '^de_DE.UTF-8 UTF-8' /etc/locale.gen || echo 'de_DE.UTF-8 UTF-8' >> /etc/locale.gen
  locale-gen >/dev/null
fi
