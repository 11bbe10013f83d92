#pragma once

#include <cstdint>

#include "gl/GLES3.h"

/// Entries beyond the table of gl/GLES3.h. Null where the context has none.
struct PerBufferEntries {
    void (*enable)(GLenum capability, GLuint buffer) = nullptr;
    void (*disable)(GLenum capability, GLuint buffer) = nullptr;
    void (*colorMask)(GLuint buffer, GLboolean red, GLboolean green, GLboolean blue,
                      GLboolean alpha) = nullptr;
};

/// What the current context can do.
struct GLFeatures {
    /// Needs the table of gl/GLES3.h loaded and a context of OpenGL ES 3.0 or later.
    GLFeatures();

    bool externalTextures;
    int32_t maxTextureSize = 0;
    /// Blending and color mask of single draw buffers; all set or all null.
    PerBufferEntries perBuffer;
};

/// The version of the current context as 10 × major + minor; 0 without a context, and where the
/// context is not one of OpenGL ES. Leaves the error flags alone.
int GLVersion();
