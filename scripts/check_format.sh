#!/usr/bin/env bash
# Fails when a C++ file is not laid out as .clang-format says; --fix lays them all out.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(--dry-run -Werror)
if [ "${1:-}" = --fix ]; then
  mode=(-i)
fi
find src tests bench tools \( -name '*.h' -o -name '*.cpp' \) -print0 |
  xargs -0 --no-run-if-empty clang-format-14 --style=file "${mode[@]}"
