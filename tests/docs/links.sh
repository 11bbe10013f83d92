#!/bin/bash
# Checks that what the pages link to and show is there: links.sh FOLDER-OF-THE-SOURCES
set -euo pipefail
cd "$1"
failed=0

# "#…" as sites make it of a heading, for each heading of a page.
anchors() {
    sed -n 's/^##* *//p' "$1" | tr '[:upper:]' '[:lower:]' | sed 's/[^a-z0-9 _-]//g; s/ /-/g'
}

while IFS= read -r page; do
    targets=$(awk '/^```/ {code = !code} !code' "$page" | grep -oE '\]\([^) ]+\)' | sed 's/^](//; s/)$//' || true)
    while IFS= read -r target; do
        [[ -z $target || $target =~ ^[a-z]+: ]] && continue
        file=${target%%#*}
        path=$page
        [ -z "$file" ] || path=$(dirname "$page")/$file
        anchor=${target#"$file"}
        if [ ! -e "$path" ] || { [ -n "$anchor" ] && ! anchors "$path" | grep -x -- "${anchor#\#}" >/dev/null; }; then
            echo "FAILED: $page links to $target" >&2
            failed=1
        fi
    done <<<"$targets"
done < <(find . -name '*.md' -not -path './build/*' -not -path './out/*' -not -path './.*' -not -path '*/node_modules/*')
exit $failed
