#pragma once

#include <string>
#include <vector>

#include "Camera.h"
#include "kernel/GlGeometry.h"

/// How the triangles of a mesh are painted. Lines have one color.
enum class Paint {
    kFaces,     ///< Front faces in one color, back faces in another, lit and opaque.
    kPanorama,  ///< With the equirectangular picture.
    kPhoto,     ///< With the photo.
    kShade,     ///< The photo multiplied by the vertex color, over the whole picture.
    kLines,
};

/// One picture of the gallery.
struct Scene {
    std::string name;
    OVR::GlGeometry (*build)();
    Paint paint;
    float edges;  ///< Opacity of the triangles' edges; 0 for none.
    Camera camera;
    /// Added to texture coordinates that are centered on zero.
    float texCoordOffset = 0;
};

const std::vector<Scene>& Scenes();
