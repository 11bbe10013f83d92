#pragma once

#include "support/Image.h"
#include "support/Libav.h"

/// How stored pictures become upright ones with square pixels.
struct PictureShape {
    /// \p stored with square pixels, not yet turned. Pixels are added, never left out.
    Size Square(Size stored) const;
    /// The size of the upright picture.
    Size Upright(Size stored) const { return Turned(Square(stored)); }
    /// \p size with its sides swapped if the picture lies on its side.
    Size Turned(Size size) const;

    /// Takes flip and rotation from a display matrix, to the nearest quarter turn.
    void TurnBy(const int32_t* matrix);

    AVRational pixelAspect = {1, 1};
    bool flip = false;  ///< Upside down, before it is turned.
    int rotation = 0;   ///< Clockwise: 0, 90, 180 or 270 degrees.
};
