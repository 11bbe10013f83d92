#pragma once

#include <cstdint>

/// A framebuffer object with one colour attachment of the caller's. Not exported.
///
/// \thread the GL thread.
struct GLFbo {
    /// Gives \p texture new storage of this record's size and format, its old contents lost, and
    /// attaches it. Leaves unit 0 active, texture 0 on unit 1 and framebuffer 0 bound.
    void bindTexture(uint32_t texture) const;

    uint32_t m_extraFbo = 0;  ///< Always 0. Frozen: extra framebuffer
    uint32_t m_fbo = 0;
    uint32_t m_width = 0;
    uint32_t m_height = 0;
    uint32_t m_format = 0;  ///< GL_RGB or GL_RGBA, as internal and data format.
};
