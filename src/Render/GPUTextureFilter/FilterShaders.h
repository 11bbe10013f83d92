#pragma once

/// The vertex shader of all filter programs.
extern const char kFilterVertexShader[];

/// The fragment shader for an external or a 2D source texture, with or without a mask.
const char* FilterFragmentShader(bool sourceIsExternal, bool masked);
