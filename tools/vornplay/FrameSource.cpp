#include "FrameSource.h"

#include <iomanip>
#include <sstream>

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
