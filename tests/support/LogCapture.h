#pragma once

#include <ostream>
#include <string>
#include <vector>

/// Replaces the Android log: keeps what the library writes instead of printing it.
namespace LogCapture {

struct Line {
    int priority;
    std::string tag;
    std::string text;
    bool formattedByCaller = false;  ///< By __android_log_write, not __android_log_vprint.

    bool operator==(const Line& other) const {
        return priority == other.priority && tag == other.tag && text == other.text;
    }
    friend std::ostream& operator<<(std::ostream& out, const Line& line) {
        return out << line.priority << " " << line.tag << ": " << line.text;
    }
};
using Lines = std::vector<Line>;

/// The lines since the last call, oldest first. \thread any.
Lines Take();

/// The texts of Take.
std::vector<std::string> TakeTexts();

}  // namespace LogCapture
