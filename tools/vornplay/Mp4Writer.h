#pragma once

#include <memory>
#include <string>
#include <vector>

#include "FrameSink.h"
#include "support/Backdrop.h"
#include "support/PendingFile.h"

/// Writes H.264 video of a constant frame rate, the frames laid over a backdrop.
class Mp4Writer : public FrameSink {
public:
    /// \throws ToolError
    Mp4Writer(const std::string& path, Size size, AVRational frameRate, const Backdrop& backdrop);

    void Write(const Image& frame) override;
    void Finish() override;

private:
    struct CloseOutput {
        void operator()(AVFormatContext* output) const;
    };

    void OpenEncoder(Size size, AVRational frameRate);
    void OpenFile();
    void PrepareFrame();
    void Encode(const AVFrame* frame);
    void Check(int result) const;

    std::string path_;
    PendingFile file_;
    Backdrop backdrop_;
    std::unique_ptr<AVFormatContext, CloseOutput> output_;
    LibavPtr<AVCodecContext> encoder_;
    LibavPtr<SwsContext> scaler_;
    LibavPtr<AVFrame> frame_{av_frame_alloc()};
    LibavPtr<AVPacket> packet_{av_packet_alloc()};
    std::vector<uint8_t> rgb_;
};
