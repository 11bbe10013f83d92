#include "Progress.h"

#include <unistd.h>

#include <array>
#include <cstdio>

namespace {

constexpr std::chrono::milliseconds kTerminalPause(100);
constexpr std::chrono::seconds kLogPause(5);
constexpr char kEraseLine[] = "\r\033[K";

}  // namespace

Progress::Progress(bool quiet, int64_t total)
    : quiet_(quiet), terminal_(isatty(STDERR_FILENO) != 0), total_(total) {}

Progress::~Progress() {
    if (terminal_ && !quiet_) {
        std::fputs(kEraseLine, stderr);
    }
}

void Progress::Show(int64_t frames) {
    const Clock::time_point now = Clock::now();
    const Clock::duration pause = terminal_ ? Clock::duration(kTerminalPause) : kLogPause;
    if (quiet_ || now - shown_ < pause) {
        return;
    }
    shown_ = now;
    const std::string line = Line(frames, std::chrono::duration<double>(now - start_).count());
    std::fprintf(stderr, "%s%s%s", terminal_ ? kEraseLine : "", line.c_str(),
                 terminal_ ? "" : "\n");
}

std::string Progress::Line(int64_t frames, double seconds) const {
    const double rate = static_cast<double>(frames) / seconds;
    std::array<char, 128> text{};
    if (total_ > frames && rate > 0.0) {
        std::snprintf(text.data(), text.size(), "%lld of %lld frames, %.1f fps, %.0f s left",
                      static_cast<long long>(frames), static_cast<long long>(total_), rate,
                      static_cast<double>(total_ - frames) / rate);
    } else {
        std::snprintf(text.data(), text.size(), "%lld frames, %.1f fps",
                      static_cast<long long>(frames), rate);
    }
    return text.data();
}
