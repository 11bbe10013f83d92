#!/bin/bash
# Checks what a build of the library exports, imports and needs: exports.sh LIBRARY
set -euo pipefail
library=$1
root=$(cd "$(dirname "$0")/../.." && pwd)
failed=0

fail() {
    echo "FAILED: $1" >&2
    failed=1
}

exported=$(nm -D --defined-only "$library")
demangled=$(awk '{print $NF}' <<<"$exported" | c++filt)

# The library exports the functions and classes that public headers mark, and nothing else.
marked=$(cat "$root"/{include/render,kernel,kernel/geometry,gl}/*.h |
    sed -nE 's/^(class|struct) \w+_EXPORT (\w+).*/\2/p; s/^\w+_EXPORT [^(]*[ *&](\w+)\(.*/\1/p')
names=$(grep -v '^GLES3::gl' <<<"$demangled" |
    sed -E 's/[<(].*//; s/.* //; s/^((OVR|UTF8Util|GLES3)::)*//; s/::.*//')
diff <(sort -u <<<"$marked") <(sort -u <<<"$names") >&2 ||
    fail "< is marked and not exported, > is exported and not marked"

wanted=$(sed -n 's/^GLES3_ENTRY(.*, \(.*\))$/\1/p' "$root/gl/GLES3Entries.inc" | sort)
table=$(sed -n 's/^GLES3::\(gl.*\)$/\1/p' <<<"$demangled" | sort)
[ "$wanted" = "$table" ] || fail "the GL table differs from its list"
[ "$(wc -l <<<"$wanted")" = 247 ] || fail "the GL table's list has not 247 entries"

awk '$(NF-1) == "u"' <<<"$exported" | grep . && fail "unique symbols keep the library from unloading"

imported=$(nm -D --undefined-only "$library" | awk '{print $NF}' | sed 's/@.*//' | grep -E '^(egl|gl[A-Z])' || true)
[ "$imported" = eglGetProcAddress ] || fail "imported from GL and EGL: $imported"

needed=$(readelf -d "$library" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
for name in libEGL libGLESv2 liblog; do
    grep -q "^$name\.so" <<<"$needed" || fail "$name is not needed"
done
exit $failed
