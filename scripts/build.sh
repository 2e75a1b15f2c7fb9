#!/usr/bin/env bash
# Builds a preset of CMakePresets.json: scripts/build.sh PRESET [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."

preset=$1
shift
# Once configured, the build looks itself whether it must be configured again.
if [ ! -f "build/$preset/build.ninja" ]; then
  cmake --preset "$preset"
fi
cmake --build --preset "$preset" ${1:+--target "$@"}
