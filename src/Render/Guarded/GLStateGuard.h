#pragma once

#include "GLFeatures.h"

/// Captures all GL state that the guarded renderer changes, and puts it back when destroyed. Pauses
/// transform feedback meanwhile.
///
/// Not touched, since the output has neither depth nor stencil, and meshes have a vertex array and
/// no indices: depth and stencil state, vertex array 0 and the caller's, index buffers and
/// primitive restart, all units from 2 on.
///
/// \thread the GL thread.
class GLStateGuard {
public:
    explicit GLStateGuard(const GLFeatures& features);
    ~GLStateGuard();
    GLStateGuard(const GLStateGuard&) = delete;
    GLStateGuard& operator=(const GLStateGuard&) = delete;

private:
    struct TextureUnit {
        GLint texture2D;
        GLint sampler;
    };

    void pauseTransformFeedback();
    void captureBindings();
    void captureUnit(GLuint unit);
    void restoreUnit(GLuint unit) const;
    void restoreDrawing() const;
    void restoreUnpacking() const;

    static constexpr GLuint kUnits = 2;
    static constexpr GLenum kSwitches[] = {GL_SCISSOR_TEST, GL_CULL_FACE, GL_RASTERIZER_DISCARD};
    static constexpr GLenum kUnpackStores[] = {GL_UNPACK_ALIGNMENT, GL_UNPACK_ROW_LENGTH,
                                               GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS};

    const GLFeatures& features_;
    bool feedbackPaused_ = false;
    GLint program_ = 0;
    GLint vertexArray_ = 0;
    GLint arrayBuffer_ = 0;
    GLint drawFramebuffer_ = 0;
    GLint readFramebuffer_ = 0;
    GLint unpackBuffer_ = 0;
    GLint activeUnit_ = 0;
    GLint external_ = 0;
    TextureUnit units_[kUnits] = {};
    GLint viewport_[4] = {};
    GLboolean colorMask_[4] = {};
    bool blend_ = false;
    bool switches_[3] = {};
    GLint unpackStores_[4] = {};
};

/// Sets what a draw needs, whatever the caller has set, and leaves unit 0 active.
void SetDrawState(const GLFeatures& features);

/// Unbinds what a draw binds.
void UnbindAll(const GLFeatures& features);
