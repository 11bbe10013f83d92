#pragma once

#include <GLES3/gl3.h>

#include <map>
#include <set>
#include <string>
#include <vector>

/// The context's state, as far as drawing could change it.
class GlSnapshot {
public:
    /// Of the current context, whose state it leaves.
    GlSnapshot();

    /// Names of what has another value, such as "GL_BLEND", or "GL_TEXTURE_BINDING_2D 5" for that
    /// of texture unit 5.
    std::set<std::string> ChangedSince(const GlSnapshot& earlier) const;

private:
    void ReadUnits();

    std::map<std::string, std::vector<GLint>> values_;
};
