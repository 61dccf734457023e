#!/usr/bin/env bash
# Installs what is missing, builds Brindle and runs every test.
# Optional argument: the build folder (default: build). BRINDLE_WERROR=1 and
# BRINDLE_SANITIZE=1 are passed on to the build.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-build}"
"$root/scripts/build.sh" "$build"
cd "$root/$build"
ctest --output-on-failure --parallel "$(nproc)"
