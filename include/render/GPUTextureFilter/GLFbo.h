#pragma once

#include <cstdint>

/// A framebuffer object with one color attachment, which belongs to the caller. Not exported.
///
/// \thread the GL thread.
struct GLFbo {
    /// Allocates \p texture with this record's size and format, which discards its contents, and
    /// attaches it. Then unit 0 is active, unit 1 has texture 0, and framebuffer 0 is bound.
    void bindTexture(uint32_t texture) const;

    uint32_t m_extraFbo = 0;  ///< Always 0. Frozen: extra framebuffer
    uint32_t m_fbo = 0;
    uint32_t m_width = 0;
    uint32_t m_height = 0;
    uint32_t m_format = 0;  ///< GL_RGB or GL_RGBA: internal format and data format.
};
