#!/bin/bash
# Checks what a build of the library exports, imports and needs:
# exports.sh LIBRARY GL-ENTRY-LIST EXPORT-MAP
set -euo pipefail
library=$1
entries=$2
map=$3
failed=0

fail() {
    echo "FAILED: $1" >&2
    failed=1
}

exported=$(nm -D --defined-only "$library")
names=$(awk '{print $NF}' <<<"$exported" | sort)
demangled=$(c++filt <<<"$names")

for name in VECreateRendererHandle VECreateRendererHandleWithFormat VEUpdateRenderer \
    VEUpdateRendererWithSticker VEUpdateCompressedData VEUpdateUserPosition VEDestroyRenderer; do
    grep -qx "$name" <<<"$names" || fail "$name is not exported"
done
for name in 'LogWithFileTag(' 'LogWithTag(' 'GetThreadAffinityMask(' 'SetThreadAffinityMask(' \
    'SetAllowGpuTimerQueries(' 'Timer::start(' 'Timer::getTimeNowInMilliSec(' \
    'GLES3::LoadGLFunctions(' 'OVR::BuildProgram(' 'OVR::GlProgram::Build(' 'OVR::GlGeometry::Create(' \
    'OVR::BuildTesselatedQuad(' 'OVR::BuildTesselatedQuadInside(' 'OVR::LogText(' \
    'OVR::Log::GetGlobalLog(' 'OVR::Allocator::pInstance' 'OVR::System::Init(' \
    'OVR::Matrix4<float>::IdentityValue' 'OVR::Vector2<double>::ZERO' 'OVR::BuildGlobe(' 'OVR::BuildDome(' \
    'OVR::BuildTesselatedCylinder(' 'OVR::BuildSpherePatch(' 'OVR::BuildVignette(' \
    'OVR::BuildUnitCubeLines(' 'OVR::BuildCalibrationLines(' 'OVR::GlProgram::SetUseMultiview(' \
    'OVR::GlGeometry::Update(' 'OVR::Allocator::AllocAligned(' 'OVR::String::Append(' \
    'OVR::StringBuffer::AppendFormat(' 'OVR::UTF8Util::DecodeNextChar(' 'OVR::OVR_wcscpy('; do
    grep -qF -- "$name" <<<"$demangled" || fail "$name is not exported"
done

# The map and the library say the same: a line without a symbol is as wrong as a symbol without a line.
patterns=$(sed -n '/global:/,/local:/s/^ *\([^# ]*\);$/\1/p' "$map")
others=$names
for pattern in $patterns; do
    matching=$(sed 's/\*/.*/' <<<"^$pattern\$")
    grep -q "$matching" <<<"$names" || fail "nothing is exported as $pattern"
    others=$(grep -v "$matching" <<<"$others" || true)
done
[ -z "$others" ] || fail "also exported: $others"

wanted=$(sed -n 's/^GLES3_ENTRY(\(.*\))$/\1/p' "$entries" | sort)
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
