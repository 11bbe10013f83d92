#pragma once

#include <GLES3/gl3.h>
#include <linux_platform/Host.h>

#include <memory>

#include "ClipPath.h"

enum class WayIn {
    kSevenFunctions,  ///< VERenderer.h
    kGuarded,         ///< VERendererExt.h
};

/// The library from units to drawn pictures, in lock-step: every picture is shown.
class LibraryPath final : public ClipPath {
public:
    /// \param clip must outlive this object.
    LibraryPath(const Clip& clip, JavaVM* machine, WayIn wayIn);
    ~LibraryPath() override;

    bool wantsUnit() override;
    void give() override;
    bool show(int timeoutUs) override;

    GLuint target() const { return target_; }

private:
    void create(JavaVM* machine);
    void createGuarded(JavaVM* machine);

    const Clip& clip_;
    size_t unit_ = 0;
    void* handle_ = nullptr;
    HostDecoder* decoder_ = nullptr;
    int64_t seen_ = 0;  ///< Pictures.
    GLuint target_ = 0;
};
