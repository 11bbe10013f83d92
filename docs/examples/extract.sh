#!/bin/sh
# Prints the code of a page with its line numbers: extract.sh PAGE [LANGUAGE], which is cpp by default
set -eu
language=${2:-cpp}
if [ "$language" = cpp ]; then
  printf '#line 1 "%s"\n' "$1"
fi
awk -v fence="\`\`\`$language" '/^```/ {code = $0 == fence; print ""; next} {print code ? $0 : ""}' "$1"
