#include "FramePath.h"

#include <iomanip>
#include <sstream>

std::string FramePath::Summary(int64_t drawn) const {
    std::ostringstream text;
    text << drawn << " frames in, " << drawn << " out, " << Lost() + Damaged() << " failed, "
         << std::fixed << std::setprecision(2) << Target().MillisecondsPerDraw() << " ms a frame";
    return text.str();
}
