#include "DecodeSession.h"

#include <utility>

DecodeSession::DecodeSession(std::unique_ptr<VideoDecoder> decoder,
                             const InputBuffers::Settings& input, const PictureFormat& announced,
                             std::shared_ptr<FrameFlow> flow)
    : decoder_(std::move(decoder)),
      input_(input),
      output_(announced),
      flow_(std::move(flow)),
      thread_(&DecodeSession::Run, this) {}

DecodeSession::~DecodeSession() {
    if (thread_.joinable()) {
        Stop();
    }
}

std::unique_ptr<VideoDecoder> DecodeSession::Stop() {
    input_.Close();
    output_.Close();
    thread_.join();
    return std::move(decoder_);
}

void DecodeSession::Run() {
    bool ended = false;
    while (!ended) {
        const auto unit = input_.Take();
        if (!unit) {
            return;
        }
        DecodeUnit(*unit);
        ended = (unit->flags & AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM) != 0;
        input_.GiveBack(*unit);
    }
}

void DecodeSession::DecodeUnit(const InputUnit& unit) {
    const auto push = [this](Picture picture) { return output_.Push(std::move(picture)); };
    if (unit.size > 0) {
        decoder_->Decode(unit, flow_->ReorderDepth(), push);
    }
    if ((unit.flags & AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM) != 0) {
        decoder_->Drain(push);
        Picture end;
        end.timeUs = unit.timeUs;
        output_.Push(std::move(end));
    }
}
