#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "Options.h"
#include "RunSummary.h"
#include "Stage.h"
#include "export/FrameQueue.h"
#include "export/Output.h"
#include "offscreen/OffscreenContext.h"

/// Plays without a window: draws every frame of the input, and writes the pictures if the options
/// name an output.
class Player {
public:
    /// Opens everything that the options name. \throws ToolError, OffscreenError
    explicit Player(const Options& options);

    /// Plays to the end. \return an ExitStatus
    int Play();

private:
    int64_t ExpectedFrames() const;
    void Remark(const std::string& remark) const;
    void ReportAudio() const;
    void DrawAll();
    bool IsOver();
    void DrawFrame();
    void SetShot();
    double SecondsDrawn() const;
    void ReportStop() const;
    int Report() const;
    RunSummary Summarize(int exitStatus) const;

    const Options& options_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    OffscreenContext context_;
    Stage stage_;
    std::optional<Output> output_;
    std::optional<FrameQueue> queue_;  ///< To the output.
    int64_t limit_;                    ///< Frames to draw at most; 0 for all.
    int64_t expected_;                 ///< Frames that will be drawn; 0 if not known.
    int64_t begin_;                    ///< The time of the first frame.
    int64_t end_ = 0;                  ///< How far the drawn frames reach, from there.
    int64_t out_ = 0;
    bool over_ = false;     ///< The duration that was asked for is drawn.
    bool stopped_ = false;  ///< By the user, before the end.
};
