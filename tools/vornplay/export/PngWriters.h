#pragma once

#include <string>
#include <utility>

#include "FrameSink.h"
#include "support/NumberedPath.h"

/// Writes one frame as a picture.
class PngWriter : public FrameSink {
public:
    explicit PngWriter(std::string path) : path_(std::move(path)) {}

    void Write(const Image& frame) override;

private:
    std::string path_;
};

/// Writes each frame as a picture, numbered from 1 on.
class PngSequence : public FrameSink {
public:
    /// \throws ToolError
    explicit PngSequence(const std::string& pattern) : path_(pattern) {}

    void Write(const Image& frame) override;

private:
    NumberedPath path_;
    int number_ = 0;
};
