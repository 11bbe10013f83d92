#include "OutputBuffers.h"

#include <algorithm>
#include <utility>

#include "Wait.h"

namespace {

void Describe(const Picture& picture, AMediaCodecBufferInfo* info) {
    const bool end = picture.frame == nullptr;
    info->offset = 0;
    info->size = end ? 0 : static_cast<int32_t>(PlanarSize(picture.format));
    info->presentationTimeUs = picture.timeUs;
    info->flags = end ? AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM : 0;
}

}  // namespace

bool OutputBuffers::Push(Picture picture) {
    std::unique_lock<std::mutex> lock(mutex_);
    roomMade_.wait(lock, [this] { return closed_ || HasRoom(); });
    if (closed_) {
        return false;
    }
    Slot* slot = FindFree();
    slot->owner = Owner::kQueue;
    slot->picture = std::move(picture);
    queue_.push_back(slot);
    pushed_.notify_one();
    return true;
}

ssize_t OutputBuffers::Dequeue(AMediaCodecBufferInfo* info, int64_t timeoutUs) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (!WaitFor(pushed_, lock, timeoutUs, [this] { return closed_ || !queue_.empty(); })) {
        return AMEDIACODEC_INFO_TRY_AGAIN_LATER;
    }
    if (closed_) {
        return AMEDIA_ERROR_INVALID_OPERATION;
    }
    Slot* slot = queue_.front();
    if (slot->picture.frame != nullptr && slot->picture.format != announced_) {
        announced_ = slot->picture.format;
        return AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED;
    }
    queue_.pop_front();
    roomMade_.notify_one();
    slot->owner = Owner::kClient;
    Describe(slot->picture, info);
    return slot - slots_.data();
}

uint8_t* OutputBuffers::Data(size_t index, size_t* size) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!HeldByClient(index) || slots_[index].picture.frame == nullptr) {
        return nullptr;
    }
    Slot& slot = slots_[index];
    if (slot.planes.empty()) {
        slot.planes.resize(PlanarSize(slot.picture.format));
        ConvertToPlanar(slot.picture, slot.planes.data());
    }
    if (size != nullptr) {
        *size = slot.planes.size();
    }
    return slot.planes.data();
}

media_status_t OutputBuffers::Release(size_t index, Picture* picture) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (closed_) {
        return AMEDIA_ERROR_INVALID_OPERATION;
    }
    if (!HeldByClient(index)) {
        return AMEDIA_ERROR_INVALID_PARAMETER;
    }
    *picture = std::exchange(slots_[index], Slot()).picture;
    roomMade_.notify_one();
    return AMEDIA_OK;
}

PictureFormat OutputBuffers::Format() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return announced_;
}

void OutputBuffers::Close() {
    const std::lock_guard<std::mutex> lock(mutex_);
    closed_ = true;
    roomMade_.notify_all();
    pushed_.notify_all();
}

bool OutputBuffers::HasRoom() {
    return queue_.size() < kMostQueued && FindFree() != nullptr;
}

OutputBuffers::Slot* OutputBuffers::FindFree() {
    auto* found = std::find_if(slots_.begin(), slots_.end(),
                               [](const Slot& slot) { return slot.owner == Owner::kNobody; });
    return found != slots_.end() ? found : nullptr;
}

bool OutputBuffers::HeldByClient(size_t index) const {
    return index < kCount && slots_[index].owner == Owner::kClient;
}
