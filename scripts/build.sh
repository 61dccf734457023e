#!/usr/bin/env bash
# Installs what is missing, then configures and builds Brindle into a build
# folder (default: build).
# BRINDLE_WERROR=1 turns warnings into errors; BRINDLE_SANITIZE=1 builds with
# AddressSanitizer and UndefinedBehaviorSanitizer; BRINDLE_PCH=ON or OFF
# chooses precompiled Qt headers (default: on unless ccache is installed).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-build}"
"$root/scripts/install-deps.sh"
cd "$root"

cmake -S . -B "$build" -G Ninja \
    -DCMAKE_BUILD_TYPE="${BRINDLE_BUILD_TYPE:-RelWithDebInfo}" \
    -DCMAKE_COMPILE_WARNING_AS_ERROR="${BRINDLE_WERROR:-OFF}" \
    -DBRINDLE_SANITIZE="${BRINDLE_SANITIZE:-OFF}" \
    ${BRINDLE_PCH:+-DBRINDLE_PRECOMPILED_HEADERS="$BRINDLE_PCH"} >/dev/null
cmake --build "$build" --parallel "$(nproc)"
