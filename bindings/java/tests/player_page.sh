#!/bin/bash
# Compiles the player of docs/android.md in Java and in Kotlin, and the sample in Kotlin: player_page.sh SOURCE WORK CLASSPATH
set -euo pipefail
rm -rf "$2"
mkdir -p "$2/java" "$2/kotlin"
page=$1/docs/android.md
imports='import android.app.Activity; import android.os.Bundle; import org.vornrenderer.VornVideoView;'
"$1/bindings/java/tests/extract.sh" "$page" 'class MovieActivity' "$2/block"
{ echo "$imports" && cat "$2/block"; } >"$2/java/MovieActivity.java"
javac --release 11 -Xlint:all -Werror -cp "$3" -d "$2/java" "$2/java/MovieActivity.java"
{ echo "$imports" && "$1/docs/examples/extract.sh" "$page" kotlin; } >"$2/kotlin/MovieActivity.kt"
kotlinc -Werror -cp "$3" -d "$2/kotlin" "$2/kotlin/MovieActivity.kt" "$1/android/sample-kotlin/src/main/kotlin"
