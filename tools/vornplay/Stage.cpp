#include "Stage.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "DefaultSticker.h"
#include "Handover.h"
#include "PixelSource.h"
#include "RealtimeSource.h"
#include "support/PngFile.h"
#include "support/ToolError.h"

namespace {

/// Time stamps of some containers are rounded to milliseconds.
constexpr double kTimeTolerance = 0.001;

std::optional<Image> LoadSticker(const Options& options) {
    if (!options.sticker.empty()) {
        return ReadPng(options.sticker);
    }
    if (options.WantsWindow()) {
        return DecodePng(kDefaultSticker, kDefaultStickerSize);
    }
    return std::nullopt;
}

/// When the last frame of a file is shown; 0 if the file does not say.
double LastSeconds(const VideoFile& file) {
    const auto frames = static_cast<double>(file.ExpectedFrames());
    return frames > 0 ? file.StartSeconds() + (frames - 1) / av_q2d(file.FrameRate()) : 0.0;
}

}  // namespace

Stage::Stage(const Options& options, VideoFile file, const PartRange& range)
    : options_(options),
      sticker_(LoadSticker(options)),
      range_(range),
      java_(JavaFor(file, options)),
      shot_{options.view.value_or(kFitView), options.mirror, false, options.positions},
      lastSeconds_(LastSeconds(file)) {
    Open(std::move(file));
}

void Stage::Seek(double seconds) {
    if (options_.input == "-") {
        return;  // Stdin is read once.
    }
    const double before = Seconds();
    const double latest = lastSeconds_ > 0.0 ? lastSeconds_ : seconds;
    try {
        OpenAt(std::clamp(seconds, 0.0, std::max(latest, 0.0)));
    } catch (const ToolError&) {
        OpenAt(before);  // There is no such time in the clip.
    }
}

void Stage::OpenAt(double seconds) {
    Open(VideoFile(options_.input, seconds));
    // Files without times are read from their beginning.
    while (Seconds() < seconds - kTimeTolerance && Next()) {
    }
}

void Stage::Open(VideoFile file) {
    const std::string none = file.NoPicture();
    source_ = nullptr;  // First: platforms have few decoders.
    OpenMask(file);
    source_ = MakeSource(std::move(file));
    if (!Next()) {
        throw ToolError(none);
    }
    while (source_->Time() < range_.from && Next()) {
    }
}

std::unique_ptr<FrameSource> Stage::MakeSource(VideoFile file) {
    const auto nextMask = [this] { return NextMask(); };
    RendererSettings settings = Settings(file);
    if (java_ == nullptr) {
        return std::make_unique<PixelSource>(std::move(file), std::move(settings), nextMask);
    }
    if (options_.realtime) {
        return std::make_unique<RealtimeSource>(std::move(file), std::move(settings), nextMask);
    }
    return std::make_unique<CompressedSource>(std::move(file), std::move(settings), nextMask);
}

/// The mask's first frame belongs to the first frame that the options ask for.
void Stage::OpenMask(const VideoFile& file) {
    mask_.reset();
    if (!options_.mask.empty()) {
        const double seconds = file.StartSeconds() - options_.startSeconds;
        const auto first =
            range_.isPart ? range_.earlier : std::llround(seconds * av_q2d(file.FrameRate()));
        mask_.emplace(options_.mask, options_.maskSize, options_.rgbMask, first);
    }
}

/// Frames before the range are not drawn.
uint8_t* Stage::NextMask() {
    return mask_.has_value() && source_->Time() >= range_.from ? mask_->Next() : nullptr;
}

RendererSettings Stage::Settings(const VideoFile& file) const {
    RendererSettings settings;
    settings.source = options_.rgb ? VE_SOURCE_RGB : VE_SOURCE_RGBA;
    settings.javaVM = java_;
    if (options_.realtime) {
        settings.hint = "";  // There is no other way to keep the clip's pace.
    }
    settings.shape = file.Shape(options_.autorotate);
    settings.turn = options_.autorotate;
    settings.keepInterlaced = options_.keepInterlaced;
    settings.size = options_.size;
    settings.maskSize = mask_.has_value() ? mask_->FrameSize() : Size();
    settings.rgbMask = options_.rgbMask;
    settings.clear = options_.clear;
    settings.sticker = sticker_;
    return settings;
}
