#include "PixelSource.h"

#include <utility>

#include "support/ToolError.h"

namespace {

/// Photos have their display matrix in the picture.
PictureShape ShapeOf(const VideoFile& file, const AVFrame& first,
                     const RendererSettings& settings) {
    PictureShape shape = settings.shape;
    const AVFrameSideData* matrix = av_frame_get_side_data(&first, AV_FRAME_DATA_DISPLAYMATRIX);
    if (settings.turn && file.DisplayMatrix() == nullptr && matrix != nullptr) {
        shape.TurnBy(reinterpret_cast<const int32_t*>(matrix->data));
    }
    return shape;
}

RendererSettings For(const VideoFile& file, const AVFrame& first, RendererSettings settings) {
    settings.input = file.Path();
    settings.shape = ShapeOf(file, first, settings);
    if (settings.size.width == 0) {
        settings.size = settings.shape.Upright({first.width, first.height});
    }
    settings.sourceSize = settings.shape.Turned(settings.size);
    return settings;
}

AVPixelFormat FormatOf(const RendererSettings& settings) {
    return settings.source == VE_SOURCE_RGB ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_RGBA;
}

}  // namespace

PixelSource::PixelSource(VideoFile file, const RendererSettings& settings, MaskSource nextMask)
    : FrameSource(std::move(nextMask)),
      reader_(std::move(file), settings.keepInterlaced),
      first_(&reader_.First()),
      renderer_(For(reader_.Reader().File(), *first_, settings)),
      converter_(renderer_.Settings().sourceSize, FormatOf(settings),
                 renderer_.Settings().shape.flip) {}

std::vector<std::string> PixelSource::Remarks() const {
    std::vector<std::string> remarks = FrameSource::Remarks();
    remarks.insert(remarks.end(), reader_.Remarks().begin(), reader_.Remarks().end());
    return remarks;
}

bool PixelSource::Next() {
    const AVFrame* frame = first_ != nullptr ? std::exchange(first_, nullptr) : reader_.Next();
    if (frame == nullptr) {
        return false;
    }
    av_frame_unref(taken_.get());
    if (av_frame_ref(taken_.get(), frame) < 0) {
        throw ToolError(File().Path() + ": out of memory");
    }
    NoteTime(frame->pts);
    AskForMask();
    handedOver_ = false;
    return true;
}

void PixelSource::Draw(const Shot& shot) {
    const uint8_t* frame = std::exchange(handedOver_, true) ? nullptr : converter_.Convert(*taken_);
    renderer_.Draw(shot, frame, TakeMask());
}
