#!/usr/bin/env bash
# Skelda's one entry point for people and CI.
#   ./skelda.sh start   install what is missing, build, and start Skelda on the bundled database
#   ./skelda.sh test    install what is missing, build, and run the whole test suite
set -euo pipefail
cd "$(dirname "$0")"

packages=(g++ cmake ninja-build pkg-config qt6-base-dev libsqlite3-dev libcurl4-openssl-dev
          libgtest-dev libgmock-dev libbenchmark-dev)

install_missing() {
    local missing=()
    for p in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
}

build() {
    cmake -S . -B "$1" -G Ninja -DCMAKE_BUILD_TYPE="${2:-RelWithDebInfo}" ${3:+"$3"} >/dev/null
    cmake --build "$1" -j "$(nproc)"
}

case "${1:-}" in
start)
    install_missing
    build build
    # Skelda looks for log/ and Images/ under its current directory, and for database.mdb beside itself.
    cd build/bin && exec ./skelda
    ;;
test)
    install_missing
    build build
    (cd build && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)")
    # The platform layer and the decoder run once more under AddressSanitizer and UBSan.
    build build-sanitize Debug -DSKELDA_SANITIZE=ON
    (cd build-sanitize && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)" -L sanitize)
    ;;
*)
    echo "usage: $0 start|test" >&2
    exit 2
    ;;
esac
