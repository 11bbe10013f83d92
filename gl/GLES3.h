#pragma once

/// \file
/// The process-wide table of GL ES 2.0 and 3.0 entry points, plus glBindVertexArrayOES.
///
/// Every GL call of the library goes through this table, so no GL function is imported at link
/// time and a tool may put a recorder of its own in front of any entry by assigning its pointer.
/// Each pointer carries the name and the prototype of its GL function: GLES3::glDrawElements(...).

#ifndef GL_GLEXT_PROTOTYPES
#define GL_GLEXT_PROTOTYPES 1
#endif
// gl3.h comes first: gl2ext.h then builds on its types and declares the extension entry.
#include <GLES3/gl3.h>

#include <GLES2/gl2ext.h>

#define GLES3_EXPORT __attribute__((visibility("default")))

namespace GLES3 {

#define GLES3_ENTRY(name) GLES3_EXPORT extern decltype(&::name) name;
#include "gl/GLES3Entries.inc"

/// Fills the table, the first time it is called in the process.
///
/// Entries are resolved in the table's order and the first that is missing ends the load: those
/// before it stay usable, it and all later ones stay null. There is no second attempt.
///
/// \thread any; concurrent first callers wait for the one that loads. A GL context need only be
///         current where the platform's eglGetProcAddress needs one.
/// \return true when every entry was found.
GLES3_EXPORT bool LoadGLFunctions();

}  // namespace GLES3
