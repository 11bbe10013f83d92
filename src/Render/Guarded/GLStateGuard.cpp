#include "GLStateGuard.h"

#include <iterator>

#include <GLES2/gl2ext.h>

namespace {

GLint Get(GLenum name) {
    GLint value = 0;
    GLES3::glGetIntegerv(name, &value);
    return value;
}

GLuint Name(GLint value) {
    return static_cast<GLuint>(value);
}

void Switch(GLenum capability, bool on) {
    (on ? GLES3::glEnable : GLES3::glDisable)(capability);
}

void SetBlending(const GLFeatures& features, bool on) {
    if (features.perBuffer.enable == nullptr) {
        Switch(GL_BLEND, on);
    } else {
        (on ? features.perBuffer.enable : features.perBuffer.disable)(GL_BLEND, 0);
    }
}

void SetColorMask(const GLFeatures& features, const GLboolean (&mask)[4]) {
    if (features.perBuffer.colorMask == nullptr) {
        GLES3::glColorMask(mask[0], mask[1], mask[2], mask[3]);
    } else {
        features.perBuffer.colorMask(0, mask[0], mask[1], mask[2], mask[3]);
    }
}

}  // namespace

GLStateGuard::GLStateGuard(const GLFeatures& features) : features_(features) {
    pauseTransformFeedback();
    captureBindings();
    for (GLuint unit = kUnits; unit-- > 0;) {
        captureUnit(unit);
    }
    if (features_.externalTextures) {
        external_ = Get(GL_TEXTURE_BINDING_EXTERNAL_OES);
    }
    GLES3::glGetIntegerv(GL_VIEWPORT, viewport_);
    GLES3::glGetBooleanv(GL_COLOR_WRITEMASK, colorMask_);
    blend_ = GLES3::glIsEnabled(GL_BLEND) != GL_FALSE;
    for (size_t i = 0; i < std::size(kSwitches); ++i) {
        switches_[i] = GLES3::glIsEnabled(kSwitches[i]) != GL_FALSE;
    }
    for (size_t i = 0; i < std::size(kUnpackStores); ++i) {
        unpackStores_[i] = Get(kUnpackStores[i]);
    }
}

/// GL refuses another program while transform feedback runs.
void GLStateGuard::pauseTransformFeedback() {
    feedbackPaused_ =
        Get(GL_TRANSFORM_FEEDBACK_ACTIVE) != 0 && Get(GL_TRANSFORM_FEEDBACK_PAUSED) == 0;
    if (feedbackPaused_) {
        GLES3::glPauseTransformFeedback();
    }
}

void GLStateGuard::captureBindings() {
    program_ = Get(GL_CURRENT_PROGRAM);
    vertexArray_ = Get(GL_VERTEX_ARRAY_BINDING);
    arrayBuffer_ = Get(GL_ARRAY_BUFFER_BINDING);
    drawFramebuffer_ = Get(GL_DRAW_FRAMEBUFFER_BINDING);
    readFramebuffer_ = Get(GL_READ_FRAMEBUFFER_BINDING);
    unpackBuffer_ = Get(GL_PIXEL_UNPACK_BUFFER_BINDING);
    activeUnit_ = Get(GL_ACTIVE_TEXTURE);
}

void GLStateGuard::captureUnit(GLuint unit) {
    GLES3::glActiveTexture(GL_TEXTURE0 + unit);
    units_[unit] = {Get(GL_TEXTURE_BINDING_2D), Get(GL_SAMPLER_BINDING)};
}

GLStateGuard::~GLStateGuard() {
    for (GLuint unit = kUnits; unit-- > 0;) {
        restoreUnit(unit);
    }
    if (features_.externalTextures) {
        GLES3::glBindTexture(GL_TEXTURE_EXTERNAL_OES, Name(external_));
    }
    GLES3::glActiveTexture(static_cast<GLenum>(activeUnit_));
    restoreDrawing();
    restoreUnpacking();
    if (feedbackPaused_) {
        GLES3::glResumeTransformFeedback();
    }
}

void GLStateGuard::restoreUnit(GLuint unit) const {
    GLES3::glActiveTexture(GL_TEXTURE0 + unit);
    GLES3::glBindTexture(GL_TEXTURE_2D, Name(units_[unit].texture2D));
    GLES3::glBindSampler(unit, Name(units_[unit].sampler));
}

void GLStateGuard::restoreDrawing() const {
    GLES3::glUseProgram(Name(program_));
    GLES3::glBindVertexArray(Name(vertexArray_));
    GLES3::glBindBuffer(GL_ARRAY_BUFFER, Name(arrayBuffer_));
    GLES3::glBindFramebuffer(GL_DRAW_FRAMEBUFFER, Name(drawFramebuffer_));
    GLES3::glBindFramebuffer(GL_READ_FRAMEBUFFER, Name(readFramebuffer_));
    GLES3::glViewport(viewport_[0], viewport_[1], viewport_[2], viewport_[3]);
    SetColorMask(features_, colorMask_);
    SetBlending(features_, blend_);
    for (size_t i = 0; i < std::size(kSwitches); ++i) {
        Switch(kSwitches[i], switches_[i]);
    }
}

void GLStateGuard::restoreUnpacking() const {
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, Name(unpackBuffer_));
    for (size_t i = 0; i < std::size(kUnpackStores); ++i) {
        GLES3::glPixelStorei(kUnpackStores[i], unpackStores_[i]);
    }
}

void SetDrawState(const GLFeatures& features) {
    static constexpr GLboolean kAllChannels[4] = {GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE};
    SetBlending(features, false);
    SetColorMask(features, kAllChannels);
    GLES3::glDisable(GL_SCISSOR_TEST);
    GLES3::glDisable(GL_CULL_FACE);
    GLES3::glDisable(GL_RASTERIZER_DISCARD);
    GLES3::glBindSampler(0, 0);
    GLES3::glBindSampler(1, 0);
    GLES3::glActiveTexture(GL_TEXTURE0);
}

void UnbindAll(const GLFeatures& features) {
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, 0);
    GLES3::glUseProgram(0);
    GLES3::glBindVertexArray(0);
    GLES3::glBindBuffer(GL_ARRAY_BUFFER, 0);
    GLES3::glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    GLES3::glActiveTexture(GL_TEXTURE1);
    GLES3::glBindTexture(GL_TEXTURE_2D, 0);
    GLES3::glActiveTexture(GL_TEXTURE0);
    GLES3::glBindTexture(GL_TEXTURE_2D, 0);
    if (features.externalTextures) {
        GLES3::glBindTexture(GL_TEXTURE_EXTERNAL_OES, 0);
    }
}
