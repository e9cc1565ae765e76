#!/usr/bin/env bash
# Builds everything and runs every test: once as is, once under a
# comma-decimal locale, once built with address, undefined-behaviour and leak
# sanitizers; then installs the package and builds a host against it.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

jobs=$(nproc)
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_INSTALL_PREFIX="$PWD/build/install" >/dev/null
cmake --build build -j "$jobs"

echo "== tests"
ctest --test-dir build --output-on-failure -LE display
echo "== tests under de_DE.UTF-8 (comma decimal)"
LC_ALL=de_DE.UTF-8 LANG=de_DE.UTF-8 ctest --test-dir build --output-on-failure -LE display

if command -v Xvfb >/dev/null && command -v xdotool >/dev/null; then
  echo "== the demo panel on a real X display (Xvfb, xcb, xdotool)"
  ctest --test-dir build --output-on-failure -L display
else
  echo "== no Xvfb or xdotool: the real-display smoke test is left out"
fi

if command -v doxygen >/dev/null; then
  echo "== API reference of the public headers (a Doxygen warning fails it)"
  cmake --build build --target doc
fi

echo "== installed package, used by a host outside the tree"
cmake --install build >/dev/null
cmake -S examples/consumer -B build/consumer -G Ninja -DCMAKE_PREFIX_PATH="$PWD/build/install" >/dev/null
cmake --build build/consumer
QT_QPA_PLATFORM=offscreen build/consumer/krn-consumer
LC_ALL=de_DE.UTF-8 LANG=de_DE.UTF-8 QT_QPA_PLATFORM=offscreen build/consumer/krn-consumer
# The same host built with pkg-config's flags alone, and the installed krn-panel.
pc_path="$PWD/build/install/lib/pkgconfig"
[ -d "$pc_path" ] || pc_path=$(dirname "$(find build/install -name KRNProcessMachineEngine.pc | head -n1)")
export PKG_CONFIG_PATH="$pc_path"
echo "pkg-config: KRNProcessMachineEngine $(pkg-config --modversion KRNProcessMachineEngine)"
# shellcheck disable=SC2046
c++ -std=c++17 -o build/consumer/krn-consumer-pc examples/consumer/main.cpp \
  $(pkg-config --cflags --libs KRNProcessMachineEngine) \
  -Wl,-rpath,"$(pkg-config --variable=libdir KRNProcessMachineEngine)"
QT_QPA_PLATFORM=offscreen build/consumer/krn-consumer-pc
unset PKG_CONFIG_PATH
build/install/bin/krn-panel --version

echo "== tests built with address, undefined-behaviour and leak sanitizers"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DKRN_SANITIZE=ON -DKRN_BUILD_BENCH=OFF >/dev/null
cmake --build build-asan -j "$jobs"
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 LSAN_OPTIONS=suppressions="$PWD/tests/lsan.supp" \
  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 ctest --test-dir build-asan --output-on-failure
# The host without an application object of its own, where the module makes one.
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 LSAN_OPTIONS=suppressions="$PWD/tests/lsan.supp" \
  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 QT_QPA_PLATFORM=offscreen build-asan/bin/krn-consumer >/dev/null

echo "== fuzz targets: number readers and JSON record reader, 30 s each"
# A clang tree of its own; only the targets and the sources they compile in.
# Each run works on a copy of the corpus, so the tree's corpus stays as it
# is; an input that fails is kept as build-fuzz/<target>-crash-*, the
# fuzzer's log as build-fuzz/<target>.log.
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKRN_BUILD_FUZZ=ON \
  -DKRN_BUILD_TESTS=OFF -DKRN_BUILD_BENCH=OFF >/dev/null
cmake --build build-fuzz -j "$jobs" --target fuzz_numbers fuzz_record
for target in numbers record; do
  rm -rf "build-fuzz/corpus/$target"
  mkdir -p "build-fuzz/corpus/$target"
  cp fuzz/corpus/$target/* "build-fuzz/corpus/$target/"
  if ! "build-fuzz/bin/fuzz_$target" -max_total_time=30 -dict="fuzz/$target.dict" \
      -artifact_prefix="build-fuzz/$target-" "build-fuzz/corpus/$target" >"build-fuzz/$target.log" 2>&1; then
    tail -n 60 "build-fuzz/$target.log"
    exit 1
  fi
  grep -m1 '^Done ' "build-fuzz/$target.log"
done
