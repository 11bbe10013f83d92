#include "support/LogCapture.h"

#include <android/log.h>

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <utility>

namespace {

std::mutex mutex;
std::vector<LogCapture::Line> lines;

int Keep(int priority, const char* tag, std::string text, bool formattedByCaller) {
    const std::lock_guard<std::mutex> lock(mutex);
    lines.push_back({priority, tag, std::move(text), formattedByCaller});
    return 1;
}

}  // namespace

extern "C" int __android_log_write(int prio, const char* tag, const char* text) {
    return Keep(prio, tag, text, true);
}

extern "C" int __android_log_vprint(int prio, const char* tag, const char* fmt, va_list ap) {
    va_list copy;
    va_copy(copy, ap);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
    std::string text(static_cast<size_t>(std::vsnprintf(nullptr, 0, fmt, copy)), '\0');
    va_end(copy);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the caller initializes it.
    (void)std::vsnprintf(text.data(), text.size() + 1, fmt, ap);
    return Keep(prio, tag, std::move(text), false);
}

LogCapture::Lines LogCapture::Take() {
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(lines, {});
}

std::vector<std::string> LogCapture::TakeTexts() {
    std::vector<std::string> texts;
    for (const Line& line : Take()) {
        texts.push_back(line.text);
    }
    return texts;
}
