#!/bin/bash
# Checks docs/compatibility.md against the code and the tests: compatibility.sh FOLDER-OF-THE-SOURCES
set -euo pipefail
cd "$1"
page=docs/compatibility.md
sources=(src include gl kernel)
failed=0

fail() {
    echo "FAILED: $1" >&2
    failed=1
}

rows=$(sed -n 's/^| \*\*\([^*]*\)\*\*.*/\1/p' "$page")
[ -z "$(sort <<<"$rows" | uniq -d)" ] || fail "two rows of one name: $(sort <<<"$rows" | uniq -d)"
while IFS= read -r name; do
    grep -qxF -- "$name" <<<"$rows" || fail "$page has no row for \"Frozen: $name\""
done < <(grep -rhoE 'Frozen: .*' "${sources[@]}" | sed 's/^Frozen: //; s/ *$//' | sort -u)

# The last column: tests by their names, and files that are tests by compiling.
tests=$(grep -rhE '^(TEST|TEST_F|TEST_P)\(' tests platform/linux/tests |
    sed 's/^[A-Z_]*(\([^,]*\), *\([^)]*\)).*/\1.\2/')
others=$(grep -rhoE 'add_test\(NAME [a-z._]+' tests --include=CMakeLists.txt | sed 's/.* //')
while IFS= read -r row; do
    name=$(sed 's/^| \*\*\([^*]*\)\*\*.*/\1/' <<<"$row")
    held=$(sed 's/ |$//; s/.* | //' <<<"$row" | grep -oE '`[^`]+`' | tr -d '`' || true)
    [ -n "$held" ] || fail "row \"$name\" names no test"
    for test in $held; do
        grep -qxF -- "$test" <<<"$tests"$'\n'"$others" || [ -f "$test" ] ||
            fail "row \"$name\" names $test, which is no test"
    done
done < <(grep '^| \*\*' "$page")

exit $failed
