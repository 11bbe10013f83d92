#!/bin/sh
# Runs the program of a page and compares its picture: draw.sh COMPARE PAGE-PICTURE WORK-FOLDER PROGRAM [CLIP]
# With UPDATE=--update in the environment, the picture on the page is replaced.
set -eu
compare=$1
page=$2
work=$3
program=$4
shift 4
"$program" "$@" "$work/frame.pam" "$work/sticker.pam" "$program.ppm" >/dev/null
"$compare" ${UPDATE:-} "$program.ppm" "$page"
