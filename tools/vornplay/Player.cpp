#include "Player.h"

#include <algorithm>
#include <iomanip>
#include <iostream>

#include "Interrupt.h"
#include "PathChoice.h"
#include "Progress.h"
#include "Report.h"
#include "support/PngFile.h"
#include "support/RunTool.h"
#include "support/ToolError.h"

namespace {

constexpr Size kOpaqueMaskSize = {1, 1};

}  // namespace

Player::Player(const Options& options) : options_(options) {
    if (!options.mask.empty()) {
        mask_.emplace(options.mask, options.maskSize, options.rgbMask);
    }
    path_ = OpenPath(options, Settings(), [this] { return NextMask(); });
    if (!options.out.empty()) {
        output_ =
            OpenOutput({options.out, path_->Target().FrameSize(), options.backdrop, path_->File()});
    }
    limit_ = output_.has_value() && output_->limit > 0 ? output_->limit : options.frames;
    expected_ = ExpectedFrames();
    if (options.viewTo.has_value() && expected_ == 0) {
        throw ToolError(options.input + ": its length is not known; --view-to needs --frames here");
    }
}

RendererSettings Player::Settings() const {
    RendererSettings settings;
    settings.masked = options_.NeedsMask();
    settings.maskSize = mask_.has_value() ? mask_->FrameSize() : kOpaqueMaskSize;
    settings.rgbMask = options_.rgbMask;
    settings.mirror = options_.mirror;
    settings.clear = options_.clear;
    if (!options_.sticker.empty()) {
        settings.sticker = ReadPng(options_.sticker);
    }
    settings.positions = options_.positions;
    return settings;
}

uint8_t* Player::NextMask() {
    return mask_.has_value() ? mask_->Next() : opaqueMask_.data();
}

/// How many frames will be drawn; 0 if not known.
int64_t Player::ExpectedFrames() const {
    const int64_t available = path_->File().ExpectedFrames();
    if (limit_ == 0 || available == 0) {
        return std::max(limit_, available);
    }
    return std::min(limit_, available);
}

View Player::ViewOf(int64_t frame) const {
    const View from = options_.view.value_or(View());
    if (!options_.viewTo.has_value() || expected_ < 2) {
        return from;
    }
    const double progress = static_cast<double>(frame) / static_cast<double>(expected_ - 1);
    return Between(from, *options_.viewTo, std::min(progress, 1.0));
}

/// Sets what the frame is drawn with.
void Player::Direct(int64_t frame) {
    if (!options_.script.has_value()) {
        view_ = ViewOf(frame);
        return;
    }
    const double seconds = static_cast<double>(frame) / av_q2d(path_->File().FrameRate());
    const Shot shot = ShotAt(options_.script->keyframes, seconds);
    view_ = shot.view;
    path_->Target().SetMirror(shot.mirror);
    path_->Target().SetPositions(shot.stickers);
}

int Player::Play() {
    ReportAudio();
    DrawAll();
    if (out_ == 0 && !stopped_) {
        throw ToolError(options_.input + (options_.startSeconds > 0.0
                                              ? ": no picture from the start time on"
                                              : ": no picture in it can be decoded"));
    }
    if (output_.has_value() && out_ > 0) {
        output_->sink->Finish(stopped_ || out_ == limit_);
    }
    return Report();
}

void Player::DrawAll() {
    Progress progress(options_.quiet, expected_);
    while ((out_ != limit_ || limit_ == 0) && DrawNext()) {
        progress.Show(out_);
    }
}

bool Player::DrawNext() {
    stopped_ = Interrupted();
    if (stopped_) {
        return false;
    }
    Direct(out_);
    if (!path_->DrawNext(view_, out_ + 1 == limit_)) {
        return false;
    }
    if (output_.has_value()) {
        output_->sink->Write(path_->Target().ReadBack());
    }
    ++out_;
    return true;
}

void Player::ReportAudio() const {
    if (!output_.has_value() || options_.quiet) {
        return;
    }
    for (const std::string& codec : output_->audio.leftOut) {
        std::cerr << "vornplay: " << options_.out << " does not take " << codec
                  << "; this audio is left out\n";
    }
}

void Player::ReportStop() const {
    std::cerr << "vornplay: stopped after " << out_;
    if (expected_ > 0) {
        std::cerr << " of " << expected_;
    }
    const double seconds = static_cast<double>(out_) / av_q2d(path_->File().FrameRate());
    std::cerr << " frames, at " << std::fixed << std::setprecision(2) << seconds << " s";
    if (output_.has_value()) {
        std::cerr << "; " << options_.out << (out_ > 0 ? " holds them" : " was not written");
    }
    std::cerr << '\n';
}

int Player::Report() const {
    const bool brokenInput = ReportBroken(options_.input, path_->Lost(), path_->Damaged());
    const bool brokenMask = mask_.has_value() && ReportBroken(options_.mask, mask_->Reader().Lost(),
                                                              mask_->Reader().Damaged());
    if (stopped_) {
        ReportStop();
    }
    if (!options_.quiet) {
        std::cerr << path_->Summary(out_) << '\n';
    }
    const int broken = brokenInput || brokenMask ? kExitBroken : kExitDone;
    const int status = stopped_ ? kExitInterrupted : broken;
    if (options_.json) {
        std::cout << ToJson(Summarize(status)) << std::endl;
    }
    return status;
}

RunSummary Player::Summarize(int exitStatus) const {
    RunSummary summary;
    summary.input = options_.input;
    summary.output = options_.out;
    summary.exitStatus = exitStatus;
    summary.path = path_->Name();
    summary.size = path_->Target().FrameSize();
    summary.frameRate = path_->File().FrameRate();
    summary.expected = expected_;
    summary.drawn = out_;
    summary.shown = path_->Shown(out_);
    summary.dropped = path_->Dropped();
    summary.lost = path_->Lost();
    summary.damaged = path_->Damaged();
    summary.elapsedSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    summary.millisecondsPerDraw = path_->Target().MillisecondsPerDraw();
    if (output_.has_value()) {
        summary.audio = output_->audio;
    }
    return summary;
}
