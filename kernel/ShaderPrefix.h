#pragma once

namespace OVR {

/// What the program builder puts in front of every vertex and fragment source, behind the version
/// line and the directives.
extern const char kVertexPrefix[];
extern const char kFragmentPrefix[];

}  // namespace OVR
