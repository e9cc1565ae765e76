#!/usr/bin/env bash
# Builds everything and runs every test: once as is, once under a
# comma-decimal locale, once built with address and undefined-behaviour
# sanitizers; then installs the package and builds a host against it.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

jobs=$(nproc)
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_INSTALL_PREFIX="$PWD/build/install" >/dev/null
cmake --build build -j "$jobs"

echo "== tests"
ctest --test-dir build --output-on-failure
echo "== tests under de_DE.UTF-8 (comma decimal)"
LC_ALL=de_DE.UTF-8 LANG=de_DE.UTF-8 ctest --test-dir build --output-on-failure

echo "== installed package, used by a host outside the tree"
cmake --install build >/dev/null
cmake -S examples/consumer -B build/consumer -G Ninja -DCMAKE_PREFIX_PATH="$PWD/build/install" >/dev/null
cmake --build build/consumer
QT_QPA_PLATFORM=offscreen build/consumer/krn-consumer

echo "== tests built with address and undefined-behaviour sanitizers"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DKRN_SANITIZE=ON -DKRN_BUILD_BENCH=OFF >/dev/null
cmake --build build-asan -j "$jobs"
ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build-asan --output-on-failure
