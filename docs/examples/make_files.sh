#!/bin/sh
# Makes what the programs of the pages read: make_files.sh FRAME STICKER FOLDER
set -eu
ffmpeg -nostdin -v error -y -i "$1" -pix_fmt rgba "$3/frame.pam"
ffmpeg -nostdin -v error -y -i "$2" -pix_fmt rgba "$3/sticker.pam"
ffmpeg -nostdin -v error -y -loop 1 -i "$1" -frames:v 24 -vf scale=out_color_matrix=bt601 -pix_fmt yuv420p \
    -colorspace smpte170m -c:v libx264 -crf 12 -bf 0 -x264-params aud=1 "$3/frame.h264"
