#pragma once

/// The vertex shader of all filter programs.
extern const char kFilterVertexShader[];

/// The fragment shader for a source: an external or an ordinary 2D texture, keyed by a mask or not.
const char* FilterFragmentShader(bool sourceIsExternal, bool masked);
