#include "Player.h"

#include <algorithm>
#include <iostream>

#include "PathChoice.h"
#include "Progress.h"
#include "Report.h"
#include "support/CommandLine.h"
#include "support/PngFile.h"
#include "support/ToolError.h"

namespace {

constexpr Size kOpaqueMaskSize = {1, 1};

}  // namespace

Player::Player(const Options& options) : options_(options) {
    if (!options.mask.empty()) {
        mask_.emplace(options.mask, options.maskSize, options.rgbMask);
    }
    path_ = OpenPath(options, Settings(), [this] { return NextMask(); });
    sink_ = MakeFrameSink(options, path_->Target().FrameSize(), path_->File().FrameRate());
    limit_ = sink_ != nullptr && sink_->Limit() > 0 ? sink_->Limit() : options.frames;
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

int Player::Play() {
    {
        Progress progress(options_.quiet, expected_);
        while (out_ != limit_ || limit_ == 0) {
            if (!path_->DrawNext(ViewOf(out_), out_ + 1 == limit_)) {
                break;
            }
            WriteDrawn();
            progress.Show(out_);
        }
    }
    if (out_ == 0) {
        throw ToolError(options_.input + (options_.startSeconds > 0.0
                                              ? ": no picture from the start time on"
                                              : ": no picture in it can be decoded"));
    }
    if (sink_ != nullptr) {
        sink_->Finish();
    }
    return Report();
}

void Player::WriteDrawn() {
    if (sink_ != nullptr) {
        sink_->Write(path_->Target().ReadBack());
    }
    ++out_;
}

int Player::Report() const {
    const bool brokenInput = ReportBroken(options_.input, path_->Lost(), path_->Damaged());
    const bool brokenMask = mask_.has_value() && ReportBroken(options_.mask, mask_->Reader().Lost(),
                                                              mask_->Reader().Damaged());
    if (!options_.quiet) {
        std::cerr << path_->Summary(out_) << '\n';
    }
    return brokenInput || brokenMask ? kExitBroken : kExitDone;
}
