#!/usr/bin/env bash
# Compiles everything with clang and looks at each file with clang-tidy as .clang-tidy says.
# Files that did not change since the last time are not looked at again.
set -euo pipefail
exec "$(dirname "$0")/build.sh" clang
