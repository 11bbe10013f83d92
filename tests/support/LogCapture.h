#pragma once

#include <string>
#include <vector>

/// Replaces the Android log: keeps what the library writes instead of printing it.
namespace LogCapture {

struct Line {
    int priority;
    std::string tag;
    std::string text;
    bool formattedByCaller;  ///< Came through __android_log_write, not __android_log_vprint.
};

/// The lines since the last call, oldest first. \thread any.
std::vector<Line> Take();

/// The texts of Take.
std::vector<std::string> TakeTexts();

}  // namespace LogCapture
