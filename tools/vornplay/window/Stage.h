#pragma once

#include <jni.h>

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "Mask.h"
#include "Options.h"
#include "window/LivePath.h"

/// What keys the picture.
enum class MaskUse {
    kFile,   ///< The mask that the options name.
    kWhole,  ///< An opaque one: all of the picture is seen, and the view moves.
    kNone,   ///< None: the picture with its own alpha, and the view stands still.
};

/// A clip at some place of it, and all that is laid over it. Needs a current GL context.
class Stage {
public:
    /// Takes the first frame. \throws ToolError
    Stage(const Options& options, VideoFile file);

    /// Takes the next frame. \return false after the last one. \throws ToolError
    bool Next() { return path_->Next(); }
    void Draw();

    /// Takes the frame of this time of the clip, or the nearest there is. \throws ToolError
    void Seek(double seconds);
    double Seconds() const { return path_->Seconds(); }
    double FrameSeconds() const { return 1.0 / av_q2d(path_->File().FrameRate()); }

    /// Goes on to the next way of masking that there is. \throws ToolError
    void SwitchMask();
    MaskUse Masking() const { return masking_; }
    bool ViewMoves() const { return masking_ != MaskUse::kNone; }

    /// What the next Draw() shows.
    /// \{
    View& Looking() { return view_; }
    /// The view that pictures are seen in, which is another where it stands still.
    View Seen() const { return ViewMoves() ? view_ : View(); }
    VEStickerList& Stickers() { return positions_; }
    bool& Mirrored() { return mirrored_; }
    /// \}

    const Options& Asked() const { return options_; }
    bool ByPlatform() const { return machine_ != nullptr; }
    LivePath& Path() { return *path_; }
    const LivePath& Path() const { return *path_; }
    Size FrameSize() const { return path_->Target().FrameSize(); }

private:
    RendererSettings Settings() const;
    void Open(VideoFile file);
    void OpenAt(double seconds);
    void OpenMask(const VideoFile& file);
    std::unique_ptr<LivePath> MakePath(VideoFile file);
    uint8_t* NextMask();

    const Options& options_;
    JavaVM* machine_;
    Image sticker_;
    MaskUse masking_;
    View view_;
    VEStickerList positions_;
    bool mirrored_;
    std::optional<Mask> mask_;
    /// Stretched over the picture.
    std::array<uint8_t, 4> opaqueMask_ = {255, 255, 255, 255};
    bool opaqueGiven_ = false;
    double lastSeconds_ = 0.0;  ///< When the last frame is shown; 0 where nobody knows.
    std::unique_ptr<LivePath> path_;
};
