#include "ColorConstants.h"

#include <libyuv/row.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

/// libyuv cuts the blue that comes from U to twice U, which is up to 13 levels short of what
/// limited range needs. Its code for x86 takes the true factor as well.
libyuv::YuvConstants WithFullBlue(libyuv::YuvConstants constants, [[maybe_unused]] double factor) {
#if defined(__x86_64__) || defined(__i386__)
    constexpr int kUnit = 64;
    constexpr uint8_t kCut = 2 * kUnit;
    const auto exact = static_cast<uint8_t>(std::lround(factor * kUnit));
    // Blue is where red was before the exchange.
    std::replace(std::begin(constants.kUVToR), std::end(constants.kUVToR), kCut, exact);
#endif
    return constants;
}

// The vector code wants them aligned.
alignas(32) const libyuv::YuvConstants kBt601 = WithFullBlue(libyuv::kYvuI601Constants, 2.018);
alignas(32) const libyuv::YuvConstants kBt709 = WithFullBlue(libyuv::kYvuH709Constants, 2.112);
alignas(32) const libyuv::YuvConstants kBt2020 = WithFullBlue(libyuv::kYvu2020Constants, 2.142);

}  // namespace

const libyuv::YuvConstants* ExchangedConstants(ColorMatrix matrix, bool fullRange) {
    switch (matrix) {
        case ColorMatrix::kBt709: return fullRange ? &libyuv::kYvuF709Constants : &kBt709;
        case ColorMatrix::kBt2020: return fullRange ? &libyuv::kYvuV2020Constants : &kBt2020;
        default: return fullRange ? &libyuv::kYvuJPEGConstants : &kBt601;
    }
}
