#include "Player.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "Progress.h"
#include "support/CommandLine.h"
#include "support/PngFile.h"
#include "support/ToolError.h"

namespace {

/// Stands in for a mask where only the view is wanted: stretched over the picture, all opaque.
std::array<uint8_t, 4> opaqueMask = {255, 255, 255, 255};
constexpr Size kOpaqueMaskSize = {1, 1};

/// Says what is broken in a file. \return whether something is
bool ReportBroken(const std::string& path, const VideoReader& reader) {
    if (reader.Lost() == 0 && reader.Damaged() == 0) {
        return false;
    }
    std::fprintf(stderr, "vornplay: %s is broken: %lld frames lost, %lld damaged\n", path.c_str(),
                 static_cast<long long>(reader.Lost()), static_cast<long long>(reader.Damaged()));
    return true;
}

}  // namespace

Player::Player(const Options& options)
    : options_(options),
      reader_(options.input, options.startSeconds),
      first_(reader_.First()),
      size_(SizeOr(options.size, first_)),
      converter_(size_, options.rgb ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_RGBA) {
    if (!options.mask.empty()) {
        mask_.emplace(options.mask, options.maskSize, options.rgbMask);
    }
    renderer_.emplace(Settings());
    sink_ = MakeFrameSink(options, size_, reader_.FrameRate());
    limit_ = sink_ != nullptr && sink_->Limit() > 0 ? sink_->Limit() : options.frames;
    expected_ = ExpectedFrames();
    if (options.viewTo.has_value() && expected_ == 0) {
        throw ToolError(options.input + ": its length is not known; --view-to needs --frames here");
    }
}

RendererSettings Player::Settings() const {
    RendererSettings settings;
    settings.size = size_;
    settings.rgb = options_.rgb;
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

/// How many frames will be drawn; 0 if not known.
int64_t Player::ExpectedFrames() const {
    const int64_t available = reader_.ExpectedFrames();
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

const AVFrame* Player::NextFrame() {
    if (limit_ > 0 && in_ == limit_) {
        return nullptr;
    }
    return in_ == 0 ? &first_ : reader_.Next();
}

int Player::Play() {
    Progress progress(options_.quiet, expected_);
    while (const AVFrame* frame = NextFrame()) {
        Submit(*frame);
        progress.Show(out_);
    }
    renderer_->SetView(ViewOf(out_));
    renderer_->Finish();
    WriteDrawn();
    if (sink_ != nullptr) {
        sink_->Finish();
    }
    return Report();
}

/// Hands a frame over, which draws the one before it.
void Player::Submit(const AVFrame& frame) {
    renderer_->SetView(ViewOf(out_));
    renderer_->Submit(converter_.Convert(frame),
                      mask_.has_value() ? mask_->Next() : opaqueMask.data());
    if (in_++ > 0) {
        WriteDrawn();
    }
}

void Player::WriteDrawn() {
    if (sink_ != nullptr) {
        sink_->Write(renderer_->ReadBack());
    }
    ++out_;
}

int Player::Report() const {
    const bool brokenInput = ReportBroken(options_.input, reader_);
    const bool brokenMask = mask_.has_value() && ReportBroken(options_.mask, mask_->Reader());
    if (!options_.quiet) {
        const double milliseconds = renderer_->DrawingTime().count() * 1000.0;
        std::fprintf(stderr, "%lld frames in, %lld out, %lld failed, %.2f ms a frame\n",
                     static_cast<long long>(in_), static_cast<long long>(out_),
                     static_cast<long long>(reader_.Lost() + reader_.Damaged()),
                     milliseconds / static_cast<double>(in_ + 1));
    }
    return brokenInput || brokenMask ? kExitBroken : kExitDone;
}
