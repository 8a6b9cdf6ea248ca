#!/usr/bin/env bash
# Installs every Debian package the project needs. Idempotent: does nothing
# (not even apt-get update) when all of them are already installed.
set -euo pipefail

PACKAGES=(
  build-essential g++ clang cmake ninja-build pkg-config git
  libcairo2-dev libfreetype-dev libfontconfig-dev fonts-dejavu-core fonts-dejavu-extra
  libpng-dev liblcms2-dev libxerces-c-dev w3c-sgml-lib
  libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev
  libclang-rt-14-dev
)

missing=()
for package in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$package")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: all packages present"
  exit 0
fi

SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
echo "install-deps: installing ${missing[*]}"
$SUDO apt-get update -qq
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
