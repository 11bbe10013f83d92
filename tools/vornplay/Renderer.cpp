#include "Renderer.h"

#include <algorithm>
#include <utility>

#include "support/ToolError.h"

Renderer::Renderer(RendererSettings settings) : settings_(std::move(settings)) {
    CheckSizes();
    constexpr float kFull = 255.0F;
    const auto [red, green, blue, alpha] = settings_.clear;
    glClearColor(static_cast<float>(red) / kFull, static_cast<float>(green) / kFull,
                 static_cast<float>(blue) / kFull, static_cast<float>(alpha) / kFull);
    if (settings_.sticker.has_value()) {
        LoadSticker(sticker_.emplace(), *settings_.sticker);
    }
    Create();
}

void Renderer::CheckSizes() const {
    CheckTextureSize("a frame", settings_.size);
    CheckTextureSize("a mask", settings_.maskSize);
    if (settings_.sticker.has_value()) {
        CheckTextureSize("a sticker", settings_.sticker->size);
    }
}

void Renderer::Create() {
    VERendererOptions options = VEMakeRendererOptions();
    options.source = settings_.source;
    options.sourceWidth = settings_.sourceSize.width;
    options.sourceHeight = settings_.sourceSize.height;
    options.outputWidth = settings_.size.width;
    options.outputHeight = settings_.size.height;
    options.outputTexture = texture_.Name();
    if (settings_.maskSize.width > 0) {
        options.maskFormat = settings_.rgbMask ? VE_MASK_RGB : VE_MASK_RGBA;
        options.maskWidth = settings_.maskSize.width;
        options.maskHeight = settings_.maskSize.height;
    }
    options.javaVM = settings_.javaVM;
    VERenderer* handle = nullptr;
    const VEResult result = VECreateRenderer(&options, &handle);
    if (result != VE_OK) {
        Fail(result);
    }
    handle_.reset(handle);
}

VEDecoderState Renderer::DecoderState() const {
    VEDecoderState state = VEMakeDecoderState();
    VEGetDecoderState(handle_.get(), &state);
    return state;
}

VEDrawOptions Renderer::DrawOptions(const Shot& shot) const {
    VEDrawOptions options = VEMakeDrawOptions();
    options.rotation = settings_.shape.rotation;
    options.mirror = shot.mirror;
    options.hideMask = shot.hidesMask;
    options.view = &shot.view;
    if (sticker_.has_value() && !shot.stickers.empty()) {
        static_assert(sizeof(shot.stickers.front()) == 2 * sizeof(int32_t), "pairs are dense");
        options.stickerTexture = sticker_->Name();
        options.stickers = &shot.stickers.front().first;
        options.stickerCount = shot.stickers.size();
    }
    return options;
}

VEDrawn Renderer::Draw(const Shot& shot, const uint8_t* frame, const uint8_t* mask) {
    const auto start = std::chrono::steady_clock::now();
    VEDrawOptions options = DrawOptions(shot);
    options.frame = frame;
    options.mask = mask;
    VEDrawn drawn = VEMakeDrawn();
    const VEResult result = VEDraw(handle_.get(), &options, &drawn);
    if (result != VE_OK) {
        Fail(result);
    }
    glFinish();
    drawingTime_ += std::chrono::steady_clock::now() - start;
    ++draws_;
    return drawn;
}

void Renderer::Fail(VEResult result) const {
    std::string text = settings_.input + ": " + VEResultText(result);
    if (settings_.javaVM == nullptr) {
        throw ToolError(text);
    }
    const int32_t code = DecoderState().platformCode;
    if (code != 0) {
        text += " (code " + std::to_string(code) + ")";
    }
    throw ToolError(text + settings_.hint);
}

double Renderer::MillisecondsPerDraw() const {
    return drawingTime_.count() / static_cast<double>(std::max<int64_t>(1, draws_));
}

const Image& Renderer::ReadBack() {
    if (image_.pixels.empty()) {
        image_ = Image(settings_.size);
    }
    ReadBack(image_);
    return image_;
}
