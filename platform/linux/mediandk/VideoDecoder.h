#pragma once

#include <functional>
#include <string>
#include <vector>

#include "InputBuffers.h"
#include "Picture.h"

/// The tag of the media library's log lines.
constexpr char kMediaLogTag[] = "MediaCodec";

/// One stream's decoder. Not thread-safe.
class VideoDecoder {
public:
    /// Receives a picture, in display order. \return false to stop.
    using Sink = std::function<bool(Picture picture)>;

    /// \return AV_CODEC_ID_NONE if the type is not supported.
    static AVCodecID CodecOf(const std::string& mimeType);

    /// \param parameterSets those that the stream does not contain; may be empty.
    /// \param padsPictures as FormatOf does.
    VideoDecoder(AVCodecID codec, const std::vector<uint8_t>& parameterSets, bool padsPictures);

    bool IsOpen() const { return context_ != nullptr; }

    /// Logs and skips what it cannot decode.
    /// \param reorderDepth the fewest pictures to hold back.
    void Decode(const InputUnit& unit, int reorderDepth, const Sink& sink);

    /// Outputs the pictures that are held back.
    void Drain(const Sink& sink);

    /// Drops the pictures that are held back and those that others may refer to.
    void Flush();

private:
    void Receive(const Sink& sink);

    const bool padsPictures_;
    av::CodecContext context_;
    av::Packet packet_;
};
