#pragma once

#include <string>
#include <vector>

#include "Camera.h"
#include "kernel/GlGeometry.h"

/// How the triangles of a mesh are painted. Lines are always of one colour.
enum class Paint {
    Faces,     ///< Front faces in one colour, back faces in another, lit; always opaque.
    Panorama,  ///< With the equirectangular picture.
    Photo,     ///< With the photo.
    Shade,     ///< With the vertex colour, over the whole picture, multiplied over the photo.
    Lines,
};

/// One picture of the gallery.
struct Scene {
    std::string name;
    OVR::GlGeometry (*build)();
    Paint paint;
    float edges;  ///< Strength of the triangles' edges on top.
    Camera camera;
    /// Added to texture coordinates that are centred on zero.
    float texCoordOffset = 0;
};

const std::vector<Scene>& Scenes();
