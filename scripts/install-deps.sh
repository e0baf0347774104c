#!/usr/bin/env bash
# Installs, only when missing, every Debian package Zunbrix needs to build, test and benchmark.
# Idempotent and non-interactive; works as root or through sudo.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev
  zlib1g-dev rapidjson-dev
  libssl3 openssl
  libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev
  cc65
  fceux xvfb xauth
  fonts-wqy-microhei
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "install-deps: need root or sudo to install: ${missing[*]}" >&2; exit 1; }
  sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
echo "install-deps: installing ${missing[*]}"
$sudo apt-get update -q
$sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
