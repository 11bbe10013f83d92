#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>

#include "kernel/Export.h"

namespace OVR {

/// Bit 0x100 marks ordinary output, bit 0x200 debug output. Each type has a prefix and a priority
/// in the Android log; other values have no prefix and priority 4.
enum LogMessageType : uint32_t {
    LogMessage_Text = 0x100,       ///< No prefix, priority 4 (ANDROID_LOG_INFO).
    LogMessage_Error = 0x101,      ///< "Error: ", priority 6 (ANDROID_LOG_ERROR).
    LogMessage_DebugText = 0x200,  ///< No prefix, priority 3 (ANDROID_LOG_DEBUG).
    LogMessage_Debug = 0x201,      ///< "Debug: ", priority 3.
    LogMessage_Assert = 0x202,     ///< "Assert: ", priority 6. Nothing stops the program.
};

/// The kernel's log. It is silent after the library is loaded: it writes only after a caller sets
/// the mask of the default log or installs another log.
///
/// \thread any for messages; set masks and the global log before other threads use them.
class OVR_EXPORT Log {
public:
    explicit Log(uint32_t loggingMask = LogMessage_DebugText);
    /// If this is the global log, there is none afterwards.
    virtual ~Log();
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    /// Writes the message if its type shares a bit with LoggingMask. It never writes debug and
    /// assert types.
    virtual void LogMessageVarg(LogMessageType type, const char* fmt, va_list args)
        OVR_PRINTF(3, 0);

    void LogMessage(LogMessageType type, const char* fmt, ...) OVR_PRINTF(3, 4);

    /// Writes prefix, message and, for types with a prefix, a newline to \p buffer. Cuts what does
    /// not fit, and always ends the text with NUL unless \p bufferSize is 0.
    static void FormatLog(char* buffer, unsigned bufferSize, LogMessageType type, const char* fmt,
                          va_list args) OVR_PRINTF(4, 0);
    /// Writes \p text to the Android log, under the tag "OVR" and with the priority of \p type. It
    /// looks at no mask, so it writes debug and assert types, too.
    static void DefaultLogOutput(LogMessageType type, const char* text);

    /// The only default log. The first call creates it; the process destroys it at exit, or when it
    /// unloads the library.
    static Log* GetDefaultLog();
    /// The log that the free functions below write to; null for none.
    static Log* GetGlobalLog();
    static void SetGlobalLog(Log* log);

    uint32_t LoggingMask;
};

OVR_EXPORT void LogText(const char* fmt, ...) OVR_PRINTF(1, 2);
OVR_EXPORT void LogError(const char* fmt, ...) OVR_PRINTF(1, 2);
OVR_EXPORT void LogDebugText(const char* fmt, ...) OVR_PRINTF(1, 2);
OVR_EXPORT void LogDebug(const char* fmt, ...) OVR_PRINTF(1, 2);
OVR_EXPORT void LogAssert(const char* fmt, ...) OVR_PRINTF(1, 2);

}  // namespace OVR
