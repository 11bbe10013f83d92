#!/bin/bash
# Checks what the Java glue exports: exports.sh LIBRARY
set -euo pipefail
exported=$(nm -D --defined-only "$1" | awk '{print $NF}')
[ "$exported" = JNI_OnLoad ] || {
    echo "exported: $exported" >&2
    exit 1
}
