#!/usr/bin/env bash
# Takes the README's pictures of the Today companion in a real X session: its
# tray menu (in trayer's system tray) and a notice (shown by dunst), on the
# demo database. Needs xvfb, xdotool, imagemagick, trayer, dunst and dbus.
# Usage: scripts/today-pictures.sh [build folder]  (default: build)
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bin="$root/${1:-build}/bin"
out="$root/docs/images"
work="$(mktemp -d)"
pids=()
cleanup() { kill "${pids[@]}" 2>/dev/null || true; rm -rf "$work"; }
trap cleanup EXIT

export HOME="$work/home" XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data"
export XDG_STATE_HOME="$work/state" XDG_RUNTIME_DIR="$work/run" QT_QPA_PLATFORM=xcb
mkdir -p "$HOME" "$XDG_CONFIG_HOME/dunst" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
export DISPLAY=":$((100 + RANDOM % 100))"
Xvfb "$DISPLAY" -screen 0 640x420x24 -nolisten tcp >/dev/null 2>&1 & pids+=($!)
sleep 1
convert -size 640x420 xc:'#4c566a' "$work/backdrop.png"
# A plain backdrop window (no window manager runs), under all that follows.
display -geometry +0+0 "$work/backdrop.png" & pids+=($!)
sleep 1

# The demo keeps its database while its window is open; the companion reads
# that file, and the window is taken off the screen.
mkdir -p "$work/tmp"
TMPDIR="$work/tmp" "$bin/brindle" --demo >/dev/null 2>&1 & pids+=($!)
xdotool search --sync --onlyvisible --class brindle windowunmap >/dev/null
db="$(find "$work/tmp" -name Brindle.db | head -n 1)"
if [[ -z "$db" ]]; then
    echo "the demo made no database" >&2
    exit 1
fi

cat >"$XDG_CONFIG_HOME/dunst/dunstrc" <<'EOF'
[global]
    geometry = "330x5-12+40"
    font = Sans 10
    frame_width = 1
    padding = 10
    horizontal_padding = 12
[urgency_normal]
    background = "#eceff4"
    foreground = "#2e3440"
    frame_color = "#4c566a"
    timeout = 0
EOF

shoot() {
    dbus-run-session -- bash -c '
        dunst >/dev/null 2>&1 & sleep 1
        trayer --edge top --align right --widthtype request --height 28 \
            --transparent false --tint 0x2e3440 >/dev/null 2>&1 & sleep 1
        "$0" --database "$1" --notify 4320 >/dev/null 2>&1 & sleep 3
        import -window root "$2/today-notice.png"
        # The tray icon is the rightmost in trayer, at the top right corner.
        dunstctl close-all
        xdotool mousemove 626 14 click 1; sleep 1
        import -window root "$2/today-tray.png"
    ' "$bin/brindle-today" "$db" "$work"
}
shoot
# Only the interesting corner of each picture.
convert "$work/today-notice.png" -crop 360x112+280+0 +repage "$out/today-notice.png"
convert "$work/today-tray.png" -crop 460x225+180+0 +repage "$out/today-tray.png"
echo "$out/today-notice.png" "$out/today-tray.png"
