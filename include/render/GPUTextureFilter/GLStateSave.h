#pragma once

#include <cstdint>

/// Saves GL state in its constructor and restores it in its destructor: blending, scissor, depth
/// and culling state and the GL_ARRAY_BUFFER binding. The destructor sets the vertex array to 0.
/// Not exported.
///
/// \thread the GL thread, with the same context current at construction and destruction.
class GLStateSave {
public:
    GLStateSave();
    ~GLStateSave();
    GLStateSave(const GLStateSave&) = delete;
    GLStateSave& operator=(const GLStateSave&) = delete;

private:
    int32_t m_blendEnabled = 0;
    int32_t m_blendDstAlpha = 0;
    int32_t m_blendDstRgb = 0;
    int32_t m_blendEquationAlpha = 0;
    int32_t m_blendEquationRgb = 0;
    int32_t m_blendSrcAlpha = 0;
    int32_t m_blendSrcRgb = 0;
    int32_t m_arrayBuffer = 0;
    int32_t m_scissorEnabled = 0;
    int32_t m_scissorBox[4] = {};  ///< x, y, width, height
    int32_t m_depthEnabled = 0;
    int32_t m_depthFunc = 0;
    int32_t m_depthMask = 0;
    int32_t m_cullEnabled = 0;
};
