#!/usr/bin/env bash
# Installs what is missing, builds and runs every test.
#   scripts/test.sh              the normal build (build/)
#   scripts/test.sh --sanitize   the same under AddressSanitizer + UBSan (build-sanitize/)
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh

build_dir=build
if [ "${1:-}" = "--sanitize" ]; then
  build_dir=build-sanitize
  export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
  export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp"
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  scripts/build.sh --sanitize "$build_dir"
else
  scripts/build.sh "$build_dir"
fi
ctest --test-dir "$build_dir" --output-on-failure --parallel "$(nproc)" --timeout 600
