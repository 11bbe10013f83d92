#pragma once

#include <cstdint>

#include "gl/GLES3.h"
#include "kernel/String.h"

namespace OVR {

/// The text of one stage: a version line, the directives, the multiview switch, the prefix of the
/// stage, and the source without its version line.
///
/// \param directives lines such as #extension, each with its newline; may be null.
String AssembleShader(GLenum type, const char* directives, const char* source, int version,
                      bool useMultiview);

/// \return the shader's name, or 0 if it does not compile. Nothing is logged.
uint32_t CompileShader(GLenum type, const String& text);

/// \return whether \p status of a shader or program is true. If not, fetches the info log, for
/// recorders in the GL table: the kernel does not log failures.
bool Succeeded(GLuint name, GLenum status, PFNGLGETSHADERIVPROC getParameter,
               PFNGLGETSHADERINFOLOGPROC getInfoLog);

}  // namespace OVR
