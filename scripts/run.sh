#!/usr/bin/env bash
# Installs what is missing, builds, and renders the demo picture to out/demo.png.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/build.sh build
mkdir -p out
build/Host/vyr2d_demo out/demo.png
echo "wrote out/demo.png"
