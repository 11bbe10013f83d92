#pragma once

#include <vector>

/// Another renderer that brings a raw frame to a texture: nearest texels, enlarged about the
/// center.
class Peer {
public:
    Peer() = default;
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    virtual ~Peer() = default;

    /// Draws \p pixels and waits until GL has done so.
    virtual void draw(const void* pixels) = 0;
    /// \return the RGBA pixels drawn last, in the frame's rows' order.
    virtual std::vector<unsigned char> picture() = 0;
};
