#include "render/GPUTextureFilter/VEGPUTextureFilterBase.h"

#include <android/log.h>

#include "gl/GLES3.h"
#include "kernel/GlProgram.h"
#include "render/VELog.h"

namespace {

constexpr char kSourceFile[] = "src/Render/GPUTextureFilter/VEGPUTextureFilterBase.cpp";

// Frozen: fragment directives
constexpr char kFragmentDirectives[] =
    "#extension GL_OES_EGL_image_external : enable\n"
    "#extension GL_OES_EGL_image_external_essl3 : enable\n";

constexpr int kProgramVersion = 300;

}  // namespace

GPUTextureFilterBase::GPUTextureFilterBase() {
    if (!GLES3::LoadGLFunctions()) {
        LogWithFileTag(ANDROID_LOG_INFO, kSourceFile,
                       "\n Failed to load GLES3 core entry points! ...###debug_renderer\n");
    }
}

uint32_t GPUTextureFilterBase::BuildGLProgram(const char* vertexSource,
                                              const char* fragmentSource) {
    // Frozen: kept shaders
    return OVR::BuildProgram(nullptr, vertexSource, kFragmentDirectives, fragmentSource,
                             kProgramVersion)
        .Program;
}

void GPUTextureFilterBase::DeleteGLProgram(uint32_t program) {
    GLES3::glDeleteProgram(program);
}

GLFbo* GPUTextureFilterBase::GeneratorFBO(uint32_t width, uint32_t height, uint32_t format) {
    auto* fbo = new GLFbo;
    GLES3::glGenFramebuffers(1, &fbo->m_fbo);
    fbo->m_width = width;
    fbo->m_height = height;
    fbo->m_format = format;
    return fbo;
}

void GPUTextureFilterBase::DeleteFBO(GLFbo* fbo) {
    if (fbo == nullptr) {
        return;
    }
    GLES3::glDeleteFramebuffers(1, &fbo->m_extraFbo);  // Frozen: extra framebuffer
    GLES3::glDeleteFramebuffers(1, &fbo->m_fbo);
    delete fbo;
}

GLTexture* GPUTextureFilterBase::GeneratorTexture(uint32_t format, uint32_t width, uint32_t height,
                                                  bool usePbo) {
    GLuint name = 0;
    GLES3::glGenTextures(1, &name);
    try {
        return GeneratorTextureWithId(format, name, width, height, usePbo);
    } catch (...) {  // No memory.
        GLES3::glDeleteTextures(1, &name);
        throw;
    }
}

GLTexture* GPUTextureFilterBase::GeneratorTextureWithId(uint32_t format, uint32_t texture,
                                                        uint32_t width, uint32_t height,
                                                        bool usePbo) {
    return new GLTexture(format, texture, width, height, usePbo);
}

void GPUTextureFilterBase::DeleteTexture(GLTexture* texture) {
    if (texture == nullptr) {
        return;
    }
    if (texture->m_usePbo) {
        delete[] texture->m_pixels;
        // Frozen: pixel-buffer names
        GLES3::glDeleteFramebuffers(2, texture->m_pbo);
    }
    GLES3::glDeleteTextures(1, &texture->m_textureId);
    delete texture;
}
