#!/usr/bin/env bash
# Installs what is missing, builds, and renders the bundled sample drawing to out/harbour.png.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/build.sh build
mkdir -p out
build/Host/vyr2d render resources/samples/harbour.svg out/harbour.png
