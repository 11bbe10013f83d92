#pragma once

#include <string>
#include <vector>

/// Stands in front of the Android log: what the library writes is kept instead of printed.
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
