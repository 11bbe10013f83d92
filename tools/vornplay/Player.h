#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

#include "FramePath.h"
#include "Mask.h"
#include "Options.h"
#include "RunSummary.h"
#include "export/Output.h"
#include "offscreen/OffscreenContext.h"

/// Draws every frame of the input and writes what comes out.
class Player {
public:
    /// Opens everything that the options name. \throws ToolError, OffscreenError
    explicit Player(const Options& options);

    /// Plays to the end. \return an ExitStatus
    int Play();

private:
    RendererSettings Settings() const;
    uint8_t* NextMask();
    int64_t ExpectedFrames() const;
    View ViewOf(int64_t frame) const;
    void Direct(int64_t frame);
    void DrawAll();
    bool DrawNext();
    void ReportAudio() const;
    void ReportStop() const;
    int Report() const;
    RunSummary Summarize(int exitStatus) const;

    const Options& options_;
    std::optional<Mask> mask_;
    /// Stands in where only the view is wanted: one pixel, stretched over the picture.
    std::array<uint8_t, 4> opaqueMask_ = {255, 255, 255, 255};
    OffscreenContext context_;
    std::unique_ptr<FramePath> path_;
    std::optional<Output> output_;
    int64_t expected_ = 0;
    int64_t limit_ = 0;
    View view_;  ///< Of the next frame.
    int64_t out_ = 0;
    bool stopped_ = false;  ///< By the user, before the end.
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};
