#include "render/GPUTextureFilter/VEGPUTextureFilterBaseImpl.h"

#include "FilterShaders.h"
#include "GLErrorCheck.h"
#include "ViewTransform.h"
#include "gl/GLES3.h"
#include "kernel/geometry/TesselatedQuad.h"
#include "kernel/geometry/TesselatedQuadInside.h"
#include "render/GPUTextureFilter/GLStateSave.h"

namespace {

constexpr double kFieldOfViewDegrees = 47.0;
constexpr float kAspect = 1.0F;  // Deliberately not the output's: a square view fills any frame.
constexpr float kNearPlane = 0.1F;
constexpr float kFarPlane = 100.0F;

constexpr float kFarthestCamera = 3.0F;
constexpr float kCameraStepPerZoom = 0.5F;
constexpr float kInitialZoom = 2.0F;

/// Numbers of the first error check behind the texture binds, by kind of source.
constexpr int kExternalSourceChecks = 264;
constexpr int kTexture2DSourceChecks = 282;

/// Position of \p pixel from the centre, in halves of the target's extent. A target one pixel wide
/// has no half: the result is then infinite or NaN.
float FromCentre(int32_t pixel, uint32_t half) {
    // Subtracted in unsigned arithmetic, which wraps as 32-bit registers do.
    const auto distance = static_cast<int32_t>(static_cast<uint32_t>(pixel) - half);
    return static_cast<float>(distance) / static_cast<float>(half);
}

int32_t FindUniform(uint32_t program, const char* name, int line) {
    const GLint location = GLES3::glGetUniformLocation(program, name);
    CheckGLError(line);
    return location;
}

void Disable(GLenum capability, int line) {
    GLES3::glDisable(capability);
    CheckGLError(line);
}

void BindBuffer(GLenum target, GLuint buffer, int line) {
    GLES3::glBindBuffer(target, buffer);
    CheckGLError(line);
}

void SetUniform(int32_t location, int value, int line) {
    GLES3::glUniform1i(location, value);
    CheckGLError(line);
}

void ActivateUnit(GLenum unit, int line) {
    GLES3::glActiveTexture(unit);
    CheckGLError(line);
}

void BindTexture(GLenum target, GLuint texture, int line) {
    GLES3::glBindTexture(target, texture);
    CheckGLError(line);
}

/// Texture 0 goes to the unit active now; the other units keep their textures.
void Unbind() {
    GLES3::glBindVertexArrayOES(0);
    CheckGLError(314);
    GLES3::glBindVertexArray(0);
    CheckGLError(315);
    GLES3::glUseProgram(0);
    CheckGLError(316);
    BindTexture(GL_TEXTURE_2D, 0, 317);
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, 0);
    CheckGLError(318);
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
      m_projection(Perspective(kFieldOfViewDegrees, kAspect, kNearPlane, kFarPlane)) {
    updateMatrixState(0.0F, 0.0F, kInitialZoom, 0.0F);
    m_quad = OVR::BuildTesselatedQuad(1, 1, false);
    m_stickerQuad = OVR::BuildTesselatedQuadInside(0.0F, 0.0F, false);
}

GPUTextureFilterBaseImpl::~GPUTextureFilterBaseImpl() {
    DeleteGLProgram(m_program);
    DeleteFBO(m_fbo);
    m_quad.Free();
    m_stickerQuad.Free();
}

// At zoom 6 the camera stands in the picture's plane and the whole matrix is NaN; beyond, it looks
// at the picture from behind.
void GPUTextureFilterBaseImpl::updateMatrixState(float x, float /*y*/, float zoom, float /*w*/) {
    const float distance = kFarthestCamera - kCameraStepPerZoom * zoom;
    const OVR::Matrix4<float> view =
        LookAt({x, 0.0F, distance}, {x, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F});
    m_mvpMatrix = Multiply(m_projection, view);
}

void GPUTextureFilterBaseImpl::updateStickerPaintPosition(int32_t x, int32_t y) {
    if (x == -1 && y == -1) {
        m_stickerVisible = false;
        return;
    }
    const float fx = FromCentre(x, m_targetWidth / 2);
    const float fy = FromCentre(y, m_targetHeight / 2);
    m_stickerQuad.Free();
    m_stickerQuad = OVR::BuildTesselatedQuadInside(fx, fy, false);
    m_stickerVisible = true;
}

void GPUTextureFilterBaseImpl::draw(uint32_t sourceTexture, uint32_t maskTexture, bool mirror,
                                    bool sourceIsExternal, int32_t stickerTexture,
                                    const VEStickerList& stickers) {
    if (m_program == kNone) {
        setUp(sourceIsExternal, maskTexture != kNone);
    }
    const GLStateSave callersState;
    if (m_fbo == nullptr) {
        return;
    }
    beginTarget();
    useProgram(mirror);
    bindTextures(sourceTexture, maskTexture, sourceIsExternal, stickerTexture);
    m_quad.Draw();
    if (stickerTexture >= 0) {
        drawStickers(stickers);
    }
    Unbind();
}

void GPUTextureFilterBaseImpl::setUp(bool sourceIsExternal, bool masked) {
    buildProgram(sourceIsExternal, masked);
    if (m_fbo == nullptr) {
        m_fbo = GeneratorFBO(m_targetWidth, m_targetHeight, m_targetFormat);
        m_fbo->bindTexture(m_targetTexture);
    }
}

void GPUTextureFilterBaseImpl::buildProgram(bool sourceIsExternal, bool masked) {
    m_program = BuildGLProgram(kFilterVertexShader, FilterFragmentShader(sourceIsExternal, masked));
    m_colorMirrorLoc = FindUniform(m_program, "vColorMirror", 150);
    m_matrixLoc = FindUniform(m_program, "vMatrix", 152);
    m_stickerLoc = FindUniform(m_program, "vSticker", 154);
    m_texture0Loc = FindUniform(m_program, "Texture0", 157);
    if (masked) {
        m_texture1Loc = FindUniform(m_program, "Texture1", 161);
    }
    m_texture2Loc = FindUniform(m_program, "Texture2", 164);
}

/// Clears in the caller's clear colour: it is the background around the picture.
void GPUTextureFilterBaseImpl::beginTarget() const {
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, m_fbo->m_fbo);
    Disable(GL_DEPTH_TEST, 242);
    Disable(GL_SCISSOR_TEST, 243);
    Disable(GL_STENCIL_TEST, 244);
    Disable(GL_CULL_FACE, 245);
    Disable(GL_BLEND, 246);

    // The target has no depth; the entry is sent all the same.
    static constexpr GLenum kAttachments[] = {GL_COLOR_ATTACHMENT0, GL_DEPTH_ATTACHMENT};
    GLES3::glInvalidateFramebuffer(GL_FRAMEBUFFER, 2, kAttachments);
    GLES3::glViewport(0, 0, static_cast<GLsizei>(m_targetWidth),
                      static_cast<GLsizei>(m_targetHeight));
    GLES3::glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

    BindBuffer(GL_ARRAY_BUFFER, 0, 254);
    BindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0, 255);
}

void GPUTextureFilterBaseImpl::useProgram(bool mirror) const {
    GLES3::glUseProgram(m_program);
    CheckGLError(257);
    GLES3::glUniformMatrix4fv(m_matrixLoc, 1, GL_FALSE, &m_mvpMatrix.M[0][0]);
    CheckGLError(258);
    SetUniform(m_colorMirrorLoc, mirror ? 1 : 0, 259);
    SetUniform(m_stickerLoc, 0, 260);
    ActivateUnit(GL_TEXTURE0, 261);
}

/// Unit 1 gets the mask in every case: without one, GL records an error that is only logged.
void GPUTextureFilterBaseImpl::bindTextures(uint32_t sourceTexture, uint32_t maskTexture,
                                            bool sourceIsExternal, int32_t stickerTexture) const {
    const GLenum sourceTarget = sourceIsExternal ? GL_TEXTURE_EXTERNAL_OES : GL_TEXTURE_2D;
    const int line = sourceIsExternal ? kExternalSourceChecks : kTexture2DSourceChecks;

    BindTexture(sourceTarget, sourceTexture, line);
    SetUniform(m_texture0Loc, 0, line + 1);
    ActivateUnit(GL_TEXTURE1, line + 4);
    BindTexture(GL_TEXTURE_2D, maskTexture, line + 5);
    SetUniform(m_texture1Loc, 1, line + 6);
    if (stickerTexture >= 0) {
        ActivateUnit(GL_TEXTURE2, line + 11);
        BindTexture(GL_TEXTURE_2D, static_cast<GLuint>(stickerTexture), line + 12);
        SetUniform(m_texture2Loc, 2, line + 13);
    }
}

/// One mesh serves all stickers in turn, rebuilt at each position. They replace what is below them:
/// blending is off, and their alpha is written as it is.
void GPUTextureFilterBaseImpl::drawStickers(const VEStickerList& stickers) {
    // NOLINTNEXTLINE(modernize-loop-convert): the size is read again at each step.
    for (size_t i = 0; i < stickers.size(); ++i) {
        updateStickerPaintPosition(stickers[i].first, stickers[i].second);
        if (m_stickerVisible) {
            SetUniform(m_stickerLoc, 1, 308);
            m_stickerQuad.Draw();
        }
    }
}
