#pragma once

#include <cstdint>

#include "render/GPUTextureFilter/GLFbo.h"
#include "render/GPUTextureFilter/GLTexture.h"

/// Creates and deletes the GL objects of a texture filter. Not exported.
///
/// \thread the GL thread.
class GPUTextureFilterBase {
public:
    /// Loads the GL entry points. Logs a failure and goes on.
    GPUTextureFilterBase();

    /// \return the name of the program, or 0 if it cannot be built. Its shaders are never deleted.
    static uint32_t BuildGLProgram(const char* vertexSource, const char* fragmentSource);
    static void DeleteGLProgram(uint32_t program);

    /// \return a framebuffer without attachments. Delete it with DeleteFBO.
    static GLFbo* GeneratorFBO(uint32_t width, uint32_t height, uint32_t format);
    static void DeleteFBO(GLFbo* fbo);

    /// \return a new texture. Delete it with DeleteTexture. The arguments are those of GLTexture.
    static GLTexture* GeneratorTexture(uint32_t format, uint32_t width, uint32_t height,
                                       bool usePbo);
    /// Like GeneratorTexture, with the name of an existing texture, which DeleteTexture deletes.
    static GLTexture* GeneratorTextureWithId(uint32_t format, uint32_t texture, uint32_t width,
                                             uint32_t height, bool usePbo);
    static void DeleteTexture(GLTexture* texture);
};
