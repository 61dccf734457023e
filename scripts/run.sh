#!/usr/bin/env bash
# Installs what is missing, builds Brindle and starts it on its default
# database. Arguments go to Brindle (for example --demo or --database FILE).
# Without a display it runs on Qt's offscreen platform and writes the main
# window to build/brindle-main.png instead.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/build.sh" build

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec "$root/build/bin/brindle" "$@"
fi
picture="$root/build/brindle-main.png"
QT_QPA_PLATFORM=offscreen "$root/build/bin/brindle" "$@" --screenshot "$picture"
echo "No display found: Brindle ran on the offscreen platform and wrote its main window to $picture"
echo "To use it in a window without a display of your own: xvfb-run $root/build/bin/brindle"
