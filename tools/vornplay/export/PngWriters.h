#pragma once

#include <string>
#include <utility>

#include "FrameSink.h"
#include "support/NumberedPath.h"

/// Writes one frame as a picture.
class PngWriter : public FrameSink {
public:
    /// \throws ToolError
    explicit PngWriter(const OutputSettings& settings)
        : path_(settings.path), file_(settings.path, settings.existing) {}

    void Write(Image& frame, int64_t time) override;
    void Commit() override { file_.Commit(); }

private:
    std::string path_;
    OutputFile file_;
};

/// Writes each frame as a picture, numbered from 1 on.
class PngSequence : public FrameSink {
public:
    /// \throws ToolError
    explicit PngSequence(const OutputSettings& settings)
        : path_(settings.path), existing_(settings.existing), clock_(settings.clock) {}

    void Write(Image& frame, int64_t time) override;
    std::string Remark() const override;

private:
    NumberedPath path_;
    Existing existing_;
    FrameClock clock_;
    bool varies_ = false;  ///< The frames do not come at a constant rate.
    int number_ = 0;
    int64_t begin_ = 0;  ///< The time of the first frame.
};
