#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "export/FrameSink.h"
#include "support/Image.h"
#include "support/Libav.h"

/// What became of a run, for programs.
struct RunSummary {
    std::vector<std::string> inputs;
    std::string output;  ///< Empty: none.
    int exitStatus = 0;
    std::string path;
    Size size;
    AVRational frameRate = {0, 1};
    int64_t expected = 0;  ///< Zero: not known.
    int64_t drawn = 0;
    int64_t shown = 0;
    int64_t dropped = 0;
    int64_t repaired = 0;
    int64_t lost = 0;
    int64_t damaged = 0;
    double seconds = 0.0;
    double elapsedSeconds = 0.0;
    double millisecondsPerDraw = 0.0;
    AudioReport audio;
};

/// Says on stderr what is broken in a file. \return whether something is
bool ReportBroken(const std::string& path, int64_t lost, int64_t damaged);

/// Says on stderr what the user should know of a file.
void ReportRemarks(const std::string& path, const std::vector<std::string>& remarks);

/// Prints a line on stdout. \throws ToolError
void PrintLine(const std::string& line);

/// As one line of JSON.
std::string ToJson(const RunSummary& summary);

/// The line of JSON for a run that failed. \param error why
std::string FailureToJson(const std::vector<std::string>& inputs, const std::string& output,
                          const std::string& error);
