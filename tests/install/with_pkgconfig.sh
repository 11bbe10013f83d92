#!/bin/bash
# As with_cmake.sh, by pkg-config and a compiler: with_pkgconfig.sh LIBRARY-FOLDER WORK-FOLDER
set -euo pipefail
libraries=$1
work=$2
rm -rf "$work"
mkdir -p "$work"
export PKG_CONFIG_PATH=$libraries/pkgconfig
read -ra flags <<<"$(pkg-config --cflags --libs 'vornrenderer >= 0.1')"
c++ -std=c++17 -Wall -Werror "$(dirname "$0")/consumer/consumer.cpp" -o "$work/consumer" "${flags[@]}"
LD_LIBRARY_PATH=$libraries "$work/consumer"
