#pragma once

#include <memory>
#include <string>

#include "FrameSink.h"
#include "support/OutputFile.h"

struct WebPMux;

/// Writes an animated WebP with alpha. It stores every frame, also if it repeats the one before.
class WebpWriter : public FrameSink {
public:
    /// \throws ToolError
    WebpWriter(const std::string& path, AVRational frameRate);

    void Write(const Image& frame) override;
    void Finish(bool cutShort) override;

private:
    struct DeleteAnimation {
        void operator()(WebPMux* animation) const;
    };

    int Milliseconds(int64_t frame) const;

    std::string path_;
    OutputFile file_;
    AVRational frameRate_;
    std::unique_ptr<WebPMux, DeleteAnimation> animation_;
    int64_t frames_ = 0;
};
