#!/usr/bin/env bash
# Checks a Brindle Debian package without installing it: unpacks it into a
# temporary root, starts the unpacked program on a fresh database (so it must
# find everything inside the package, nothing in a build tree), and runs
# lintian. Argument: the .deb file.
set -euo pipefail
deb="$(realpath "$1")"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

dpkg-deb -x "$deb" "$work/root"
program="$work/root/usr/bin/brindle"
companion="$work/root/usr/bin/brindle-today"
for file in usr/bin/brindle usr/bin/brindle-today \
    usr/share/brindle/Brindle.htm usr/share/brindle/GradeScales.txt \
    usr/share/brindle/brindle-today.desktop \
    usr/share/applications/app.brindle.Brindle.desktop \
    usr/share/metainfo/app.brindle.Brindle.metainfo.xml \
    usr/share/icons/hicolor/scalable/apps/app.brindle.Brindle.svg \
    usr/share/icons/hicolor/48x48/apps/app.brindle.Brindle.png \
    usr/share/man/man1/brindle.1.gz usr/share/man/man1/brindle-today.1.gz; do
    test -s "$work/root/$file" || { echo "missing from the package: $file" >&2; exit 1; }
done

# A fresh database in a clean environment: no data folder of the build.
env -u BRINDLE_INSTALL_DIR -u BRINDLE_DATABASE HOME="$work/home" QT_QPA_PLATFORM=offscreen \
    "$program" --database "$work/fresh.db" --screenshot "$work/main.png"
test -s "$work/main.png" || { echo "the unpacked program drew no window" >&2; exit 1; }
# German from the package's own translations.
LANGUAGE=de LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen "$program" --help | grep -q "Datenbank" ||
    { echo "the unpacked program does not speak German" >&2; exit 1; }
# The companion reads the database the program made, in both languages.
env -u BRINDLE_DATABASE HOME="$work/home" LANGUAGE= LC_ALL=C.UTF-8 \
    "$companion" --list --database "$work/fresh.db" | grep -q "Nothing due" ||
    { echo "the unpacked companion does not list the fresh database" >&2; exit 1; }
env -u BRINDLE_DATABASE HOME="$work/home" LANGUAGE=de LC_ALL=C.UTF-8 \
    "$companion" --list --database "$work/fresh.db" | grep -q "Nichts fällig" ||
    { echo "the unpacked companion does not speak German" >&2; exit 1; }
echo "unpacked package runs: $(basename "$deb")"

# Errors fail; warnings would be shown. What lintian -I still notes is
# information only: the hardening flags of Debian's own package builds, which
# a plain CMake build does not set, and the help file and grade scales in
# /usr/share/brindle, where the program looks for its data.
lintian --fail-on error "$deb"
echo "lintian: no errors"
