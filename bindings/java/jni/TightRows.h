#pragma once

#include <GLES3/gl3.h>

/// Rows of pixels are tight, whatever the application's unpack alignment; that comes back at the
/// end.
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
