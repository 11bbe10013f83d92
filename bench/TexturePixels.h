#pragma once

#include <GLES3/gl3.h>

#include <vector>

/// \return the texture's RGBA pixels, in its rows' order. Leaves framebuffer 0 bound.
std::vector<unsigned char> ReadTexture(GLuint texture, int width, int height);
