#pragma once

#include <cstdint>

/// Loads the GL entries and throws Failure unless the current context can draw pictures of
/// \p source, a VE_SOURCE_… value.
void RequireGLFor(int32_t source);
