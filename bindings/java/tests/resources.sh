#!/bin/bash
# Makes the class R of the library's resources, as Gradle does for a library: resources.sh RESOURCES FOLDER
set -euo pipefail
mkdir -p "$2"
echo '<manifest package="org.vornrenderer" />' >"$2/AndroidManifest.xml"
aapt package -f -m --non-constant-id -J "$2" -M "$2/AndroidManifest.xml" -S "$1" \
    -I /usr/share/android-framework-res/framework-res.apk
