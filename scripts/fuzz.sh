#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs one: scripts/fuzz.sh <seconds> [target]
# The corpus grows in build-fuzz/corpus/<target>, seeded with valid streams;
# crashes land in build-fuzz/artifacts/. Targets: fuzz_element_stream, fuzz_model_stream, fuzz_parsers.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds="${1:?usage: scripts/fuzz.sh <seconds> [target]}"
target="${2:-fuzz_element_stream}"
build_dir=build-fuzz

CXX=clang++ CC=clang cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DVYR_BUILD_FUZZERS=ON -DVYR_BUILD_TESTS=OFF -DVYR_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build "$build_dir" --parallel 2 --target "$target" make_seed_streams

corpus="$build_dir/corpus/$target"
artifacts="$build_dir/artifacts/"
mkdir -p "$corpus" "$artifacts" "$build_dir/corpus/fuzz_element_stream" "$build_dir/corpus/fuzz_model_stream"
# Valid streams of every element kind and a whole model start the stream corpora.
ASAN_OPTIONS=detect_leaks=0 "$build_dir/fuzz/make_seed_streams" "$build_dir/corpus/fuzz_element_stream" "$build_dir/corpus/fuzz_model_stream"
UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
  "$build_dir/fuzz/$target" -max_total_time="$seconds" -artifact_prefix="$artifacts" \
  -rss_limit_mb=2048 -timeout=10 "$corpus"
