#!/usr/bin/env bash
# Fails when a row of the table of speeds has become slower than it has been. Runs are short and the
# margin is wide, so that other work on the machine does no harm; docs/performance.md tells of the rows.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/build.sh release halvorne-bench
build/release/bench/halvorne-bench --check
