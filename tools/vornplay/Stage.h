#pragma once

#include <jni.h>

#include <array>
#include <memory>
#include <optional>

#include "FrameSource.h"
#include "Mask.h"
#include "Options.h"

/// What keys the picture.
enum class MaskUse {
    kFile,    ///< The mask that the options name.
    kOpaque,  ///< An opaque one: all of the picture is seen, and the view moves.
    kNone,    ///< None: the picture has its own alpha, and the view stands still.
};

/// A clip at one point in time, with all that is drawn over it: what the options ask for, and what
/// the user or a script changes while it runs. Needs a current GL context.
class Stage {
public:
    /// Takes the first frame. \param file the input of \p options. \throws ToolError
    Stage(const Options& options, VideoFile file);

    /// Takes the next frame. \return false after the last one. \throws ToolError
    bool Next() { return source_->Next(); }
    void Draw() { source_->Draw(shot_); }
    /// The picture that was drawn last; valid until the next call. \throws ToolError
    const Image& ReadBack() { return source_->GetRenderer().ReadBack(); }

    /// Takes the frame of this time of the clip, or the nearest one. \throws ToolError
    void Seek(double seconds);
    double Seconds() const { return source_->Seconds(); }
    double FrameSeconds() const { return 1.0 / av_q2d(source_->File().FrameRate()); }

    /// Goes on to the next MaskUse that is possible. \throws ToolError
    void SwitchMask();
    MaskUse Masking() const { return masking_; }
    /// The mask from a file, if it is in use.
    const std::optional<Mask>& FileMask() const { return mask_; }

    /// What the next Draw() shows. The view has no effect unless ViewMoves().
    Shot& NextShot() { return shot_; }
    bool ViewMoves() const { return masking_ != MaskUse::kNone; }
    /// The view that the picture is seen in.
    View SeenView() const { return ViewMoves() ? shot_.view : View(); }

    const Options& GetOptions() const { return options_; }
    bool ByPlatform() const { return java_ != nullptr; }
    const FrameSource& Source() const { return *source_; }
    Size FrameSize() const { return source_->GetRenderer().FrameSize(); }

private:
    RendererSettings Settings() const;
    void Open(VideoFile file);
    void OpenAt(double seconds);
    void OpenMask(const VideoFile& file);
    std::unique_ptr<FrameSource> MakeSource(VideoFile file);
    uint8_t* NextMask();

    const Options& options_;
    std::optional<Image> sticker_;
    JavaVM* java_;
    MaskUse masking_;
    Shot shot_;
    double lastSeconds_;  ///< When the last frame is shown; 0 if not known.
    std::optional<Mask> mask_;
    std::array<uint8_t, 4> opaqueMask_ = {255, 255, 255, 255};  ///< Stretched over the picture.
    bool opaqueGiven_ = false;
    std::unique_ptr<FrameSource> source_;
};
