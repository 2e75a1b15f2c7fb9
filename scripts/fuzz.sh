#!/usr/bin/env bash
# Builds the fuzzers and lets each look for new finds; those stand in build/fuzz/finds.
#
#   scripts/fuzz.sh             all of them, a minute each
#   scripts/fuzz.sh 600 NAME... so many seconds each, only those named
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
shift || true
if [ $# -eq 0 ]; then
  set -- $(ls fuzz/corpus)
fi

scripts/install_dependencies.sh build fuzz
scripts/build.sh fuzz fuzzers
status=0
for name in "$@"; do
  echo "== $name"
  mkdir -p "build/fuzz/finds/$name" "build/fuzz/seen/$name"
  build/fuzz/fuzz/"fuzz_$name" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 \
    -artifact_prefix="build/fuzz/finds/$name/" "build/fuzz/seen/$name" "fuzz/corpus/$name" ||
    status=1
done
exit $status
