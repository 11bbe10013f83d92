#include "Progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace {

constexpr std::chrono::milliseconds kTerminalPause(100);
constexpr std::chrono::seconds kLogPause(5);
constexpr char kEraseLine[] = "\r\033[K";

/// How many characters fit on a line of the terminal.
size_t TerminalWidth() {
    constexpr size_t kUsual = 80;
    winsize window{};
    const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &window) == 0 && window.ws_col > 0;
    return (known ? window.ws_col : kUsual) - 1;
}

/// "1:02:03", or "2:03" below an hour.
std::string ClockTime(double seconds) {
    constexpr int64_t kSixty = 60;
    const auto whole = static_cast<int64_t>(std::ceil(seconds));
    const int64_t minutes = whole / kSixty;
    std::ostringstream text;
    text << std::setfill('0');
    if (minutes >= kSixty) {
        text << minutes / kSixty << ':' << std::setw(2);
    }
    text << minutes % kSixty << ':' << std::setw(2) << whole % kSixty;
    return text.str();
}

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
    const std::string figures =
        Figures(frames, std::chrono::duration<double>(now - start_).count());
    if (terminal_) {
        std::cerr << kEraseLine << (Bar(frames) + figures).substr(0, TerminalWidth()) << std::flush;
    } else {
        std::cerr << figures << '\n';
    }
}

/// Empty if the end is not known.
std::string Progress::Bar(int64_t frames) const {
    constexpr int64_t kLength = 24;
    if (total_ <= 0) {
        return {};
    }
    const int64_t done = std::min(frames, total_);
    const auto filled = static_cast<size_t>(done * kLength / total_);
    std::ostringstream bar;
    bar << '[' << std::string(filled, '#') << std::string(kLength - filled, '.') << "] "
        << std::setw(3) << done * 100 / total_ << " %  ";
    return bar.str();
}

std::string Progress::Figures(int64_t frames, double seconds) const {
    const double rate = static_cast<double>(frames) / seconds;
    const bool known = total_ > frames && rate > 0.0;
    std::ostringstream line;
    line << std::fixed << std::setprecision(0) << frames;
    if (known) {
        line << " of " << total_;
    }
    line << " frames, " << rate << " fps";
    if (known) {
        line << ", " << ClockTime(static_cast<double>(total_ - frames) / rate) << " left";
    }
    return line.str();
}
