#include "DecoderFeed.h"

#include <algorithm>

#include "support/ToolError.h"

DecoderFeed::DecoderFeed(VideoFile& file, Renderer& renderer)
    : file_(file),
      renderer_(renderer),
      decoder_(HostDecoder_acquire()),
      capacity_(decoder_ != nullptr ? HostDecoder_inputCapacity(decoder_.get()) : 0),
      reader_(file) {
    if (capacity_ == 0) {
        throw ToolError(file.Path() + ": the platform's decoder does not start");
    }
    HostDecoder_setReorderDepth(decoder_.get(), file.Codec().video_delay);
    Read();
}

void DecoderFeed::Read() {
    next_ = reader_.Next();
    if (next_ != nullptr) {
        const int64_t time = next_->pts != AV_NOPTS_VALUE ? next_->pts : next_->dts;
        // The container cuts such packets off; later frames may be predicted from theirs.
        const bool hidden = (next_->flags & AV_PKT_FLAG_DISCARD) != 0;
        units_.push_back({time, hidden, !hidden && !file_.IsBeforeStart(time), false});
    }
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

bool DecoderFeed::HasRoom(int64_t timeoutUs) {
    return HostDecoder_waitForInput(decoder_.get(), timeoutUs) == HOST_READY;
}

void DecoderFeed::FeedNext(int64_t timeoutUs) {
    if (next_ == nullptr) {
        atEnd_ = HostDecoder_endStream(decoder_.get(), timeoutUs) == HOST_READY;
        return;
    }
    // The renderer would copy a larger unit past the end of the input buffer.
    const bool fits = next_->size > 0 && static_cast<size_t>(next_->size) <= capacity_;
    if (fits && HasRoom(timeoutUs)) {
        queued_.push_back(units_.size() - 1);
        renderer_.Feed(*next_);
    }
    Read();
}

HostResult DecoderFeed::WaitForFrame(int64_t timeoutUs) {
    const HostResult result =
        HostDecoder_waitForFrame(decoder_.get(), frames_.delivered, timeoutUs, &frames_);
    if (result == HOST_CLOSED) {
        throw ToolError(file_.Path() + ": the platform's decoder gave up");
    }
    ended_ = ended_ || result == HOST_ENDED;
    return result;
}

bool DecoderFeed::AwaitFrame() {
    constexpr int64_t kPauseUs = 1000;
    HostResult result = HOST_TIMED_OUT;
    while (result == HOST_TIMED_OUT) {
        while (!AtEnd() && HasRoom(0)) {
            FeedNext(0);
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
    started_ = started_ || unit.wanted;
    return started_ && !unit.hidden;
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
