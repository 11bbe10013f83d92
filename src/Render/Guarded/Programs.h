#pragma once

#include <cstdint>

#include "../GPUTextureFilter/ViewTransform.h"
#include "GLNames.h"

/// Draws a picture with or without a mask: the source on unit 0, the mask on unit 1. The vertex
/// attribute 0 is the position, a vec2.
class PictureProgram {
public:
    /// Builds the program unless it is there. Throws Failure.
    void build(GLNames& names, bool externalSource, bool masked);

    /// \param view  from positions to the output.
    /// \param place from (s, t), t = 0 at the first row, to the source's coordinates.
    void use(const OVR::Matrix4<float>& view, const OVR::Matrix4<float>& place) const;

private:
    uint32_t program_ = 0;
    int32_t view_ = -1;
    int32_t place_ = -1;
};

/// Draws stickers from the texture on unit 0. The vertex attribute 0 is a vec4: position and
/// texture coordinates.
class StickerProgram {
public:
    /// Builds the program unless it is there. Throws Failure.
    void build(GLNames& names);
    void use(const OVR::Matrix4<float>& view) const;

private:
    uint32_t program_ = 0;
    int32_t view_ = -1;
};
