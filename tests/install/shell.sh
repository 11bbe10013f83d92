#!/bin/bash
# What shells and desktops take from an installed player: shell.sh PREFIX
set -euo pipefail
share=$1/share
desktop-file-validate "$share/applications/vornplay.desktop"
grep -q '<svg' "$share/icons/hicolor/scalable/apps/vornplay.svg"
for program in vornplay motionmask; do
    page=$share/man/man1/$program.1.gz
    complaints=$(gunzip -c "$page" | groff -man -ww -Tutf8 2>&1 >/dev/null)
    complaints+=$(LC_ALL=C.UTF-8 MANROFFSEQ= man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    [ -z "$complaints" ] || {
        echo "FAILED: $page: $complaints" >&2
        exit 1
    }
    bash -n "$share/bash-completion/completions/$program"
    zsh -n "$share/zsh/vendor-completions/_$program"
done

. "$share/bash-completion/completions/vornplay"
# offers EXPECTED WORD...: for the last word, the shell offers this.
offers() {
    local expected=$1
    shift
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
    _vornplay
    [ "${COMPREPLY[*]}" = "$expected" ] || {
        echo "FAILED: for \"$*\" bash offers: ${COMPREPLY[*]}" >&2
        exit 1
    }
}
offers '--codec' vornplay clip.mp4 --cod
offers 'h264 h265' vornplay --codec h26
offers 'vp9' vornplay --codec = v
offers '' vornplay --size 6
offers "$share/man" vornplay --platform "$share/ma"
offers "$share/man" vornplay "$share/ma"
