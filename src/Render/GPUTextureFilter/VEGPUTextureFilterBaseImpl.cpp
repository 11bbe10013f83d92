#include "render/GPUTextureFilter/VEGPUTextureFilterBaseImpl.h"

#include "FilterShaders.h"
#include "GLErrorCheck.h"
#include "ViewTransform.h"
#include "gl/GLES3.h"
#include "kernel/geometry/TesselatedQuad.h"
#include "kernel/geometry/TesselatedQuadInside.h"
#include "render/GPUTextureFilter/GLStateSave.h"

namespace {

constexpr float kInitialZoom = 2.0F;

/// The error checks of bindTextures, for one kind of source.
struct TextureChecks {
    DrawCheck source;
    DrawCheck sourceSampler;
    DrawCheck maskUnit;
    DrawCheck mask;
    DrawCheck maskSampler;
    DrawCheck stickerUnit;
    DrawCheck sticker;
    DrawCheck stickerSampler;
};

constexpr TextureChecks kExternalChecks = {
    DrawCheck::ExternalSource,  DrawCheck::ExternalSourceSampler, DrawCheck::ExternalMaskUnit,
    DrawCheck::ExternalMask,    DrawCheck::ExternalMaskSampler,   DrawCheck::ExternalStickerUnit,
    DrawCheck::ExternalSticker, DrawCheck::ExternalStickerSampler};

constexpr TextureChecks kTexture2DChecks = {
    DrawCheck::Source2D,        DrawCheck::Source2DSampler,       DrawCheck::Source2DMaskUnit,
    DrawCheck::Source2DMask,    DrawCheck::Source2DMaskSampler,   DrawCheck::Source2DStickerUnit,
    DrawCheck::Source2DSticker, DrawCheck::Source2DStickerSampler};

/// Distance of \p pixel from the center, in halves of the target's size. A target that is one pixel
/// wide has no half: the result is then infinite or NaN.
float FromCenter(int32_t pixel, uint32_t half) {
    // Frozen: sticker placement
    const auto distance = static_cast<int32_t>(static_cast<uint32_t>(pixel) - half);
    return static_cast<float>(distance) / static_cast<float>(half);
}

int32_t FindUniform(uint32_t program, const char* name, DrawCheck check) {
    const GLint location = GLES3::glGetUniformLocation(program, name);
    CheckGLError(check);
    return location;
}

void Disable(GLenum capability, DrawCheck check) {
    GLES3::glDisable(capability);
    CheckGLError(check);
}

void BindBuffer(GLenum target, GLuint buffer, DrawCheck check) {
    GLES3::glBindBuffer(target, buffer);
    CheckGLError(check);
}

void SetUniform(int32_t location, int value, DrawCheck check) {
    GLES3::glUniform1i(location, value);
    CheckGLError(check);
}

void ActivateUnit(GLenum unit, DrawCheck check) {
    GLES3::glActiveTexture(unit);
    CheckGLError(check);
}

void BindTexture(GLenum target, GLuint texture, DrawCheck check) {
    GLES3::glBindTexture(target, texture);
    CheckGLError(check);
}

// Frozen: state left behind
void Unbind() {
    GLES3::glBindVertexArrayOES(0);
    CheckGLError(DrawCheck::UnbindVertexArrayOES);
    GLES3::glBindVertexArray(0);
    CheckGLError(DrawCheck::UnbindVertexArray);
    GLES3::glUseProgram(0);
    CheckGLError(DrawCheck::UnbindProgram);
    BindTexture(GL_TEXTURE_2D, 0, DrawCheck::UnbindTexture);
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, 0);
    CheckGLError(DrawCheck::UnbindFramebuffer);
}

}  // namespace

GPUTextureFilterBaseImpl::GPUTextureFilterBaseImpl(uint32_t targetTexture, uint32_t targetFormat,
                                                   uint32_t sourceFormat, uint32_t width,
                                                   uint32_t height, uint32_t maskFormat,
                                                   uint32_t maskWidth, uint32_t maskHeight)
    : m_targetTexture(targetTexture),
      m_targetFormat(targetFormat),
      m_targetWidth(width),
      m_targetHeight(height),
      m_sourceFormat(sourceFormat),
      m_sourceWidth(width),
      m_sourceHeight(height),
      m_maskFormat(maskFormat),
      m_maskWidth(maskWidth),
      m_maskHeight(maskHeight),
      m_projection(CameraProjection()) {
    updateMatrixState(0.0F, 0.0F, kInitialZoom, 0.0F);
    m_quad = OVR::BuildTesselatedQuad(1, 1, false);
    try {
        m_stickerQuad = OVR::BuildTesselatedQuadInside(0.0F, 0.0F, false);
    } catch (...) {  // No memory.
        m_quad.Free();
        throw;
    }
}

GPUTextureFilterBaseImpl::~GPUTextureFilterBaseImpl() {
    DeleteGLProgram(m_program);  // Frozen: program never built
    DeleteFBO(m_fbo);
    m_quad.Free();
    m_stickerQuad.Free();
}

// Frozen: ignored coordinates
void GPUTextureFilterBaseImpl::updateMatrixState(float x, float /*y*/, float zoom, float /*w*/) {
    m_mvpMatrix = Multiply(m_projection, CameraView(x, 0.0F, zoom));
}

void GPUTextureFilterBaseImpl::updateStickerPaintPosition(int32_t x, int32_t y) {
    if (x == -1 && y == -1) {  // Frozen: hidden pair
        m_stickerVisible = false;
        return;
    }
    const float fx = FromCenter(x, m_targetWidth / 2);
    const float fy = FromCenter(y, m_targetHeight / 2);
    m_stickerQuad.Free();
    m_stickerQuad = OVR::BuildTesselatedQuadInside(fx, fy, false);
    m_stickerVisible = true;
}

void GPUTextureFilterBaseImpl::draw(uint32_t sourceTexture, uint32_t maskTexture, bool mirror,
                                    bool sourceIsExternal, int32_t stickerTexture,
                                    const VEStickerList& stickers) {
    if (m_program == kNone) {  // Frozen: first draw decides
        buildProgram(sourceIsExternal, maskTexture != kNone);
    }
    if (m_fbo == nullptr) {
        makeTarget();
    }
    const GLStateSave callersState;
    beginTarget();
    useProgram(mirror);
    bindTextures(sourceTexture, maskTexture, sourceIsExternal, stickerTexture);
    m_quad.Draw();
    try {
        if (stickerTexture >= 0) {
            drawStickers(stickers);
        }
    } catch (...) {  // No memory.
        Unbind();
        throw;
    }
    Unbind();
}

void GPUTextureFilterBaseImpl::makeTarget() {
    m_fbo = GeneratorFBO(m_targetWidth, m_targetHeight, m_targetFormat);
    m_fbo->bindTexture(m_targetTexture);
}

void GPUTextureFilterBaseImpl::buildProgram(bool sourceIsExternal, bool masked) {
    m_program = BuildGLProgram(kFilterVertexShader, FilterFragmentShader(sourceIsExternal, masked));
    m_colorMirrorLoc = FindUniform(m_program, "vColorMirror", DrawCheck::ColorMirrorLocation);
    m_matrixLoc = FindUniform(m_program, "vMatrix", DrawCheck::MatrixLocation);
    m_stickerLoc = FindUniform(m_program, "vSticker", DrawCheck::StickerLocation);
    m_texture0Loc = FindUniform(m_program, "Texture0", DrawCheck::SourceLocation);
    if (masked) {
        m_texture1Loc = FindUniform(m_program, "Texture1", DrawCheck::MaskLocation);
    }
    m_texture2Loc = FindUniform(m_program, "Texture2", DrawCheck::StickerTextureLocation);
}

// Frozen: clear color
void GPUTextureFilterBaseImpl::beginTarget() const {
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, m_fbo->m_fbo);
    Disable(GL_DEPTH_TEST, DrawCheck::DepthTest);
    Disable(GL_SCISSOR_TEST, DrawCheck::ScissorTest);
    Disable(GL_STENCIL_TEST, DrawCheck::StencilTest);
    Disable(GL_CULL_FACE, DrawCheck::CullFace);
    Disable(GL_BLEND, DrawCheck::Blend);

    // Frozen: depth attachment
    static constexpr GLenum kAttachments[] = {GL_COLOR_ATTACHMENT0, GL_DEPTH_ATTACHMENT};
    GLES3::glInvalidateFramebuffer(GL_FRAMEBUFFER, 2, kAttachments);
    GLES3::glViewport(0, 0, static_cast<GLsizei>(m_targetWidth),
                      static_cast<GLsizei>(m_targetHeight));
    GLES3::glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

    BindBuffer(GL_ARRAY_BUFFER, 0, DrawCheck::ArrayBuffer);
    BindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0, DrawCheck::IndexBuffer);
}

void GPUTextureFilterBaseImpl::useProgram(bool mirror) const {
    GLES3::glUseProgram(m_program);
    CheckGLError(DrawCheck::UseProgram);
    GLES3::glUniformMatrix4fv(m_matrixLoc, 1, GL_FALSE, &m_mvpMatrix.M[0][0]);
    CheckGLError(DrawCheck::Matrix);
    SetUniform(m_colorMirrorLoc, mirror ? 1 : 0, DrawCheck::ColorMirror);
    SetUniform(m_stickerLoc, 0, DrawCheck::StickerFlagOff);
    ActivateUnit(GL_TEXTURE0, DrawCheck::SourceUnit);
}

void GPUTextureFilterBaseImpl::bindTextures(uint32_t sourceTexture, uint32_t maskTexture,
                                            bool sourceIsExternal, int32_t stickerTexture) const {
    const GLenum sourceTarget = sourceIsExternal ? GL_TEXTURE_EXTERNAL_OES : GL_TEXTURE_2D;
    const TextureChecks& checks = sourceIsExternal ? kExternalChecks : kTexture2DChecks;

    BindTexture(sourceTarget, sourceTexture, checks.source);
    SetUniform(m_texture0Loc, 0, checks.sourceSampler);
    ActivateUnit(GL_TEXTURE1, checks.maskUnit);
    BindTexture(GL_TEXTURE_2D, maskTexture, checks.mask);  // Frozen: mask unit
    SetUniform(m_texture1Loc, 1, checks.maskSampler);
    if (stickerTexture >= 0) {
        ActivateUnit(GL_TEXTURE2, checks.stickerUnit);
        BindTexture(GL_TEXTURE_2D, static_cast<GLuint>(stickerTexture), checks.sticker);
        SetUniform(m_texture2Loc, 2, checks.stickerSampler);
    }
}

// Frozen: one sticker mesh
// Frozen: unblended stickers
void GPUTextureFilterBaseImpl::drawStickers(const VEStickerList& stickers) {
    // Frozen: sticker list size
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (size_t i = 0; i < stickers.size(); ++i) {
        updateStickerPaintPosition(stickers[i].first, stickers[i].second);
        if (m_stickerVisible) {
            SetUniform(m_stickerLoc, 1, DrawCheck::StickerFlagOn);
            m_stickerQuad.Draw();
        }
    }
}
