#pragma once

#include <GLES3/gl3.h>
#include <linux_platform/Host.h>

#include <memory>

#include "Clip.h"

enum class WayIn {
    kSevenFunctions,  ///< VERenderer.h
    kGuarded,         ///< VERendererExt.h
};

/// The library from units to drawn pictures, in lock-step: every picture is shown.
class LibraryPath {
public:
    /// \param clip must outlive this object.
    LibraryPath(const Clip& clip, JavaVM* machine, WayIn wayIn);
    ~LibraryPath();
    LibraryPath(const LibraryPath&) = delete;
    LibraryPath& operator=(const LibraryPath&) = delete;

    /// Shows the next \p count pictures, with glFinish after each. The decoder is idle before and
    /// after.
    void play(int count);

    GLuint target() const { return target_; }

private:
    void create(JavaVM* machine);
    void createGuarded(JavaVM* machine);
    void feed();
    bool showNext();

    const Clip& clip_;
    size_t unit_ = 0;
    void* handle_ = nullptr;
    HostDecoder* decoder_ = nullptr;
    int64_t seen_ = 0;  ///< Pictures.
    GLuint target_ = 0;
};
