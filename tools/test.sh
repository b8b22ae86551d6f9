#!/bin/sh
# Installs what is missing, builds the box and runs every test. Arguments name the CMake presets to test; without any:
# release, then asan (address and undefined-behaviour sanitizers).
set -eu
cd "$(dirname "$0")/.."
tools/install-deps.sh
[ $# -gt 0 ] || set -- release asan
for preset in "$@"; do
    echo "== $preset"
    cmake --preset "$preset"
    cmake --build --preset "$preset"
    ctest --preset "$preset"
done
