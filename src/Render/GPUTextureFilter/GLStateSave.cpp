#include "render/GPUTextureFilter/GLStateSave.h"

#include "gl/GLES3.h"

namespace {

void SetEnabled(GLenum capability, int32_t enabled) {
    if (enabled != 0) {
        GLES3::glEnable(capability);
    } else {
        GLES3::glDisable(capability);
    }
}

GLenum AsEnum(int32_t value) {
    return static_cast<GLenum>(value);
}

}  // namespace

GLStateSave::GLStateSave() {
    GLES3::glGetIntegerv(GL_BLEND, &m_blendEnabled);
    GLES3::glGetIntegerv(GL_BLEND_DST_ALPHA, &m_blendDstAlpha);
    GLES3::glGetIntegerv(GL_BLEND_DST_RGB, &m_blendDstRgb);
    GLES3::glGetIntegerv(GL_BLEND_EQUATION_ALPHA, &m_blendEquationAlpha);
    GLES3::glGetIntegerv(GL_BLEND_EQUATION_RGB, &m_blendEquationRgb);
    GLES3::glGetIntegerv(GL_BLEND_SRC_ALPHA, &m_blendSrcAlpha);
    GLES3::glGetIntegerv(GL_BLEND_SRC_RGB, &m_blendSrcRgb);
    GLES3::glGetIntegerv(GL_ARRAY_BUFFER_BINDING, &m_arrayBuffer);
    GLES3::glGetIntegerv(GL_SCISSOR_TEST, &m_scissorEnabled);
    GLES3::glGetIntegerv(GL_SCISSOR_BOX, m_scissorBox);
    GLES3::glGetIntegerv(GL_DEPTH_TEST, &m_depthEnabled);
    GLES3::glGetIntegerv(GL_DEPTH_FUNC, &m_depthFunc);
    GLES3::glGetIntegerv(GL_DEPTH_WRITEMASK, &m_depthMask);
    GLES3::glGetIntegerv(GL_CULL_FACE, &m_cullEnabled);
}

GLStateSave::~GLStateSave() {
    GLES3::glBlendEquationSeparate(AsEnum(m_blendEquationRgb), AsEnum(m_blendEquationAlpha));
    GLES3::glBlendFuncSeparate(AsEnum(m_blendSrcRgb), AsEnum(m_blendDstRgb),
                               AsEnum(m_blendSrcAlpha), AsEnum(m_blendDstAlpha));
    SetEnabled(GL_BLEND, m_blendEnabled);
    GLES3::glBindBuffer(GL_ARRAY_BUFFER, static_cast<GLuint>(m_arrayBuffer));
    GLES3::glBindVertexArrayOES(0);  // Frozen: saved state
    SetEnabled(GL_SCISSOR_TEST, m_scissorEnabled);
    GLES3::glScissor(m_scissorBox[0], m_scissorBox[1], m_scissorBox[2], m_scissorBox[3]);
    SetEnabled(GL_DEPTH_TEST, m_depthEnabled);
    GLES3::glDepthFunc(AsEnum(m_depthFunc));
    GLES3::glDepthMask(m_depthMask != 0 ? GL_TRUE : GL_FALSE);
    SetEnabled(GL_CULL_FACE, m_cullEnabled);
}
