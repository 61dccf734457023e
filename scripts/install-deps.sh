#!/usr/bin/env bash
# Installs every Debian package that building, testing and running Brindle
# needs. Idempotent: when everything is present it only checks and returns.
set -euo pipefail

packages=(
    build-essential cmake ninja-build pkg-config
    qt6-base-dev qt6-qpa-plugins qt6-svg-dev qt6-tools-dev qt6-l10n-tools libgl-dev
    libsqlite3-dev sqlite3 libical-dev
    xvfb xauth fonts-dejavu-core dbus locales
    # The export is checked by the clients that read it and by a sync to a server.
    todoman khal khard vdirsyncer radicale tzdata
    # Translations, desktop integration and the Debian package.
    qt6-translations-l10n
    desktop-file-utils appstream man-db dpkg-dev file lintian
)

sudo=""
if [ "$(id -u)" -ne 0 ]; then
    sudo="sudo"
fi

# The tests also run under de_DE.UTF-8, whose decimal separator is a comma.
generate_locale() {
    if locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
        return
    fi
    echo "Generating the de_DE.UTF-8 locale"
    if ! grep -q '^de_DE.UTF-8 UTF-8' /etc/locale.gen 2>/dev/null; then
        echo 'de_DE.UTF-8 UTF-8' | $sudo tee -a /etc/locale.gen >/dev/null
    fi
    $sudo locale-gen >/dev/null
}

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done
if [ ${#missing[@]} -eq 0 ]; then
    generate_locale
    exit 0
fi

echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
generate_locale
