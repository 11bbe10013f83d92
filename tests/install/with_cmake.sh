#!/bin/bash
# Builds and runs programs against an installed library by CMake: with_cmake.sh PREFIX WORK-FOLDER
set -euo pipefail
prefix=$1
work=$2
rm -rf "$work"
cmake -S "$(dirname "$0")/consumer" -B "$work" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$work"
"$work/consumer"
"$work/host"
# Found where it was installed, and nowhere else.
ldd "$work/consumer" | grep -F "libvornrenderer.so.0 => $prefix/"
