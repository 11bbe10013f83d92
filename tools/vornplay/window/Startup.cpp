#include "window/Startup.h"

#include <unistd.h>

#include <ctime>
#include <fstream>
#include <sstream>

namespace {

/// When the process started, in ticks since the system did.
double StartTicks() {
    constexpr int kFieldsBefore = 19;  // After the name, which may have spaces.
    std::ifstream file("/proc/self/stat");
    std::string text;
    std::getline(file, text);
    std::istringstream fields(text.substr(text.rfind(')') + 1));
    std::string skipped;
    for (int i = 0; i < kFieldsBefore; ++i) {
        fields >> skipped;
    }
    double ticks = 0;
    fields >> ticks;
    return ticks;
}

long Milliseconds(std::chrono::steady_clock::duration time) {
    return static_cast<long>(std::chrono::round<std::chrono::milliseconds>(time).count());
}

}  // namespace

Startup::Clock::duration Startup::ProcessAge() {
    timespec now = {};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const std::chrono::duration<double> started(StartTicks() /
                                                static_cast<double>(sysconf(_SC_CLK_TCK)));
    const auto sinceBoot = std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
    return std::chrono::duration_cast<Clock::duration>(sinceBoot - started);
}

void Startup::Note(const std::string& phase) {
    const Clock::time_point now = Clock::now();
    phases_ +=
        (phases_.empty() ? "" : ", ") + phase + ' ' + std::to_string(Milliseconds(now - last_));
    last_ = now;
}

std::string Startup::Text() const {
    return "first picture after " + std::to_string(Milliseconds(last_ - begin_)) +
           " ms: " + phases_;
}
