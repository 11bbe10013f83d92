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

extern "C" int __android_log_write(int priority, const char* tag, const char* text) {
    return Keep(priority, tag, text, true);
}

extern "C" int __android_log_vprint(int priority, const char* tag, const char* format,
                                    va_list args) {
    va_list copy;
    va_copy(copy, args);
    std::string text(static_cast<size_t>(std::vsnprintf(nullptr, 0, format, copy)), '\0');
    va_end(copy);
    std::vsnprintf(&text[0], text.size() + 1, format, args);
    return Keep(priority, tag, std::move(text), false);
}

std::vector<LogCapture::Line> LogCapture::Take() {
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
