#include "WebpWriter.h"

#include <webp/encode.h>
#include <webp/mux.h>

#include "support/ToolError.h"

namespace {

/// A compressed picture.
struct Memory {
    Memory() { WebPMemoryWriterInit(&writer); }
    ~Memory() { WebPMemoryWriterClear(&writer); }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    WebPMemoryWriter writer{};
};

/// A picture in libwebp's own form.
struct Picture {
    Picture() { WebPPictureInit(&picture); }
    ~Picture() { WebPPictureFree(&picture); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    WebPPicture picture{};
};

WebPConfig Quality() {
    constexpr float kQuality = 85.0F;
    constexpr int kQuick = 2;
    WebPConfig config;
    WebPConfigInit(&config);
    config.quality = kQuality;
    config.method = kQuick;
    return config;
}

bool Compress(const Image& frame, Memory& memory) {
    static const WebPConfig kQuality = Quality();
    Picture image;
    WebPPicture& picture = image.picture;
    picture.width = frame.size.width;
    picture.height = frame.size.height;
    picture.writer = WebPMemoryWrite;
    picture.custom_ptr = &memory.writer;
    return WebPPictureImportRGBA(&picture, frame.pixels.data(),
                                 frame.size.width * Image::kChannels) != 0 &&
           WebPEncode(&kQuality, &picture) != 0;
}

}  // namespace

void WebpWriter::DeleteAnimation::operator()(WebPMux* animation) const {
    WebPMuxDelete(animation);
}

WebpWriter::WebpWriter(const OutputSettings& settings)
    : path_(settings.path),
      file_(settings.path, settings.existing),
      clock_(settings.clock),
      animation_(WebPMuxNew()) {
    const WebPMuxAnimParams forever = {0, 0};
    WebPMuxSetAnimationParams(animation_.get(), &forever);
}

/// A time on the format's clock.
int WebpWriter::Milliseconds(int64_t time) const {
    return static_cast<int>(av_rescale_q(time, clock_.tick, {1, 1000}));
}

/// Adds the last frame. \param end when the next one begins
void WebpWriter::Push(int64_t end) {
    WebPMuxFrameInfo info{};
    info.id = WEBP_CHUNK_ANMF;
    info.bitstream = {last_.data(), last_.size()};
    info.duration = Milliseconds(end) - Milliseconds(begin_);
    info.dispose_method = WEBP_MUX_DISPOSE_NONE;
    info.blend_method = WEBP_MUX_NO_BLEND;  // The frame's alpha replaces what was there.
    if (WebPMuxPushFrame(animation_.get(), &info, 1) != WEBP_MUX_OK) {
        throw ToolError(path_ + ": libwebp does not take the frame");
    }
}

void WebpWriter::Write(Image& frame, int64_t time) {
    if (!last_.empty()) {
        Push(time);
    }
    Memory memory;
    if (!Compress(frame, memory)) {
        throw ToolError(path_ + ": a frame of this size cannot be made a WebP");
    }
    last_.assign(memory.writer.mem, memory.writer.mem + memory.writer.size);
    begin_ = time;
}

void WebpWriter::Finish(bool /*cutShort*/) {
    Push(begin_ + clock_.frame);
    WebPData data;
    WebPDataInit(&data);
    const WebPMuxError result = WebPMuxAssemble(animation_.get(), &data);
    const std::unique_ptr<WebPData, void (*)(WebPData*)> guard(&data, WebPDataClear);
    if (result != WEBP_MUX_OK) {
        throw ToolError(path_ + ": libwebp cannot put the frames together");
    }
    file_.Write(data.bytes, data.size);
    file_.Close();
}
