#include "support/StampScan.h"

#include <algorithm>
#include <filesystem>

#include "support/VideoFile.h"

namespace {

/// In frames, as in FrameTimes.
constexpr double kLongestMistake = 16.0;

bool IsSmall(const std::string& path) {
    constexpr uintmax_t kMostBytes = uintmax_t{64} << 20U;
    std::error_code error;
    const bool regular = std::filesystem::is_regular_file(path, error);
    return regular && std::filesystem::file_size(path, error) <= kMostBytes && !error;
}

/// Files in parts of which each has stamps of its own, and files without stamps.
bool IsUnsure(const VideoFile& file) {
    const bool parts = (file.Format().flags & AVFMT_TS_DISCONT) != 0;
    const bool raw = (file.Format().flags & AVFMT_NOTIMESTAMPS) != 0;
    return parts || raw || file.Stream().duration == AV_NOPTS_VALUE;
}

StampScan Scan(VideoFile& file) {
    const double frame = 1.0 / av_q2d(file.FrameRate());
    StampScan scan;
    double last = 0.0;
    while (const AVPacket* packet = file.Next()) {
        const bool stamped = packet->dts != AV_NOPTS_VALUE;
        const double time = stamped ? file.SecondsOf(packet->dts) : last + frame;
        const bool back = scan.seconds > 0.0 && time < last - kLongestMistake * frame;
        const double step = scan.seconds > 0.0 && !back ? time - last : frame;
        scan.restart = scan.restart || back;
        scan.seconds += std::max(step, 0.0);
        last = time;
    }
    return scan;
}

}  // namespace

std::optional<StampScan> ScanStamps(const VideoFile& file) {
    if (!IsUnsure(file) || !IsSmall(file.Path())) {
        return std::nullopt;
    }
    VideoFile whole(file.Path());
    return Scan(whole);
}
