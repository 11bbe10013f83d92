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

std::vector<std::string> FrameSource::Remarks() const {
    const int64_t repaired = Times().Repaired();
    if (repaired == 0) {
        return {};
    }
    return {"the time stamps of " + std::to_string(repaired) +
            " frames are missing or step back; they were repaired"};
}
