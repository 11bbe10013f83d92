#!/bin/bash
# Makes an H.264 clip of one still picture: make_clip.sh PLAYER PICTURE CLIP
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for number in $(seq 1001 1024); do
    cp "$2" "$work/$number.png"
done
"$1" "$work/%04d.png" --quiet --overwrite --out "$3"
