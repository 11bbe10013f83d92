#pragma once

#include <memory>
#include <string>
#include <vector>

#include "FrameSink.h"
#include "support/OutputFile.h"

struct WebPMux;

/// Writes an animated WebP with alpha. It stores every frame, also if it repeats the one before.
class WebpWriter : public FrameSink {
public:
    /// \throws ToolError
    explicit WebpWriter(const OutputSettings& settings);

    void Write(Image& frame, int64_t time) override;
    void Finish(bool cutShort) override;
    void Commit() override { file_.Commit(); }

private:
    struct DeleteAnimation {
        void operator()(WebPMux* animation) const;
    };

    int Milliseconds(int64_t time) const;
    void Push(int64_t end);

    std::string path_;
    OutputFile file_;
    FrameClock clock_;
    std::unique_ptr<WebPMux, DeleteAnimation> animation_;
    std::vector<uint8_t> last_;  ///< The last frame, compressed; it ends when the next one comes.
    int64_t begin_ = 0;          ///< When it begins.
};
