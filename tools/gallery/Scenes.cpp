#include "Scenes.h"

#include "kernel/Math.h"
#include "kernel/geometry/CalibrationLines.h"
#include "kernel/geometry/Dome.h"
#include "kernel/geometry/Globe.h"
#include "kernel/geometry/SpherePatch.h"
#include "kernel/geometry/TesselatedCylinder.h"
#include "kernel/geometry/TesselatedQuad.h"
#include "kernel/geometry/TesselatedQuadInside.h"
#include "kernel/geometry/Torus.h"
#include "kernel/geometry/UnitCubeLines.h"
#include "kernel/geometry/Vignette.h"

namespace {

using OVR::GlGeometry;

constexpr float kPi = OVR::Math<float>::Pi;
constexpr Point kOrigin = {0, 0, 0};

/// The square from -1 to 1 fills the height of the picture, with a margin.
constexpr Camera kSquare = {{0, 0, 3}, kOrigin, 42};
constexpr Camera kSticker = {{0, 0.3F, 1}, {0, 0.3F, 0}, 32};
constexpr Camera kAhead = {kOrigin, {0, 0, -1}, 98};
constexpr Camera kAboveDome = {{60, 150, 320}, {0, 40, 0}, 34};
constexpr Camera kBelowDome = {{60, -90, 320}, {0, 40, 0}, 34};
constexpr Camera kBesideTube = {{2.6F, 1.6F, 2.2F}, {0, 0, -0.1F}, 48, {0, 0, 1}};
constexpr Camera kAboveRing = {{0, 2.4F, 3.6F}, {0, -0.1F, 0}, 42};

/// Opacity of the edges of coarse and of fine meshes.
constexpr float kBold = 0.75F;
constexpr float kFaint = 0.4F;

GlGeometry Quad() {
    return OVR::BuildTesselatedQuad(4, 3, false);
}

GlGeometry QuadInside() {
    return OVR::BuildTesselatedQuadInside(0, 0.5F, false);
}

GlGeometry Globe() {
    return OVR::BuildGlobe(1, 1, 1);
}

GlGeometry Dome() {
    return OVR::BuildDome(kPi / 2, 1, 1);
}

GlGeometry Cylinder() {
    return OVR::BuildTesselatedCylinder(0.9F, 0.9F, 24, 6, 3, 1);
}

GlGeometry Patch() {
    return OVR::BuildSpherePatch(kPi / 2);
}

GlGeometry Torus() {
    return OVR::BuildTorus(1, 0.45F, 48, 24, 4, 1);
}

GlGeometry Vignette() {
    return OVR::BuildVignette(0.5F, 0.5F);
}

GlGeometry Calibration() {
    return OVR::BuildCalibrationLines(4, true);
}

GlGeometry CalibrationTicks() {
    return OVR::BuildCalibrationLines(4, false);
}

}  // namespace

const std::vector<Scene>& Scenes() {
    static const std::vector<Scene> kScenes = {
        {"quad", Quad, Paint::kFaces, kBold, kSquare},
        {"quad-photo", Quad, Paint::kPhoto, 0, kSquare},
        {"quad-inside", QuadInside, Paint::kFaces, kBold, kSticker},
        {"globe", Globe, Paint::kFaces, kFaint, {{1.2F, 1.4F, 2.6F}, kOrigin, 40}},
        {"globe-inside", Globe, Paint::kPanorama, 0, {kOrigin, {0, 0, -1}, 75}},
        {"dome", Dome, Paint::kFaces, kFaint, kAboveDome},
        {"dome-below", Dome, Paint::kFaces, kFaint, kBelowDome},
        {"cylinder", Cylinder, Paint::kFaces, kBold, kBesideTube},
        {"cylinder-photo", Cylinder, Paint::kPhoto, 0, kBesideTube},
        {"sphere-patch", Patch, Paint::kFaces, kFaint, {{-90, 80, 120}, {70, -2, 0}, 46}},
        {"sphere-patch-photo", Patch, Paint::kPhoto, 0, {kOrigin, {1, 0, 0}, 115}, 0.5F},
        {"torus", Torus, Paint::kFaces, kFaint, kAboveRing},
        {"torus-photo", Torus, Paint::kPhoto, 0, kAboveRing},
        {"vignette", Vignette, Paint::kFaces, kBold, kSquare},
        {"vignette-photo", Vignette, Paint::kShade, 0, {}},
        {"cube",
         OVR::BuildUnitCubeLines,
         Paint::kLines,
         0,
         {{2.3F, 1.7F, 2.9F}, {0.5F, 0.45F, 0.5F}, 34}},
        {"calibration", Calibration, Paint::kLines, 0, kAhead},
        {"calibration-ticks", CalibrationTicks, Paint::kLines, 0, kAhead},
    };
    return kScenes;
}
