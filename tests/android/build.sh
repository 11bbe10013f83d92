#!/bin/bash
# Builds the library as for Android, with a stand-in for the NDK, and checks what came out:
# build.sh SOURCE WORK HEADERS LIBRARIES, the last two lists separated by colons.
set -euo pipefail
source=$1
work=$2
headers=$3
libraries=$4
here=$(cd "$(dirname "$0")" && pwd)

fail() {
    echo "FAILED: $1" >&2
    exit 1
}

rm -rf "$work"
mkdir -p "$work/lib"
cd "$source"

env -u ANDROID_NDK cmake --preset android-arm -B "$work/none" >"$work/log" 2>&1 &&
    fail "configured without an NDK"
grep -q 'set ANDROID_NDK' "$work/log" || fail "the lack of an NDK is not told: $(cat "$work/log")"
[ "$(grep -c 'CMake Error' "$work/log")" = 1 ] || fail "one lack, many errors: $(cat "$work/log")"

clang -shared -Wl,-soname,libGLESv3.so -o "$work/lib/libGLESv3.so" -x c /dev/null
export ANDROID_NDK=$here/ndk STUB_HEADERS=$headers STUB_LIBRARIES=$work/lib:$libraries
cmake --preset android-x86_64 -B "$work/build" -DCMAKE_CXX_FLAGS_RELEASE=-O0 >"$work/log" 2>&1 ||
    fail "does not configure: $(cat "$work/log")"
cmake --build "$work/build" >"$work/log" 2>&1 || fail "does not build: $(tail -30 "$work/log")"

library=$work/build/src/libvornrenderer.so
needed=$(readelf -d "$library" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
for name in GLESv3 GLESv2 EGL mediandk android log; do
    grep -q "^lib$name\.so" <<<"$needed" || fail "lib$name.so is not needed"
done
readelf -d "$library" | grep -q 'SONAME.*\[libvornrenderer\.so\]' || fail "no soname"
for each in "$library" "$work/build/bindings/java/libvornrenderer_jni.so"; do
    readelf -lW "$each" | awk '$1 == "LOAD" && $NF != "0x4000" {exit 1}' ||
        fail "pages of 16 KB are not heeded: $each"
    [ -z "$(readelf -SW "$each" | grep -E '\.(symtab|debug_info)' || true)" ] || fail "not stripped: $each"
    readelf -SW "$each.debug" | grep -q '\.debug_info' || fail "no symbols kept: $each"
done
grep -q 'ANDROID_STL:.*=c++_shared' "$work/build/CMakeCache.txt" || fail "not the C++ runtime of Gradle"
foreign=$(nm -D --undefined-only "$library" | awk '{print $NF}' | sed 's/@.*//' |
    grep -vE '^(_Z|__cxa_|__gxx_|__dynamic_cast$|_Unwind_)' | grep -vxF -f "$here/imports.txt" || true)
[ -z "$foreign" ] || fail "not known to be in Android 7.0: $foreign"
readelf -d "$library" | grep -qE 'R(UN)?PATH' && fail "a path of this machine is in it"
tests/load/exports.sh "$library"
