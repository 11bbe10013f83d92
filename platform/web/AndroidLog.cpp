#include <android/log.h>
#include <emscripten/console.h>

#include <cstdio>
#include <string>

int __android_log_write(int prio, const char* tag, const char* text) {
    const std::string line = std::string(tag) + ": " + text;
    if (prio >= ANDROID_LOG_ERROR) {
        emscripten_console_error(line.c_str());
    } else {
        emscripten_console_log(line.c_str());
    }
    return 1;
}

int __android_log_vprint(int prio, const char* tag, const char* fmt, va_list ap) {
    char text[1024];  // As long as a line of Android's log is kept, too.
    (void)std::vsnprintf(text, sizeof(text), fmt, ap);
    return __android_log_write(prio, tag, text);
}
