#pragma once

#include <cstdint>

#include "gl/GLES3.h"

namespace OVR {

/// Compiles one stage. The text is a version line, the directives, the multiview switch, the prefix
/// of the stage, and the source without its version line.
///
/// \param directives lines such as #extension, each with its newline; may be null.
/// \return the shader's name, or 0 if it does not compile. Nothing is logged.
uint32_t CompileShader(GLenum type, const char* directives, const char* source, int version,
                       bool useMultiview);

}  // namespace OVR
