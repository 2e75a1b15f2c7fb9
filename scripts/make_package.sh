#!/usr/bin/env bash
# Packs what is built as a Debian package: scripts/make_package.sh BUILD FOLDER
#
# The package's path goes to standard output.
set -euo pipefail

build=$(realpath "$1")
mkdir -p "$2"
folder=$(realpath "$2")
rm -f "$folder"/halvorne_*.deb
cd "$build"
cpack --config CPackConfig.cmake -G DEB -B "$folder" >"$folder/cpack.log" 2>&1 ||
  { cat "$folder/cpack.log" >&2; exit 1; }
rm -rf "$folder/_CPack_Packages"
ls "$folder"/halvorne_*.deb
