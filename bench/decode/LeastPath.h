#pragma once

#include <vector>

#include "ClipDecoder.h"
#include "render/BareObjects.h"

/// The least code that draws the pictures of a clip: libavcodec, libyuv, one upload, one draw. It
/// saves, restores and checks no state, and no thread waits for another.
///
/// Its GL objects live as long as their context.
class LeastPath {
public:
    LeastPath(const Clip& clip, ShaderKind kind);

    /// Shows the next \p count pictures, each followed by glFinish.
    void play(int count);
    /// Only decodes and converts them.
    void prepare(int count);

    GLuint target() const { return target_; }

private:
    void convert(const AVFrame& frame);
    void draw() const;

    const Clip& clip_;
    ClipDecoder decoder_;
    std::vector<unsigned char> pixels_;
    GLuint source_;
    GLuint target_;
    GLuint program_;
    GLuint picture_;  ///< A vertex array.
    GLuint framebuffer_ = 0;
};
