#pragma once

#include "ClipDecoder.h"
#include "ClipPath.h"
#include "PicturePass.h"

/// The least code that draws the pictures of a clip: libavcodec and a PicturePass, in lock-step. No
/// thread waits for another.
class LeastPath : public ClipPath {
public:
    /// \param clip must outlive this object.
    LeastPath(const Clip& clip, ShaderKind kind) : decoder_(clip), pass_(clip, kind) {}

    bool wantsUnit() override { return !waits_; }
    void give() override;
    bool show(int timeoutUs) override;
    /// Only converts one of them, \p count times.
    void convertOne(int count);

    GLuint target() const { return pass_.target(); }

private:
    ClipDecoder decoder_;
    PicturePass pass_;
    const AVFrame* converted_ = nullptr;  ///< By convertOne.
    std::vector<unsigned char> pixels_;
    bool waits_ = false;  ///< A picture.
};
