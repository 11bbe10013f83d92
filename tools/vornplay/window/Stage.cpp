#include "window/Stage.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "PathChoice.h"
#include "support/PngFile.h"
#include "support/ToolError.h"
#include "window/DefaultSticker.h"
#include "window/LiveCpuPath.h"
#include "window/LiveDecodePath.h"

namespace {

/// Time stamps of some containers are rounded to milliseconds.
constexpr double kTimeTolerance = 0.001;

Image LoadSticker(const Options& options) {
    return options.sticker.empty() ? DecodePng(kDefaultSticker, kDefaultStickerSize)
                                   : ReadPng(options.sticker);
}

/// When the last frame of a file is shown; 0 where the file does not tell.
double LastSeconds(const VideoFile& file) {
    const auto frames = static_cast<double>(file.ExpectedFrames());
    return frames > 0 ? file.StartSeconds() + (frames - 1) / av_q2d(file.FrameRate()) : 0.0;
}

/// Renderers leave pixel buffers to the context. Here nobody else has buffers, and many renderers
/// follow one another.
void DeleteLeftBuffers() {
    constexpr GLuint kMostNames = 64;
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    for (GLuint name = 1; name <= kMostNames; ++name) {
        if (glIsBuffer(name) == GL_TRUE) {
            glDeleteBuffers(1, &name);
        }
    }
}

}  // namespace

Stage::Stage(const Options& options, VideoFile file)
    : options_(options),
      machine_(MachineFor(file, options)),
      sticker_(LoadSticker(options)),
      masking_(options.mask.empty() ? MaskUse::kWhole : MaskUse::kFile),
      view_(options.view.value_or(View())),
      positions_(options.positions),
      mirrored_(options.mirror),
      lastSeconds_(LastSeconds(file)) {
    Open(std::move(file));
}

void Stage::Draw() {
    Renderer& renderer = path_->Target();
    renderer.SetMirror(mirrored_);
    renderer.SetPositions(positions_);
    path_->Draw(view_);
}

void Stage::Seek(double seconds) {
    const double before = Seconds();
    const double latest = lastSeconds_ > 0.0 ? lastSeconds_ : seconds;
    try {
        OpenAt(std::clamp(seconds, 0.0, std::max(latest, 0.0)));
    } catch (const ToolError&) {
        OpenAt(before);  // There is no such time in the clip.
    }
}

void Stage::SwitchMask() {
    switch (masking_) {
        case MaskUse::kFile: masking_ = MaskUse::kWhole; break;
        case MaskUse::kWhole: masking_ = MaskUse::kNone; break;
        case MaskUse::kNone:
            masking_ = options_.mask.empty() ? MaskUse::kWhole : MaskUse::kFile;
            break;
    }
    OpenAt(Seconds());
}

void Stage::OpenAt(double seconds) {
    Open(VideoFile(options_.input, seconds));
    // Files without times are read from their beginning.
    while (Seconds() < seconds - kTimeTolerance && Next()) {
    }
}

void Stage::Open(VideoFile file) {
    const std::string path = file.Path();
    path_ = nullptr;  // Before there is another: it deletes names that might be the other's.
    DeleteLeftBuffers();
    OpenMask(file);
    path_ = MakePath(std::move(file));
    if (!path_->Next()) {
        throw ToolError(path + ": no picture from the start time on");
    }
}

std::unique_ptr<LivePath> Stage::MakePath(VideoFile file) {
    const auto nextMask = [this] { return NextMask(); };
    if (machine_ != nullptr) {
        return std::make_unique<LiveDecodePath>(std::move(file), options_, Settings(), nextMask);
    }
    return std::make_unique<LiveCpuPath>(std::move(file), options_, Settings(), nextMask);
}

/// The mask's first frame goes with the first one from the start time on.
void Stage::OpenMask(const VideoFile& file) {
    mask_.reset();
    opaqueGiven_ = false;
    if (masking_ == MaskUse::kFile) {
        const double seconds = file.StartSeconds() - options_.startSeconds;
        const auto first = std::llround(seconds * av_q2d(file.FrameRate()));
        mask_.emplace(options_.mask, options_.maskSize, options_.rgbMask, first);
    }
}

uint8_t* Stage::NextMask() {
    if (mask_.has_value()) {
        return mask_->Next();
    }
    return std::exchange(opaqueGiven_, true) ? nullptr : opaqueMask_.data();
}

RendererSettings Stage::Settings() const {
    constexpr Size kOnePixel = {1, 1};
    RendererSettings settings;
    settings.javaVM = machine_;
    settings.masked = masking_ != MaskUse::kNone;
    settings.maskSize = mask_.has_value() ? mask_->FrameSize() : kOnePixel;
    settings.rgbMask = options_.rgbMask;
    settings.clear = options_.clear;
    settings.sticker = sticker_;
    return settings;
}
