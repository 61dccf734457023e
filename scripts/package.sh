#!/usr/bin/env bash
# Installs what is missing, builds Brindle and makes its Debian package.
# Optional argument: the build folder (default: build). Prints the package's
# path as the last line.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-build}"
"$root/scripts/build.sh" "$build"
cd "$root/$build"
cpack -G DEB >&2
ls -t "$root/$build"/brindle_*.deb | head -n 1
