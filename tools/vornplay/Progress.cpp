#include "Progress.h"

#include <unistd.h>

#include <iomanip>
#include <iostream>
#include <sstream>

namespace {

constexpr std::chrono::milliseconds kTerminalPause(100);
constexpr std::chrono::seconds kLogPause(5);
constexpr char kEraseLine[] = "\r\033[K";

}  // namespace

Progress::Progress(bool quiet, int64_t total)
    : quiet_(quiet), terminal_(isatty(STDERR_FILENO) != 0), total_(total) {}

Progress::~Progress() {
    if (terminal_ && !quiet_) {
        std::cerr << kEraseLine;
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
    if (terminal_) {
        std::cerr << kEraseLine << line << std::flush;
    } else {
        std::cerr << line << '\n';
    }
}

std::string Progress::Line(int64_t frames, double seconds) const {
    const double rate = static_cast<double>(frames) / seconds;
    const bool known = total_ > frames && rate > 0.0;
    std::ostringstream line;
    line << std::fixed << std::setprecision(0) << frames;
    if (known) {
        line << " of " << total_;
    }
    line << " frames, " << rate << " fps";
    if (known) {
        line << ", " << static_cast<double>(total_ - frames) / rate << " s left";
    }
    return line.str();
}
