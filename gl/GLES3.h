#pragma once

/// \file
/// The process-wide table of GL ES 2.0 and 3.0 entry points, plus glBindVertexArrayOES.
///
/// Every GL call of the library goes through this table: the library imports no GL function, and a
/// tool can record calls by assigning other functions to the pointers. Each pointer has the name
/// and the prototype of its GL function: GLES3::glDrawElements(...).

#include <GLES3/gl3.h>

// Behind gl3.h, whose types it needs.
#include <GLES2/gl2ext.h>

#define GLES3_EXPORT __attribute__((visibility("default")))

namespace GLES3 {

#define GLES3_ENTRY(type, name) GLES3_EXPORT extern type name;
#include "gl/GLES3Entries.inc"

/// Fills the table at the first call in the process. Later calls only return the result again.
///
/// The first missing entry ends the load: it and all later ones stay null, and those before it stay
/// usable.
///
/// \thread any; calls during the load wait for it. A GL context must be current if the platform's
///         eglGetProcAddress needs one.
/// \return true if every entry was found.
GLES3_EXPORT bool LoadGLFunctions();

}  // namespace GLES3
