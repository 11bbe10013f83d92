#include "kernel/Log.h"

#include <android/log.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace OVR {
namespace {

constexpr uint32_t kDebugBit = LogMessage_DebugText;
constexpr unsigned kLineSize = 4096;  // Frozen: kernel log lines

Log* globalLog = nullptr;

const char* Prefix(LogMessageType type) {
    switch (type) {
        case LogMessage_Error: return "Error: ";
        case LogMessage_Debug: return "Debug: ";
        case LogMessage_Assert: return "Assert: ";
        default: return "";
    }
}

android_LogPriority Priority(LogMessageType type) {
    switch (type) {
        case LogMessage_Error:
        case LogMessage_Assert: return ANDROID_LOG_ERROR;
        case LogMessage_DebugText:
        case LogMessage_Debug: return ANDROID_LOG_DEBUG;
        default: return ANDROID_LOG_INFO;
    }
}

/// Appends as much of \p text as fits; both it and \p buffer end in NUL.
void AppendBounded(char* buffer, size_t bufferSize, const char* text) {
    const size_t used = std::strlen(buffer);
    const size_t length = std::min(std::strlen(text), bufferSize - 1 - used);
    std::memcpy(buffer + used, text, length);
    buffer[used + length] = '\0';
}

}  // namespace

Log::Log(uint32_t loggingMask) : LoggingMask(loggingMask) {}

Log::~Log() {
    if (globalLog == this) {
        globalLog = nullptr;
    }
}

void Log::LogMessageVarg(LogMessageType type, const char* fmt, va_list args) {
    // Frozen: debug messages
    if ((type & LoggingMask) == 0 || (type & kDebugBit) != 0) {
        return;
    }
    char line[kLineSize];
    FormatLog(line, sizeof(line), type, fmt, args);
    DefaultLogOutput(type, line);
}

void Log::LogMessage(LogMessageType type, const char* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    LogMessageVarg(type, fmt, args);
    va_end(args);
}

void Log::FormatLog(char* buffer, unsigned bufferSize, LogMessageType type, const char* fmt,
                    va_list args) {
    if (bufferSize == 0) {
        return;
    }
    const char* prefix = Prefix(type);
    buffer[0] = '\0';
    AppendBounded(buffer, bufferSize, prefix);

    const size_t used = std::strlen(buffer);
    const size_t room = bufferSize - used;
    const int length = std::vsnprintf(buffer + used, room, fmt, args);
    if (length < 0 || static_cast<size_t>(length) >= room) {
        buffer[bufferSize - 1] = '\0';
    }
    if (prefix[0] != '\0') {
        AppendBounded(buffer, bufferSize, "\n");
    }
}

void Log::DefaultLogOutput(LogMessageType type, const char* text) {
    __android_log_write(Priority(type), "OVR", text);
}

Log* Log::GetDefaultLog() {
    static Log log;
    return &log;
}

Log* Log::GetGlobalLog() {
    return globalLog;
}

void Log::SetGlobalLog(Log* log) {
    globalLog = log;
}

// A macro, because a C variadic function cannot forward its arguments.
#define OVR_FORWARD_TO_GLOBAL_LOG(type)                 \
    do {                                                \
        if (globalLog != nullptr) {                     \
            va_list args;                               \
            va_start(args, fmt);                        \
            globalLog->LogMessageVarg(type, fmt, args); \
            va_end(args);                               \
        }                                               \
    } while (false)

void LogText(const char* fmt, ...) {
    OVR_FORWARD_TO_GLOBAL_LOG(LogMessage_Text);
}

void LogError(const char* fmt, ...) {
    OVR_FORWARD_TO_GLOBAL_LOG(LogMessage_Error);
}

void LogDebugText(const char* fmt, ...) {
    OVR_FORWARD_TO_GLOBAL_LOG(LogMessage_DebugText);
}

void LogDebug(const char* fmt, ...) {
    OVR_FORWARD_TO_GLOBAL_LOG(LogMessage_Debug);
}

void LogAssert(const char* fmt, ...) {
    OVR_FORWARD_TO_GLOBAL_LOG(LogMessage_Assert);
}

}  // namespace OVR
