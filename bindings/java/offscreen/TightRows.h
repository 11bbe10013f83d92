#pragma once

#include <GLES3/gl3.h>

/// Sets the unpack alignment to 1 while it lives, and restores the application's.
class TightRows {
public:
    TightRows() {
        glGetIntegerv(GL_UNPACK_ALIGNMENT, &alignment_);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    }
    ~TightRows() { glPixelStorei(GL_UNPACK_ALIGNMENT, alignment_); }
    TightRows(const TightRows&) = delete;
    TightRows& operator=(const TightRows&) = delete;

private:
    GLint alignment_ = 0;
};
