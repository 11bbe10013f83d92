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

/// When the last frame of a file is shown, as far as known; 0 for a picture.
double LastSeconds(const VideoFile& file, const std::optional<StampScan>& scan) {
    const double end = scan.has_value() ? scan->seconds : file.EndSeconds();
    return std::max(0.0, end - 1.0 / av_q2d(file.FrameRate()));
}

/// Only a window lets its user look for a time.
std::optional<StampScan> ScanFor(const Options& options, const VideoFile& file) {
    return options.WantsWindow() ? ScanStamps(file) : std::nullopt;
}

}  // namespace

Stage::Stage(const Options& options, VideoFile file, const PartRange& range)
    : Stage(options, std::move(file), range, ScanFor(options, file)) {}

Stage::Stage(const Options& options, VideoFile&& file, const PartRange& range,
             const std::optional<StampScan>& scan)
    : options_(options),
      sticker_(LoadSticker(options)),
      range_(range),
      java_(JavaFor(file, options)),
      shot_{options.view.value_or(kFitView), options.mirror, false, options.positions},
      stampsRestart_(scan.has_value() && scan->restart),
      lastSeconds_(LastSeconds(file, scan)) {
    Open(std::move(file));
}

void Stage::Seek(double seconds) {
    const double before = Seconds();
    if (lastSeconds_ > 0.0 && seconds >= lastSeconds_) {
        OpenAtEnd(before);  // The last frame may last longer than the others.
        return;
    }
    try {
        OpenAt(std::max(0.0, seconds));
    } catch (const ToolError&) {
        OpenAtEnd(before);  // There is no such time in the clip.
    }
}

/// \param reached a time that is in the clip
void Stage::OpenAtEnd(double reached) {
    constexpr double kFarther = 4.0;
    if (!CanSeek()) {
        return;
    }
    const double last = std::max(lastSeconds_, reached);
    double back = 1.0;
    for (bool found = false; !found;) {
        try {
            OpenAt(std::max(0.0, last - back));
            found = true;
        } catch (const ToolError&) {
            if (back > last) {
                throw;
            }
            back *= kFarther;
        }
    }
    while (Next()) {
    }
}

void Stage::StepBack() {
    const double now = Seconds();
    if (now > kTimeTolerance) {
        OpenAt(TimeBefore(now));
    }
}

/// The time of the last frame before a time at which there is one. Takes other frames.
double Stage::TimeBefore(double seconds) {
    constexpr double kFarther = 4.0;
    double before = 0.0;
    double back = FrameSeconds();
    while (before <= 0.0 && back < kFarther * seconds) {
        OpenAt(std::max(0.0, seconds - back));
        if (std::abs(Seconds() - seconds + FrameSeconds()) < kTimeTolerance) {
            return Seconds();  // The frame rate is even here.
        }
        while (Seconds() < seconds - kTimeTolerance) {
            before = Seconds();
            if (!Next()) {
                break;
            }
        }
        back *= kFarther;
    }
    return before;
}

double Stage::EndSeconds() const {
    return lastSeconds_ > 0.0 ? lastSeconds_ + FrameSeconds() : 0.0;
}

bool Stage::StampsRestart() const {
    return stampsRestart_ || (source_ != nullptr && source_->Times().Restarted());
}

/// Stdin is read once.
bool Stage::CanSeek() const {
    return options_.input != "-";
}

void Stage::OpenAt(double seconds) {
    if (!CanSeek()) {
        return;
    }
    stampsRestart_ = StampsRestart();
    Open(VideoFile(options_.input, seconds,
                   stampsRestart_ ? Seeking::kByReading : Seeking::kByStamps));
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
