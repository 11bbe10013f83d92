#include "Mask.h"

#include "Failure.h"

Mask::Mask(GLNames& names, const PixelLayout* layout, bool delayed) {
    if (layout != nullptr) {
        pixels_.emplace(names, *layout, delayed);
    }
}

void Mask::stage(const VEDrawOptions& options) {
    Require(options.mask == nullptr || options.maskTexture == 0, VE_ERROR_ARGUMENT);
    Require(options.mask == nullptr || pixels_, VE_ERROR_UNSUPPORTED);
    if (pixels_) {
        pixels_->stage(options.mask);
    }
}

void Mask::take(const VEDrawOptions& options) {
    if (pixels_ && pixels_->commit(options.mask)) {
        texture_ = pixels_->name();
    }
    if (options.maskTexture != 0) {
        texture_ = options.maskTexture;
    }
}
