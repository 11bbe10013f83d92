#!/bin/bash
# As with_cmake.sh, by pkg-config and a compiler, with programs of the documentation besides:
# with_pkgconfig.sh LIBRARY-FOLDER WORK-FOLDER
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
libraries=$1
work=$2
rm -rf "$work"
mkdir -p "$work"
cd "$work"
export PKG_CONFIG_PATH=$libraries/pkgconfig LD_LIBRARY_PATH=$libraries

build() {
    read -ra flags <<<"$(pkg-config --cflags --libs 'vornrenderer >= 0.1' "${@:3}")"
    c++ -std=c++17 -Wall -Werror "$1" -o "$2" "${flags[@]}"
}
build "$here/consumer/consumer.cpp" consumer
./consumer

"$here/../../docs/examples/extract.sh" "$here/../../docs/getting-started.md" >first.cpp
build first.cpp first egl glesv2
./first
head -1 first.ppm | grep -x 'P6 320 240 255'
"$here/../../docs/examples/extract.sh" "$here/../../docs/api/mask.md" >mask.cpp
build mask.cpp mask egl glesv2
./mask
head -1 picture.ppm | grep -x 'P6 384 288 255'
# After the header, 120 rows and half of one: the color in the middle.
middle=$(od -An -tx1 -j $((15 + 3 * (120 * 320 + 160))) -N 3 first.ppm | tr -d ' ')
[ "$middle" = 7f7880 ] || {
    echo "FAILED: in the middle is $middle" >&2
    exit 1
}
