#pragma once

#include <array>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "ClipDecoder.h"
#include "ClipPath.h"
#include "PicturePass.h"

/// The bare path with the most throughput: libavcodec with frame threads, and a thread that decodes
/// and converts ahead of the PicturePass.
class AheadPath : public ClipPath {
public:
    /// \param clip must outlive this object.
    AheadPath(const Clip& clip, ShaderKind kind);
    ~AheadPath() override;

    bool wantsUnit() override;
    void give() override;
    bool show(int timeoutUs) override;
    int delay() const override { return decoder_.delay(); }

    GLuint target() const { return pass_.target(); }

private:
    static constexpr int64_t kPictures = 3;  ///< Converted, at most.

    void decodeAll();
    bool wait();

    ClipDecoder decoder_;
    PicturePass pass_;
    std::array<std::vector<unsigned char>, kPictures> pixels_;
    std::mutex mutex_;
    std::condition_variable changed_;
    int64_t given_ = 0;    ///< Units.
    int64_t decoded_ = 0;  ///< Pictures.
    int64_t shown_ = 0;
    bool ends_ = false;
    std::thread thread_;
};
