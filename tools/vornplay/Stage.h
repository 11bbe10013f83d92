#pragma once

#include <jni.h>

#include <memory>
#include <optional>

#include "FrameSource.h"
#include "Mask.h"
#include "Options.h"
#include "support/StampScan.h"

/// A clip at one point in time, with all that is drawn over it: what the options ask for, and what
/// the user or a script changes while it runs. Needs a current GL context.
class Stage {
public:
    /// Takes the first frame of a range. \param file the input of \p options. \throws ToolError
    Stage(const Options& options, VideoFile file, const PartRange& range = {});

    /// Takes the next frame. \return false after the last one. \throws ToolError
    bool Next() { return source_->Next(); }
    void Draw() { source_->Draw(shot_); }
    /// The picture that was drawn last; valid until the next call. \throws ToolError
    const Image& ReadBack() { return source_->GetRenderer().ReadBack(); }
    /// The same into an image of FrameSize(). \throws ToolError
    void ReadBack(Image& image) { source_->GetRenderer().ReadBack(image); }

    /// Takes the frame of this time of the clip, or the nearest one. Does nothing for stdin.
    /// \throws ToolError
    void Seek(double seconds);
    /// Takes the last frame. \throws ToolError
    void SeekToEnd() { OpenAtEnd(Seconds()); }
    /// Takes the frame before the current one, if there is one. \throws ToolError
    void StepBack();
    /// When the last frame ends; 0 if not known.
    double EndSeconds() const;
    /// Whether the time stamps of the clip begin again.
    bool StampsRestart() const;
    double Seconds() const { return source_->Seconds(); }
    double FrameSeconds() const { return 1.0 / av_q2d(source_->File().FrameRate()); }

    /// The mask, if the options name one.
    const std::optional<Mask>& GetMask() const { return mask_; }

    /// What the next Draw() shows.
    Shot& NextShot() { return shot_; }
    const Shot& NextShot() const { return shot_; }

    const Options& GetOptions() const { return options_; }
    bool ByPlatform() const { return java_ != nullptr; }
    const FrameSource& Source() const { return *source_; }
    Size FrameSize() const { return source_->GetRenderer().FrameSize(); }

private:
    Stage(const Options& options, VideoFile&& file, const PartRange& range,
          const std::optional<StampScan>& scan);
    RendererSettings Settings(const VideoFile& file) const;
    void Open(VideoFile file);
    bool CanSeek() const;
    void OpenAt(double seconds);
    void OpenAtEnd(double reached);
    double TimeBefore(double seconds);
    void OpenMask(const VideoFile& file);
    uint8_t* NextMask();
    std::unique_ptr<FrameSource> MakeSource(VideoFile file);

    const Options& options_;
    std::optional<Image> sticker_;
    PartRange range_;
    JavaVM* java_;
    Shot shot_;
    bool stampsRestart_;  ///< As far as known.
    double lastSeconds_;  ///< When the last frame is shown; 0 if not known.
    std::optional<Mask> mask_;
    std::unique_ptr<FrameSource> source_;
};
