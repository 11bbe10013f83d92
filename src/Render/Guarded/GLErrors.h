#pragma once

#include "Failure.h"
#include "gl/GLES3.h"

/// Empties the error flags. A lost context reports an error without end.
inline void ClearGLErrors() {
    for (int flag = 0; flag < 16 && GLES3::glGetError() != GL_NO_ERROR; ++flag) {
    }
}

/// Throws what GL recorded since the flags were cleared.
inline void RequireNoGLError() {
    const GLenum error = GLES3::glGetError();
    Require(error != GL_OUT_OF_MEMORY, VE_ERROR_MEMORY);
    Require(error == GL_NO_ERROR, VE_ERROR_GL);
}
