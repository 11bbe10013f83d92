#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "Inputs.h"
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
    /// \param range what to draw: all, or a part
    explicit Player(const Options& options, const PartRange& range = {});

    /// Plays to the end. A part that is stopped is not kept. \return an ExitStatus
    /// \throws ToolError
    int Play();

    const FrameSource& Source() const { return stage_->Source(); }
    /// When the last frame that was drawn ends, in ticks from the beginning of the run.
    int64_t End() const { return end_; }
    /// The clip goes on after what was asked for.
    bool IsCutShort() const { return over_; }
    /// Of what was played.
    const RunSummary& Summary() const { return summary_; }

private:
    Player(const Options& options, const PartRange& range, VideoFile file);
    const VideoFile& Whole() const;
    int64_t Expected() const;
    bool IsWronglyCut() const;
    /// A part that is stopped must not be taken for a whole one.
    bool Keeps() const { return out_ > 0 && !(stopped_ && range_.isPart); }
    int64_t Limited(int64_t available) const;
    void Remark(const std::string& remark) const;
    void ReportAudio() const;
    void DrawAll();
    bool NextFrame();
    void OpenNext();
    bool IsOver();
    int64_t Rescaled(int64_t ticks) const;
    int64_t Time() const;
    void DrawFrame();
    void SetShot();
    double SecondsDrawn() const;
    void ReportStop() const;
    void ReportInput();
    int Report();

    const Options& options_;
    Options current_;  ///< With the input that is played.
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    OffscreenContext context_;
    PartRange range_;
    std::optional<VideoFile> whole_;  ///< Of a part: the clip from its start, which is not read.
    JoinedInputs joined_;
    std::optional<Stage> stage_;
    std::optional<Output> output_;
    std::optional<FrameQueue> queue_;  ///< To the output.
    int64_t limit_ = 0;                ///< Frames to draw at most; 0 for all.
    int64_t inAll_ = 0;                ///< Frames of all parts; 0 if not known.
    int64_t expected_ = 0;             ///< Frames that will be drawn; 0 if not known.
    size_t played_ = 1;                ///< Inputs up to the one that is played.
    // Times are in ticks of the joined inputs' clock, from the first frame on.
    int64_t shift_ = 0;  ///< From times of the input to those of the output.
    int64_t time_ = 0;   ///< Of the last drawn frame.
    int64_t end_ = 0;    ///< How far the drawn frames reach.
    int64_t out_ = 0;
    int64_t outBefore_ = 0;  ///< By the inputs before.
    RunSummary summary_;     ///< Of the inputs before.
    bool broken_ = false;    ///< An input is.
    bool over_ = false;      ///< The duration or the part that was asked for is drawn.
    bool stopped_ = false;   ///< By the user, before the end.
};
