#!/bin/bash
# Makes clips of 6 s whose pictures have their number in bars, the lowest bit on the left: clips.sh FOLDER
set -euo pipefail
mkdir -p "$1"
bars="format=yuv420p,geq=lum='16+219*mod(floor(N/pow(2,floor(X/40))),2)':cb=128:cr=128"
ffmpeg -v error -y -f lavfi -i color=black:s=320x240:r=25:d=6 -vf "$bars" \
    -c:v libx264 -bf 2 -g 25 "$1/bars.mp4"
ffmpeg -v error -y -i "$1/bars.mp4" -c copy -metadata:s:v:0 rotate=90 "$1/turned.mp4"
echo "no video" >"$1/text.mp4"
