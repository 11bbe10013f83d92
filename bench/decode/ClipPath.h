#pragma once

#include <vector>

#include "Clip.h"

/// A way from the units of a clip to drawn pictures. The clip repeats.
class ClipPath {
public:
    ClipPath() = default;
    virtual ~ClipPath() = default;
    ClipPath(const ClipPath&) = delete;
    ClipPath& operator=(const ClipPath&) = delete;

    /// Whether it takes a unit without waiting.
    virtual bool wantsUnit() = 0;
    /// Gives it the next unit.
    virtual void give() = 0;
    /// Draws the next picture, with glFinish after it. \return false if there is none in time
    virtual bool show(int timeoutUs) = 0;

    /// Pictures that it holds back: it shows the picture of the unit so many before the last one.
    virtual int delay() const { return 0; }

    /// Gives and shows \p count pictures.
    void play(int count);

    /// Gives and shows \p count pictures of each path, all on this thread.
    static void PlayAll(const std::vector<ClipPath*>& paths, int count);
};
