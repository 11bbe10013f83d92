#!/bin/bash
# Compiles the Kotlin code of the docs, and code that must not compile: kotlin.sh SOURCE WORK CLASSPATH
set -euo pipefail
source=$1
work=$2
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$work"
mkdir -p "$work"
"$source/docs/examples/extract.sh" "$source/docs/java.md" kotlin >"$work/Page.kt"
kotlinc -Werror -cp "$3" -d "$work" "$work/Page.kt"

# Each line that is marked must give an error, and no other.
kotlinc -cp "$3" -d "$work" "$here/Nulls.kt" 2>"$work/errors" || true
expected=$(grep -n '// refused' "$here/Nulls.kt" | cut -d: -f1)
found=$(sed -n 's/.*Nulls\.kt:\([0-9]*\):.*error:.*/\1/p' "$work/errors" | uniq)
[ -n "$expected" ] && [ "$found" = "$expected" ] || {
    echo "FAILED: errors in lines ${found//$'\n'/ }, not in ${expected//$'\n'/ }" >&2
    cat "$work/errors" >&2
    exit 1
}
