#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "FrameSink.h"
#include "Mask.h"
#include "Options.h"
#include "Renderer.h"
#include "offscreen/OffscreenContext.h"
#include "support/FrameConverter.h"
#include "support/VideoReader.h"

/// Draws every frame of the input and writes what comes out.
class Player {
public:
    /// Opens everything that the options name. \throws ToolError, OffscreenError
    explicit Player(const Options& options);

    /// Plays to the end. \return an ExitStatus
    int Play();

private:
    RendererSettings Settings() const;
    int64_t ExpectedFrames() const;
    View ViewOf(int64_t frame) const;
    const AVFrame* NextFrame();
    void Submit(const AVFrame& frame);
    void WriteDrawn();
    int Report() const;

    const Options& options_;
    VideoReader reader_;
    const AVFrame& first_;
    Size size_;
    FrameConverter converter_;
    std::optional<Mask> mask_;
    int64_t expected_ = 0;
    int64_t limit_ = 0;
    OffscreenContext context_;
    std::optional<Renderer> renderer_;
    std::unique_ptr<FrameSink> sink_;
    int64_t in_ = 0;
    int64_t out_ = 0;
};
