#!/bin/sh
# Prints the C++ code of a page, each line at its number there: extract.sh PAGE
set -eu
printf '#line 1 "%s"\n' "$1"
awk '/^```/ {code = $0 == "```cpp"; print ""; next} {print code ? $0 : ""}' "$1"
