#pragma once

#include <cstdint>

#include "gl/GLES3.h"

namespace OVR {

/// Compiles one stage behind the builder's own version line, the directives, the multiview switch
/// and the stage's prefix. A version line of the source's own is dropped.
///
/// \param directives extension lines and the like, each with its newline; may be null.
/// \return the shader's name, or 0 when it does not compile. Nothing is logged.
uint32_t CompileShader(GLenum type, const char* directives, const char* source, int version,
                       bool useMultiview);

}  // namespace OVR
