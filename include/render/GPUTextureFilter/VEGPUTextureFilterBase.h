#pragma once

#include <cstdint>

#include "render/GPUTextureFilter/GLFbo.h"
#include "render/GPUTextureFilter/GLTexture.h"

/// Makes and deletes the GL objects of a texture filter. Not exported.
///
/// \thread the GL thread.
class GPUTextureFilterBase {
public:
    /// Loads the GL entry points; a failure is logged and construction goes on.
    GPUTextureFilterBase();

    /// \return the program's name, 0 when it could not be built. Its shaders stay with the context.
    static uint32_t BuildGLProgram(const char* vertexSource, const char* fragmentSource);
    static void DeleteGLProgram(uint32_t program);

    /// \return a framebuffer with nothing attached yet, for DeleteFBO.
    static GLFbo* GeneratorFBO(uint32_t width, uint32_t height, uint32_t format);
    static void DeleteFBO(GLFbo* fbo);

    /// \return a new texture, for DeleteTexture. See GLTexture for the arguments.
    static GLTexture* GeneratorTexture(uint32_t format, uint32_t width, uint32_t height,
                                       bool usePbo);
    /// As GeneratorTexture, around a texture name that the record takes over.
    static GLTexture* GeneratorTextureWithId(uint32_t format, uint32_t texture, uint32_t width,
                                             uint32_t height, bool usePbo);
    static void DeleteTexture(GLTexture* texture);
};
