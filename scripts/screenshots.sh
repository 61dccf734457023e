#!/usr/bin/env bash
# Renews the pictures in docs/images: the main window and the report card on
# the demo database, light and dark, at 100 % and at 200 % scaling.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-build}"
"$root/scripts/build.sh" "$build"
cmake --build "$root/$build" --target brindle_screenshots
tool="$root/$build/docs/brindle_screenshots"
export QT_QPA_PLATFORM=offscreen LANGUAGE=en BRINDLE_INSTALL_DIR="$root/$build/share/brindle"
"$tool" "$root/docs/images" ""
QT_SCALE_FACTOR=2 "$tool" "$root/docs/images" "-200"
