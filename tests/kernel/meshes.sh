#!/bin/bash
# Checks that each mesh of the kernel is complete: exported, described, drawn, measured and tested.
# meshes.sh LIBRARY
set -euo pipefail
library=$1
cd "$(dirname "$0")/../.."
failed=0

fail() {
    echo "FAILED: $1" >&2
    failed=1
}

exported=$(nm -D --defined-only "$library" | awk '{print $NF}' | c++filt)
for header in kernel/geometry/*.h; do
    builder=Build$(basename "$header" .h)
    grep -qF "OVR::$builder(" <<<"$exported" || fail "$builder is not exported"
    for item in Axis Seam Cells Size; do
        grep -q "^/// - $item: " "$header" || fail "$header does not describe its $item"
    done
    for place in docs/kernel.md tools/gallery/Scenes.cpp 'bench/kernel/*Bench.cpp' \
        'tests/kernel/*_test.cpp'; do
        grep -qE "\b$builder\b" $place || fail "$builder is not in $place"
    done
done
for picture in docs/images/kernel/*.png; do
    grep -qF "(${picture#docs/})" docs/kernel.md || fail "docs/kernel.md does not show $picture"
done
exit $failed
