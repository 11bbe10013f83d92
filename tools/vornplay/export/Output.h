#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "OutputKinds.h"

/// An output that takes the frames of a run.
struct Output {
    std::unique_ptr<FrameSink> sink;
    int64_t limit = 0;  ///< How many frames it takes; 0 for any number.
    AudioReport audio;
};

/// Opens an output of the kind that the extension of its path names. \throws ToolError
Output OpenOutput(const OutputSettings& settings);

/// Whether files of this kind can be joined from parts.
bool TakesParts(const std::string& path);

/// What becomes of alpha, in words.
const char* Words(OutputAlpha alpha);

/// The kinds by their examples: "x.png, dir/%04d.png, … or x.gif".
std::string OutputExamples();

/// The extensions of the kinds, without the dot, each once.
std::vector<std::string> OutputFormats();

/// A line for each kind, for the help.
std::string OutputNotes();
