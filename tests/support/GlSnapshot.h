#pragma once

#include <GLES3/gl3.h>

#include <map>
#include <set>
#include <string>
#include <vector>

/// Names of state, such as "GL_BLEND", or "GL_TEXTURE_BINDING_2D 5" for that of texture unit 5.
using StateNames = std::set<std::string>;

/// The state of the current context, as far as drawing could change it.
class GlSnapshot {
public:
    GlSnapshot();

    StateNames ChangedSince(const GlSnapshot& earlier) const;

private:
    void ReadUnits();

    std::map<std::string, std::vector<GLint>> values_;
};

/// State that would ruin every picture that it reached. Its objects live as long as the context.
class HostileState {
public:
    HostileState();

    /// Unit 5 is the active one.
    void Set() const;
    /// As \ref Set, with state that would ruin every upload that it reached.
    void SetUnpacking() const;

    GLuint Texture() const { return texture_; }

private:
    GLuint texture_ = 0;
    GLuint buffer_ = 0;
    GLuint framebuffer_ = 0;
    GLuint vertexArray_ = 0;
    GLuint program_ = 0;
};

/// What \p call changes of the current state. It must not leave a GL error.
template <typename Function>
StateNames ChangedBy(Function call) {
    const GlSnapshot before;
    call();
    StateNames changed = GlSnapshot().ChangedSince(before);
    if (glGetError() != GL_NO_ERROR) {
        changed.insert("glGetError");
    }
    return changed;
}

/// What every draw changes of the hostile state, and \p more.
StateNames ChangedByDraw(StateNames more);
