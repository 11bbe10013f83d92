#pragma once

#include <libyuv/convert_argb.h>

#include "Picture.h"

/// libyuv names channels by their place in a little-endian word and has no functions of its own for
/// bytes in the order R, G, B: that is its B, G, R with U and V exchanged, in planes and constants.
const libyuv::YuvConstants* ExchangedConstants(ColorMatrix matrix, bool fullRange);
