#include "window/LiveDecodePath.h"

#include <utility>

#include "DecodePath.h"

LiveDecodePath::LiveDecodePath(VideoFile file, const Options& options, RendererSettings settings,
                               MaskSource nextMask)
    : file_(std::move(file)),
      renderer_(ForUnits(std::move(settings), options, file_)),
      feed_(file_, renderer_),
      nextMask_(std::move(nextMask)) {
    feed_.SetStepping(true);
}

bool LiveDecodePath::Next() {
    do {
        if (frames_.delivered > 0) {
            feed_.Step();
        }
        if (!feed_.AwaitFrame(frames_.delivered, frames_)) {
            return false;
        }
    } while (!feed_.Show(frames_.unit));
    seconds_ = SecondsOf(file_, feed_.TimeOf(frames_.unit), count_++);
    if (uint8_t* mask = nextMask_()) {
        mask_ = mask;
    }
    return true;
}

void LiveDecodePath::Draw(const View& view) {
    if (mask_ != nullptr) {
        renderer_.HandOver(nullptr, std::exchange(mask_, nullptr));
    }
    renderer_.SetView(view);
    renderer_.Draw(nullptr, nullptr);
}
