#!/bin/bash
# Writes the Java program of a document that has a certain line in it: extract.sh DOCUMENT LINE FILE
set -euo pipefail
awk -v line="$2" '
    /^```java$/ { program = ""; inside = 1; next }
    /^```$/ { if (inside && index(program, line)) { printf "%s", program }; inside = 0 }
    inside { program = program $0 "\n" }' "$1" >"$3"
[ -s "$3" ]
