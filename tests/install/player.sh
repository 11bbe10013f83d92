#!/bin/bash
# Compares an installed player's pictures with the build's, on both paths:
# player.sh INSTALLED-PLAYER BUILT-PLAYER PICTURE WORK-FOLDER
set -euo pipefail
installed=$1
built=$2
picture=$3
work=$4
rm -rf "$work"
mkdir -p "$work"

"$built" "$picture" --quiet --out "$work/clip.mp4"
for path in cpu decode; do
    "$built" "$work/clip.mp4" --quiet --path $path --out "$work/$path-built.png"
    "$installed" "$work/clip.mp4" --quiet --path $path --out "$work/$path.png"
    cmp "$work/$path-built.png" "$work/$path.png"
done

# No part of it comes from the build.
loaded=$(ldd "$installed")
for library in libvornrenderer.so.0 libmediandk.so libandroid.so; do
    grep -q "$library => $(dirname "$(dirname "$installed")")/" <<<"$loaded" || {
        echo "FAILED: $library is not the installed one" >&2
        exit 1
    }
done
