#include "GuardedRenderer.h"

#include <optional>

#include "DecoderSource.h"
#include "Failure.h"
#include "GLCheck.h"
#include "GLErrors.h"
#include "GLStateGuard.h"
#include "GuardedDraw.h"

namespace {

constexpr int kDone = 0;
constexpr int kFailed = -1;
constexpr int64_t kUnitWaitUs = 2000;

/// What the functions of VERenderer.h would call it.
VERendererMode ModeOf(const VERendererOptions& options) {
    return {options.maskFormat != 0 ? VE_OUTPUT_MASKED : VE_OUTPUT_PICTURE,
            options.source,
            options.outputWidth,
            options.outputHeight,
            options.maskFormat,
            options.maskWidth,
            options.maskHeight};
}

std::unique_ptr<GuardedDraw> MakeDraw(const VERendererOptions& options) {
    RequireGLFor(options.source);
    const GLFeatures features;
    const int32_t most = features.maxTextureSize;
    for (const int32_t size : {options.sourceWidth, options.sourceHeight, options.outputWidth,
                               options.outputHeight, options.maskWidth, options.maskHeight}) {
        Require(size <= most, VE_ERROR_PICTURE_SIZE);
    }
    const GLStateGuard guard(features);
    SetDrawState(features);
    ClearGLErrors();
    return std::make_unique<GuardedDraw>(features, options);
}

}  // namespace

GuardedRenderer::GuardedRenderer(const VERendererOptions& options)
    : GuardedRenderer(options, ModeOf(options)) {}

GuardedRenderer::GuardedRenderer(const VERendererOptions& options, VERendererMode mode)
    : VERendererBase(static_cast<int>(options.outputTexture), options.outputFormat, &mode),
      draw_(MakeDraw(options)) {}

GuardedRenderer::~GuardedRenderer() = default;

VEDrawn GuardedRenderer::draw(const VEDrawOptions& options) {
    Require(draw_ != nullptr, VE_ERROR_HANDLE);
    const VEDrawn drawn = draw_->draw(options);
    if (drawn.newPicture) {
        ++picturesShown_;
    }
    return drawn;
}

DecoderSource& GuardedRenderer::decoder() const {
    DecoderSource* decoder = draw_ != nullptr ? draw_->source().decoder() : nullptr;
    Require(decoder != nullptr, VE_ERROR_UNSUPPORTED);
    return *decoder;
}

void GuardedRenderer::decoderState(VEDecoderState& state) const {
    decoder().state(state);
    state.picturesShown = picturesShown_;
}

VEResult GuardedRenderer::close(VEContext context) {
    if (draw_ == nullptr) {
        return VE_OK;
    }
    const GLFeatures features = draw_->features();
    std::optional<GLStateGuard> guard;
    if (context == VE_CONTEXT_CURRENT) {
        guard.emplace(features);
    }
    const VEResult result = draw_->close(context);
    draw_.reset();
    return result;
}

int GuardedRenderer::Update(void* data, unsigned int /*size*/, bool colorMirror, void* maskData,
                            int stickerTexture, VEStickerList& stickers) {
    static_assert(sizeof(VEStickerList::value_type) == 2 * sizeof(int32_t), "pairs are dense");
    VEDrawOptions options = VEMakeDrawOptions();
    options.frame = draw_->source().takesFrames() ? data : nullptr;
    options.mask = outputMode == VE_OUTPUT_MASKED ? maskData : nullptr;
    options.mirror = !colorMirror;
    options.view = &view_;
    if (stickerTexture > 0 && !stickers.empty()) {
        options.stickerTexture = static_cast<uint32_t>(stickerTexture);
        options.stickers = &stickers.front().first;
        options.stickerCount = stickers.size();
    }
    try {
        draw(options);
        return kDone;
    } catch (...) {  // The callers are C: memory that runs out ends here, too.
        return kFailed;
    }
}

void GuardedRenderer::Destroy() {
    close(VE_CONTEXT_CURRENT);
}

int GuardedRenderer::UpdateCompressedData(void* data, int size) {
    DecoderSource* decoder = draw_->source().decoder();
    if (decoder != nullptr && data != nullptr && size > 0) {
        decoder->queue({sizeof(VEUnit), data, static_cast<size_t>(size), 0, kUnitWaitUs, 0});
    }
    return kDone;
}

int GuardedRenderer::UpdateUserPosition(float a, float /*b*/, float c, float /*d*/) {
    view_ = {a, 0, c};
    return kDone;
}
