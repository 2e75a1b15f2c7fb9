#!/usr/bin/env bash
# Installs the distribution's packages that Halvorne needs, and only those that are missing.
#
#   scripts/install_dependencies.sh build    what ./run and ./test need
#   scripts/install_dependencies.sh package  what the package is made and looked at with
#   scripts/install_dependencies.sh checks   what the static checks need
#   scripts/install_dependencies.sh fuzz     what the fuzzers need beside build
set -euo pipefail

packages_for() {
  case $1 in
    build)
      echo g++ cmake ninja-build ccache \
        qt6-base-dev qt6-svg-dev qt6-tools-dev qt6-documentation-tools libqt6sql6-sqlite \
        nlohmann-json3-dev libvalijson-dev python3 fonts-dejavu-core poppler-utils \
        libgtest-dev libgmock-dev libbenchmark-dev libfftw3-dev
      ;;
    package) echo dpkg-dev file fakeroot lintian desktop-file-utils appstream shared-mime-info ;;
    checks) echo clang-14 clang-format-14 clang-tidy-14 ;;
    fuzz) echo clang-14 libclang-rt-14-dev ;;
    *)
      echo "install_dependencies.sh: unknown set '$1', known are build, package, checks and fuzz" >&2
      exit 2
      ;;
  esac
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "Root is needed for: $*" >&2
    echo "Run it as root, or install sudo." >&2
    exit 1
  fi
}

is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

install() {
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install --yes --no-install-recommends "$@"
}

if ! command -v apt-get >/dev/null; then
  echo "No apt-get here: the packages named in $0 must be there already." >&2
  exit 0
fi

missing=()
for set in "$@"; do
  for package in $(packages_for "$set"); do
    is_installed "$package" || missing+=("$package")
  done
done
if [ "${#missing[@]}" -eq 0 ]; then
  exit 0
fi

echo "Installing ${missing[*]}"
# The package lists are fetched only when they do not know a package or know one that is gone.
if ! apt-cache show "${missing[@]}" >/dev/null 2>&1 || ! install "${missing[@]}"; then
  as_root apt-get update
  install "${missing[@]}"
fi
