#include "Sources.h"

#include "Failure.h"
#include "PicturePlace.h"
#include "gl/GLES3.h"

namespace {

void RequireNoTexture(const VEDrawOptions& options) {
    Require(options.sourceTexture == 0 && options.sourceMatrix == nullptr, VE_ERROR_UNSUPPORTED);
}

}  // namespace

FrameSource::FrameSource(GLNames& names, const PixelLayout& layout, bool delayed, bool once,
                         bool fits)
    : pixels_(names, layout, delayed), once_(once) {
    if (fits) {
        framebuffer_ = names.makeFramebuffer();
        GLES3::glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer_);
        GLES3::glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                                      pixels_.name(), 0);
    }
}

void FrameSource::stage(const VEDrawOptions& options) {
    RequireNoTexture(options);
    pixels_.stage(options.frame);
}

bool FrameSource::take(const VEDrawOptions& options, Picture& picture) {
    const bool isNew = pixels_.commit(options.frame);
    picture = {pixels_.name(), framebuffer_, IdentityPlace(), isNew, VE_NO_TIME};
    return once_ ? isNew : pixels_.filled();
}

bool FrameSource::upload(const VEDrawOptions& options, uint32_t output) {
    const bool can = once_ && framebuffer_ != 0 && options.frame != nullptr;
    if (can) {
        pixels_.uploadTo(output, options.frame);
    }
    return can;
}

void TextureSource::stage(const VEDrawOptions& options) {
    Require(options.frame == nullptr, VE_ERROR_UNSUPPORTED);
}

bool TextureSource::take(const VEDrawOptions& options, Picture& picture) {
    picture = {options.sourceTexture, 0, SourcePlace(options.sourceMatrix), true, VE_NO_TIME};
    return options.sourceTexture != 0;
}

DecodedSource::DecodedSource(GLNames& names, DecoderSettings settings)
    : texture_(names.makeTexture()) {
    GLES3::glBindTexture(GL_TEXTURE_EXTERNAL_OES, texture_);
    GLES3::glTexParameteri(GL_TEXTURE_EXTERNAL_OES, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    GLES3::glTexParameteri(GL_TEXTURE_EXTERNAL_OES, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    GLES3::glTexParameteri(GL_TEXTURE_EXTERNAL_OES, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    GLES3::glTexParameteri(GL_TEXTURE_EXTERNAL_OES, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    settings.externalTexture = texture_;
    const VEResult result = OpenDecoder(settings, decoder_);
    Require(result == VE_OK, result);
}

DecodedSource::~DecodedSource() {
    if (decoder_ != nullptr) {
        decoder_->close(false);
    }
}

void DecodedSource::stage(const VEDrawOptions& options) {
    RequireNoTexture(options);
    Require(options.frame == nullptr, VE_ERROR_UNSUPPORTED);
    latched_.isNew = false;
    const VEResult result = decoder_->latch(latched_);
    Require(result == VE_OK, result);
    hasPicture_ = (hasPicture_ || latched_.isNew) && !latched_.isOutdated;
    hasNewPicture_ = (hasNewPicture_ || latched_.isNew) && hasPicture_;
}

bool DecodedSource::take(const VEDrawOptions& /*options*/, Picture& picture) {
    picture = {texture_, 0, SourcePlace(latched_.matrix), hasNewPicture_, latched_.ptsUs};
    hasNewPicture_ = false;
    return hasPicture_;
}

VEResult DecodedSource::close(VEContext context) {
    const VEResult result = decoder_->close(context == VE_CONTEXT_LOST);
    decoder_.reset();
    return result;
}
