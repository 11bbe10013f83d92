#include "Renderer.h"

#include <algorithm>
#include <utility>

#include "support/ToolError.h"

namespace {

/// VEDestroyRenderer leaves the renderer's pixel buffers in the context. The player makes many
/// renderers in one context, one per seek. So it deletes the buffers, whose names it has to guess:
/// nothing else here makes buffers, and the GL gives out low names first.
void DeletePixelBuffers() {
    constexpr GLuint kMostNames = 64;
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    for (GLuint name = 1; name <= kMostNames; ++name) {
        if (glIsBuffer(name) == GL_TRUE) {
            glDeleteBuffers(1, &name);
        }
    }
}

}  // namespace

void Renderer::DestroyHandle::operator()(void* handle) const {
    VEDestroyRenderer(handle);
    DeletePixelBuffers();
}

Renderer::Renderer(RendererSettings settings)
    : settings_(std::move(settings)), image_(settings_.size) {
    CheckSizes();
    constexpr float kFull = 255.0F;
    const auto [red, green, blue, alpha] = settings_.clear;
    glClearColor(static_cast<float>(red) / kFull, static_cast<float>(green) / kFull,
                 static_cast<float>(blue) / kFull, static_cast<float>(alpha) / kFull);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    if (settings_.sticker.has_value()) {
        LoadSticker(sticker_.emplace(), *settings_.sticker);
    }
    Create();
    WarmUp();
}

void Renderer::CheckSizes() const {
    CheckTextureSize("a frame", settings_.size);
    CheckTextureSize("a mask", settings_.maskSize);
    if (settings_.sticker.has_value()) {
        CheckTextureSize("a sticker", settings_.sticker->size);
    }
}

void Renderer::Create() {
    VERendererMode mode{};
    mode.outputMode = settings_.masked ? VE_OUTPUT_MASKED : VE_OUTPUT_PICTURE;
    mode.modeType = settings_.source;
    mode.textureWidth = settings_.size.width;
    mode.textureHeight = settings_.size.height;
    mode.maskFormat = settings_.rgbMask ? VE_MASK_RGB : VE_MASK_RGBA;
    mode.maskWidth = settings_.maskSize.width;
    mode.maskHeight = settings_.maskSize.height;
    void* handle = nullptr;
    VECreateRendererHandle(&handle, static_cast<int>(texture_.Name()), &mode, settings_.javaVM);
    handle_.reset(handle);
    if (handle == nullptr) {
        throw ToolError("the renderer could not be created");
    }
}

/// The first calls only create the textures of raw frames and of masks.
void Renderer::WarmUp() {
    const bool raw = settings_.source == VE_MODE_RGB || settings_.source == VE_MODE_RGBA;
    const int calls = (raw ? 1 : 0) + (settings_.masked ? 1 : 0);
    for (int i = 0; i < calls; ++i) {
        Update(nullptr, nullptr);
    }
}

void Renderer::SetShot(const Shot& shot) {
    shot_ = shot;
    const View& view = shot_.view;
    VEUpdateUserPosition(handle_.get(), view.x, view.y, view.zoom, view.w);
}

void Renderer::HandOver(uint8_t* frame, uint8_t* mask) {
    const auto start = std::chrono::steady_clock::now();
    // Each update draws the frame that was handed over before. Nobody looks at that picture.
    glEnable(GL_RASTERIZER_DISCARD);
    Update(frame, mask);
    glDisable(GL_RASTERIZER_DISCARD);
    drawingTime_ += std::chrono::steady_clock::now() - start;
}

void Renderer::Draw(uint8_t* nextMask) {
    const auto start = std::chrono::steady_clock::now();
    Update(nullptr, nextMask);
    glFinish();
    drawingTime_ += std::chrono::steady_clock::now() - start;
    ++draws_;
}

double Renderer::MillisecondsPerDraw() const {
    return drawingTime_.count() / static_cast<double>(std::max<int64_t>(1, draws_));
}

void Renderer::Update(uint8_t* frame, uint8_t* mask) {
    const bool colorMirror = !shot_.mirror;  // True leaves the picture as it is.
    if (sticker_.has_value()) {
        VEUpdateRendererWithSticker(handle_.get(), frame, 0, colorMirror, mask,
                                    static_cast<int>(sticker_->Name()), shot_.stickers);
    } else {
        VEUpdateRenderer(handle_.get(), frame, 0, colorMirror, mask);
    }
}

const Image& Renderer::ReadBack() {
    reader_.Read(texture_, image_);
    return image_;
}
