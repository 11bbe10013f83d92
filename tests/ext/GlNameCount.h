#pragma once

#include <GLES3/gl3.h>

/// How many GL objects of all kinds the current context holds, as far as their names are small.
inline int CountGlNames() {
    int count = 0;
    for (GLuint name = 1; name < 300; ++name) {
        for (const auto& is : {glIsTexture, glIsBuffer, glIsVertexArray, glIsFramebuffer,
                               glIsProgram, glIsShader, glIsSampler, glIsRenderbuffer}) {
            count += is(name) != GL_FALSE ? 1 : 0;
        }
    }
    return count;
}
