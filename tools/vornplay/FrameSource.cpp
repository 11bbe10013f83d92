#include "FrameSource.h"

#include <iomanip>
#include <sstream>

void FrameSource::NoteTime(int64_t time) {
    const bool known = time != AV_NOPTS_VALUE;
    seconds_ =
        known ? File().SecondsOf(time) : static_cast<double>(count_) / av_q2d(File().FrameRate());
    ++count_;
}

void FrameSource::AskForMask() {
    if (uint8_t* mask = nextMask_()) {
        mask_ = mask;
    }
}

std::string FrameSource::Summary(int64_t drawn) const {
    std::ostringstream text;
    text << drawn << " frames in, " << drawn << " out, " << Lost() + Damaged() << " failed, "
         << std::fixed << std::setprecision(2) << GetRenderer().MillisecondsPerDraw()
         << " ms a frame";
    return text.str();
}
