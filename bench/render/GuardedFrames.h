#pragma once

#include "FrameCase.h"
#include "render/VERendererExt.h"

/// \name Options that differ in one from the usual ones
/// \{
VERendererOptions KeepingState();
VERendererOptions DrawingLater();
VERendererOptions DrawingOnce();
/// \}

/// A guarded renderer of raw frames, as an application uses it.
class GuardedFrames {
public:
    /// \param options what differs from a renderer of the frame's size in RGBA.
    explicit GuardedFrames(const FrameCase& frame,
                           VERendererOptions options = VEMakeRendererOptions());
    ~GuardedFrames();
    GuardedFrames(const GuardedFrames&) = delete;
    GuardedFrames& operator=(const GuardedFrames&) = delete;

    void draw(const void* pixels, float zoom) const;
    void draw(const VEDrawOptions& options) const;

    GLuint target() const { return target_; }

private:
    GLuint target_ = 0;
    VERenderer* renderer_ = nullptr;
};
