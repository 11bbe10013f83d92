#pragma once

#include <GLES3/gl32.h>

#include <vector>

/// State that would ruin every picture that it reached. Its objects live as long as the context.
class HostileState {
public:
    /// With seed 0 all of it is at its worst, and unit 5 is active. Other seeds choose at random.
    explicit HostileState(unsigned seed = 0);

    void Set() const;
    /// As \ref Set, with state that would ruin every upload that it reached.
    void SetUnpacking() const;
    void BindUnpackBuffer() const { glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer_); }

    GLuint Texture() const { return textures_[1]; }

private:
    unsigned seed_;
    std::vector<GLuint> textures_ = {0, 0, 0};
    GLuint buffer_ = 0;
    GLuint framebuffers_[2] = {};
    GLuint vertexArray_ = 0;
    GLuint sampler_ = 0;
    GLuint program_ = 0;
};
