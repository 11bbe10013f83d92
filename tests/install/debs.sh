#!/bin/bash
# Builds the Debian packages and looks into them: debs.sh BUILD-FOLDER LIBRARY-FOLDER WORK-FOLDER
# LIBRARY-FOLDER is that of libraries below /usr. Leaves everything unpacked in WORK-FOLDER/root.
set -euo pipefail
build=$1
libraries=$2
work=$3
rm -rf "$work"
mkdir -p "$work"
cpack --config "$build/CPackConfig.cmake" -B "$work" >"$work/log" || {
    tail -20 "$work/log"
    exit 1
}
failed=0

# contains PACKAGE FILE...: each file is in the package, below /usr.
contains() {
    local deb listing
    deb=$(echo "$work/$1"_*.deb)
    listing=$(dpkg-deb -c "$deb" | awk '{print $6}')
    shift
    for file in "$@"; do
        grep -qxF "./usr/$file" <<<"$listing" || fail "$deb lacks $file"
    done
    dpkg-deb -x "$deb" "$work/root"
}
depends() {
    local list
    list=$(dpkg-deb -f "$(echo "$work/$1"_*.deb)" Depends)
    grep -qE "(^|, )$2" <<<"$list" || fail "$1 does not depend on $2 but on: $list"
}
fail() {
    echo "FAILED: $1" >&2
    failed=1
}

contains libvornrenderer0 "$libraries/libvornrenderer.so.0" "$libraries/vornrenderer/libandroid.so" \
    "$libraries/vornrenderer/libmediandk.so" "$libraries/vornrenderer/android.jar" \
    share/doc/libvornrenderer0/copyright
contains libvornrenderer-dev include/vornrenderer/render/VERenderer.h \
    include/vornrenderer/kernel/geometry/Globe.h include/vornrenderer/gl/GLES3.h \
    include/vornrenderer/linux_platform/Host.h "$libraries/libvornrenderer.so" \
    "$libraries/pkgconfig/vornrenderer.pc" "$libraries/cmake/vornrenderer/vornrendererConfig.cmake" \
    share/doc/libvornrenderer-dev/copyright
contains vornrenderer-tools bin/vornplay bin/motionmask share/doc/vornrenderer-tools/copyright \
    share/man/man1/vornplay.1.gz share/applications/vornplay.desktop

depends libvornrenderer0 libc6
depends libvornrenderer0 android-liblog
depends libvornrenderer0 libavcodec
depends libvornrenderer-dev 'libvornrenderer0 \(= '
depends vornrenderer-tools libvornrenderer0
shlibs=$(dpkg-deb -I "$(echo "$work"/libvornrenderer0_*.deb)" shlibs || true)
grep -q '^libvornrenderer 0 libvornrenderer0 ' <<<"$shlibs" ||
    fail "wrong shlibs of libvornrenderer0: $shlibs"
exit $failed
