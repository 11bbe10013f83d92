#pragma once

#include "window/FillProgram.h"
#include "window/Layout.h"

/// Shows a texture in the window: its picture over a checkerboard, so that its alpha is seen, and
/// dark bars beside it.
class PresentPass {
public:
    PresentPass();

    /// Draws into the default framebuffer. The first row of \p texture is the top.
    void Draw(GLuint texture, const Layout& layout) const;

private:
    FillProgram program_;
    GLint area_;
    GLint drawableHeight_;
};
