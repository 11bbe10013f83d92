#!/bin/bash
# Compiles the sample, and the layout, the Java, the C++ and the CMake code of docs/android.md as for Android, and
# checks its commands: resources and manifests against the system's own, classes against those of the Android platform for Linux, which are compared
# with a list of what Android has.
# sample.sh SOURCE WORK API-JAR PLATFORM-JAR KIT-JAR
set -euo pipefail
source=$1
work=$2
api=$3
platform=$4
kit=$5
level=24
framework=/usr/share/android-framework-res/framework-res.apk
rm -rf "$work"
mkdir -p "$work/java"

# package MODULE NAMESPACE [aapt options]: Gradle puts the namespace into the manifest.
package() {
    mkdir -p "$work/$1"
    sed "s/<manifest /&package=\"$2\" /" "$source/android/$1/src/main/AndroidManifest.xml" \
        >"$work/$1/AndroidManifest.xml"
    aapt package -f -M "$work/$1/AndroidManifest.xml" -I "$framework" --min-sdk-version $level \
        -F "$work/$1.apk" "${@:3}"
}
# compile FOLDER...
compile() {
    find "$@" -name '*.java' >"$work/sources"
    javac --release 11 -Xlint:all,-processing -Werror -d "$work/classes" \
        -cp "$api:$kit:$platform" "@$work/sources"
}
# holds MODULE TEXT
holds() {
    aapt dump badging "$work/$1.apk" | grep -F "$2" || {
        echo "FAILED: no $2 in what is packed of $1" >&2
        exit 1
    }
}

resources=$source/android/vornrenderer/src/main/res
package vornrenderer org.vornrenderer -S "$resources"
holds vornrenderer "uses-gl-es: '0x30000'"
main=$source/android/sample/src/main
page=$source/docs/android.md
mkdir -p "$work/page/layout"
"$source/docs/examples/extract.sh" "$page" xml | sed '/./,$!d' >"$work/page/layout/page.xml"
package sample-kotlin org.vornrenderer.sample.kotlin
package sample org.vornrenderer.sample -m -J "$work/java" --non-constant-id --auto-add-overlay \
    --extra-packages org.vornrenderer -S "$main/res" -S "$resources" -S "$work/page"
activity=$(aapt dump badging "$work/sample.apk" | sed -n "s/^launchable-activity: name='\([^']*\)'.*/\1/p")

check() { node "$source/tests/android/check_api.mjs" "$list" "$level" "$@"; }
list=$("$source/scripts/android-types")
unzip -q "$platform" '*.class' -d "$work/platform"
# The kit asks for these from their API level on.
check "$work/platform" isReleased StateDescription "int R" "int TIRAMISU" DataSpace
compile "$main/java" "$work/java"
[ -f "$work/classes/${activity//.//}.class" ] || {
    echo "FAILED: the manifest starts $activity, which is no class of the sample" >&2
    exit 1
}

{
    # On the line of the page's title, so that errors name the page's lines.
    printf 'import %s; ' android.app.Activity android.graphics.Bitmap android.graphics.ImageFormat \
        android.media.Image android.media.ImageReader 'android.opengl.*' android.os.Bundle android.os.Handler \
        java.nio.ByteBuffer javax.microedition.khronos.egl.EGLConfig \
        javax.microedition.khronos.opengles.GL10 'org.vornrenderer.*'
    "$source/docs/examples/extract.sh" "$page" java |
        sed 's/^public final class MovieActivity/final class MovieActivity/' # A file has one public class.
} >"$work/MainActivity.java"
compile "$work/MainActivity.java"

# The C++ code, as the page's CMake code builds it; the package stands in for that of the AAR.
java_home=$(dirname "$(dirname "$(readlink -f "$(command -v javac)")")")
app=$work/app
mkdir -p "$app"
"$source/docs/examples/extract.sh" "$page" cpp >"$app/app.cpp"
cat >"$app/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.25)
project(app CXX)
add_library(app OBJECT app.cpp)
$("$source/docs/examples/extract.sh" "$page" cmake)
END
cat >"$app/vornrendererConfig.cmake" <<END
add_library(vornrenderer::vornrenderer INTERFACE IMPORTED)
target_include_directories(vornrenderer::vornrenderer INTERFACE $source/include)
END
grep -q 'create("vornrenderer")' "$source/android/vornrenderer/build.gradle.kts"
cmake -S "$app" -B "$app/build" -G Ninja -Dvornrenderer_DIR="$app" -DCMAKE_CXX_STANDARD=17 \
    -DCMAKE_CXX_FLAGS="-Wall -Wextra -Werror -I$java_home/include -I$java_home/include/linux" >"$app/log"
cmake --build "$app/build" >>"$app/log" || { cat "$app/log" && exit 1; }

# The commands, and the modules that they name.
for text in "$page" "$source/android/README.md"; do
    "$source/docs/examples/extract.sh" "$text" sh | tee "$work/commands" | bash -n
    grep -o ' :[a-z-]*' "$work/commands" | tr -d ' ' | while read -r module; do
        grep -qF "\"$module\"" "$source/android/settings.gradle.kts" || {
            echo "FAILED: $text names $module, which is no module" >&2
            exit 1
        }
    done
done
