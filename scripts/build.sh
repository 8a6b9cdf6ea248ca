#!/usr/bin/env bash
# Configures and builds into a build directory: scripts/build.sh [--sanitize] [build-dir]
set -euo pipefail
cd "$(dirname "$0")/.."

sanitize=OFF
if [ "${1:-}" = "--sanitize" ]; then sanitize=ON; shift; fi
default_dir=build
[ "$sanitize" = ON ] && default_dir=build-sanitize
build_dir="${1:-$default_dir}"

cmake -S . -B "$build_dir" -G Ninja -DVYR_SANITIZE="$sanitize" >/dev/null
cmake --build "$build_dir" --parallel "$(nproc)"
