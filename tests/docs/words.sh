#!/bin/bash
# Finds spellings and phrases that the project does not use: words.sh FOLDER-OF-THE-SOURCES
set -euo pipefail
cd "$1"
british='colour|\bgrey|centre[ds]?\b|behaviour|neighbour|(optimi|initiali|normali|synchroni|seriali|organi|recogni)s[ei]|favour|artefact|cancelled|labelled|modelled|analys(e|ed|ing)\b'
unnamed='on purpose|by design|deliberate'
everything=(./*.md CMakePresets.json android bench bindings cmake docs gl include kernel packaging platform scripts
    src tests tools)
failed=0
if grep -rnIiE --exclude=words.sh --exclude-dir=node_modules "$british|java (virtual )?machine" "${everything[@]}"; then
    echo "FAILED: use American spelling, and \"JVM\"" >&2
    failed=1
fi
if grep -rnIiE --exclude=words.sh --exclude-dir=node_modules "$unnamed" "${everything[@]}"; then
    echo "FAILED: name a row of docs/compatibility.md" >&2
    failed=1
fi
exit $failed
