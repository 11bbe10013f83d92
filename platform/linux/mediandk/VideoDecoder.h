#pragma once

#include <functional>
#include <string>
#include <vector>

#include "InputBuffers.h"
#include "Picture.h"

/// One stream's decoder. Not thread-safe.
class VideoDecoder {
public:
    /// Takes a picture, in display order. \return false to be given no more.
    using Sink = std::function<bool(Picture picture)>;

    /// \return AV_CODEC_ID_NONE where the type cannot be decoded.
    static AVCodecID CodecOf(const std::string& mimeType);

    /// \param parameterSets those that the stream itself lacks; may be empty.
    VideoDecoder(AVCodecID codec, const std::vector<uint8_t>& parameterSets);

    bool IsOpen() const { return context_ != nullptr; }

    /// Logs and skips what cannot be decoded.
    /// \param reorderDepth how many pictures to hold back at least, for their order.
    void Decode(const InputUnit& unit, int reorderDepth, const Sink& sink);

    /// Hands out the pictures held back for their order.
    void Drain(const Sink& sink);

    /// Forgets the pictures that later ones may refer to.
    void Flush();

private:
    void Receive(const Sink& sink);

    av::CodecContext context_;
    av::Packet packet_;
};
