#include "DecoderFeed.h"

#include <algorithm>

DecoderFeed::DecoderFeed(VideoFile& file, Renderer& renderer)
    : file_(file),
      renderer_(renderer),
      decoder_(HostDecoder_acquire()),
      reader_(file),
      times_(file.Times()) {
    HostDecoder_setReorderDepth(decoder_.get(), file.Codec().video_delay);
    Read();
}

void DecoderFeed::Read() {
    next_ = reader_.Next();
    if (next_ != nullptr) {
        times_.Send(*next_);
        const bool decodingOrder = file_.Codec().video_delay > 0;
        const int64_t stamp =
            next_->pts != AV_NOPTS_VALUE || decodingOrder ? next_->pts : next_->dts;
        // The container cuts such packets off; later frames may be predicted from theirs.
        const bool hidden = (next_->flags & AV_PKT_FLAG_DISCARD) != 0;
        units_.push_back(
            {stamp, PtsUsOf(stamp), hidden, !hidden && !file_.IsBeforeStart(stamp), false});
    }
}

/// Times that the file does not give, or that are absurd, are made up from the number of the unit.
int64_t DecoderFeed::PtsUsOf(int64_t time) const {
    constexpr AVRational kMicrosecond = {1, 1'000'000};
    constexpr int64_t kMost = 9'000'000'000'000'000;  // 285 years; the renderer takes 292.
    const int64_t ptsUs = time != AV_NOPTS_VALUE
                              ? av_rescale_q(time, file_.Stream().time_base, kMicrosecond)
                              : AV_NOPTS_VALUE;
    return ptsUs >= -kMost && ptsUs <= kMost
               ? ptsUs
               : av_rescale_q(static_cast<int64_t>(units_.size()), av_inv_q(file_.FrameRate()),
                              kMicrosecond);
}

double DecoderFeed::NextTime() const {
    const AVStream& stream = file_.Stream();
    if (next_ == nullptr || next_->dts == AV_NOPTS_VALUE) {
        return static_cast<double>(Units()) / av_q2d(file_.FrameRate());
    }
    const int64_t first = stream.start_time == AV_NOPTS_VALUE ? 0 : stream.start_time;
    return static_cast<double>(next_->dts - first) * av_q2d(stream.time_base) -
           file_.StartSeconds();
}

VEUnit DecoderFeed::NextUnit() const {
    VEUnit unit = VEMakeUnit();
    if (next_ == nullptr) {
        unit.flags = VE_UNIT_END;
        return unit;
    }
    unit.data = next_->data;
    unit.size = static_cast<size_t>(next_->size);
    unit.ptsUs = units_.back().ptsUs;
    return unit;
}

bool DecoderFeed::FeedNext(int64_t waitUs) {
    VEUnit unit = NextUnit();
    unit.waitUs = waitUs;
    const bool empty = next_ != nullptr && unit.size == 0;
    const VEResult result = empty ? VE_ERROR_UNIT_SIZE : renderer_.Queue(unit);
    if (result == VE_AGAIN) {
        return false;
    }
    if (result != VE_OK && result != VE_ERROR_UNIT_SIZE) {
        renderer_.Fail(result);
    }
    if (next_ == nullptr) {
        atEnd_ = true;
        return true;
    }
    if (result == VE_OK) {
        queued_.push_back(units_.size() - 1);
    }
    Read();
    return true;
}

HostResult DecoderFeed::WaitForFrame(int64_t timeoutUs) {
    const HostResult result =
        HostDecoder_waitForFrame(decoder_.get(), frames_.delivered, timeoutUs, &frames_);
    if (result == HOST_CLOSED) {
        renderer_.Fail(VE_ERROR_DECODER);
    }
    if (result == HOST_TIMED_OUT) {
        CheckDecoder();
    }
    ended_ = ended_ || result == HOST_ENDED;
    return result;
}

void DecoderFeed::CheckDecoder() const {
    const VEResult result = renderer_.DecoderState().result;
    if (result != VE_OK) {
        renderer_.Fail(result);
    }
}

bool DecoderFeed::AwaitFrame() {
    constexpr int64_t kPauseUs = 1000;
    HostResult result = HOST_TIMED_OUT;
    while (result == HOST_TIMED_OUT) {
        while (!AtEnd() && FeedNext(0)) {
        }
        result = WaitForFrame(kPauseUs);
    }
    return result == HOST_READY;
}

bool DecoderFeed::NoteFrame() {
    const size_t index = NewestIndex();
    Unit& unit = units_.at(index);
    unit.out = true;
    latest_ = std::max(latest_, index);
    if (unit.hidden) {
        return false;
    }
    time_ = times_.Receive(unit.stamp);
    started_ = started_ || !file_.IsBeforeStart(times_.Clock().Seconds(time_));
    return started_;
}

bool DecoderFeed::IsOverdue(size_t index) const {
    constexpr size_t kLongestReordering = 16;
    return ended_ || index + kLongestReordering < latest_;
}

int64_t DecoderFeed::Units() const {
    return std::count_if(units_.begin(), units_.end(),
                         [](const Unit& unit) { return unit.wanted; });
}

int64_t DecoderFeed::Lost() const {
    const AVFieldOrder order = file_.Codec().field_order;
    if (order != AV_FIELD_PROGRESSIVE && order != AV_FIELD_UNKNOWN) {
        return file_.Missing();  // Two units may make one frame.
    }
    int64_t lost = file_.Missing();
    for (size_t index = 0; index < units_.size(); ++index) {
        lost += units_[index].wanted && !units_[index].out && IsOverdue(index) ? 1 : 0;
    }
    return lost;
}
