#pragma once

#include <vector>

#include "support/Image.h"
#include "support/Libav.h"

/// What the renderer draws of a decoded frame in output mode 0, computed on the CPU: the colors
/// of libswscale, the view's crop by 1.15, smooth sampling.
class PlainModel {
public:
    /// \param size of the output
    explicit PlainModel(Size size) : size_(size) {}

    /// \return decibels, over all colors of every second row
    double Psnr(const AVFrame& frame, const Image& drawn) const;

private:
    /// The position of an output pixel's center between two texels.
    struct Place {
        int texel;
        float weight;  ///< Of the next texel.
    };

    static std::vector<Place> Places(int outputSize, int sourceSize);

    Size size_;
};
