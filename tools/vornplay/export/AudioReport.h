#pragma once

#include <string>
#include <vector>

/// What became of the audio of the input, by the names of its codecs.
struct AudioReport {
    std::vector<std::string> copied;
    std::vector<std::string> leftOut;
};
