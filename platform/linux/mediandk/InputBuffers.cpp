#include "InputBuffers.h"

#include <cstring>
#include <new>

#include "Wait.h"

namespace {

/// A large capacity costs address space only: pages beyond a unit's end are never touched.
av::Buffer NewStorage(size_t capacity) {
    av::Buffer storage(av_buffer_alloc(capacity + AV_INPUT_BUFFER_PADDING_SIZE));
    if (storage == nullptr) {
        throw std::bad_alloc();
    }
    return storage;
}

}  // namespace

ssize_t InputBuffers::Dequeue(int64_t timeoutUs) {
    std::unique_lock<std::mutex> lock(mutex_);
    const ssize_t status = WaitForFree(lock, timeoutUs);
    if (status < 0) {
        return status;
    }
    const size_t index = free_.front();
    Slot& slot = slots_[index];
    if (settings_.strict) {
        slot.strictBlock.reset(new uint8_t[settings_.capacity]);
    } else if (slot.storage == nullptr) {
        slot.storage = NewStorage(settings_.capacity);
    }
    free_.pop_front();
    slot.owner = Owner::kClient;
    return static_cast<ssize_t>(index);
}

ssize_t InputBuffers::WaitForFree(int64_t timeoutUs) {
    std::unique_lock<std::mutex> lock(mutex_);
    return WaitForFree(lock, timeoutUs);
}

ssize_t InputBuffers::WaitForFree(std::unique_lock<std::mutex>& lock, int64_t timeoutUs) {
    if (!WaitFor(freed_, lock, timeoutUs, [this] { return closed_ || !free_.empty(); })) {
        return AMEDIACODEC_INFO_TRY_AGAIN_LATER;
    }
    return closed_ ? static_cast<ssize_t>(AMEDIA_ERROR_INVALID_OPERATION) : 0;
}

uint8_t* InputBuffers::Data(size_t index, size_t* capacity) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!HeldByClient(index)) {
        return nullptr;
    }
    if (capacity != nullptr) {
        *capacity = settings_.capacity;
    }
    return settings_.strict ? slots_[index].strictBlock.get() : slots_[index].storage->data;
}

media_status_t InputBuffers::Queue(size_t index, size_t offset, size_t size, int64_t timeUs,
                                   uint32_t flags) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (closed_) {
        return AMEDIA_ERROR_INVALID_OPERATION;
    }
    if (!HeldByClient(index) || offset > Capacity() || size > Capacity() - offset) {
        return AMEDIA_ERROR_INVALID_PARAMETER;
    }
    Slot& slot = slots_[index];
    uint8_t* data =
        settings_.strict ? CopyToStorage(slot, offset, size) : slot.storage->data + offset;
    std::memset(data + size, 0, AV_INPUT_BUFFER_PADDING_SIZE);
    slot.owner = Owner::kDecoder;
    units_.push_back({index, queuedCount_++, &slot.storage, data, size, timeUs, flags});
    queued_.notify_one();
    return AMEDIA_OK;
}

std::optional<InputUnit> InputBuffers::Take() {
    std::unique_lock<std::mutex> lock(mutex_);
    queued_.wait(lock, [this] { return closed_ || !units_.empty(); });
    if (closed_) {
        return std::nullopt;
    }
    const InputUnit unit = units_.front();
    units_.pop_front();
    return unit;
}

void InputBuffers::GiveBack(const InputUnit& unit) {
    const std::lock_guard<std::mutex> lock(mutex_);
    Slot& slot = slots_[unit.index];
    if (av_buffer_is_writable(slot.storage.get()) == 0) {
        slot.storage = nullptr;  // libavcodec still reads it, and frees it later.
    }
    slot.owner = Owner::kNobody;
    free_.push_back(unit.index);
    freed_.notify_all();  // A client and a host may both wait.
}

void InputBuffers::Close() {
    const std::lock_guard<std::mutex> lock(mutex_);
    closed_ = true;
    freed_.notify_all();
    queued_.notify_all();
}

bool InputBuffers::HeldByClient(size_t index) const {
    return index < kCount && slots_[index].owner == Owner::kClient;
}

uint8_t* InputBuffers::CopyToStorage(Slot& slot, size_t offset, size_t size) {
    slot.storage = NewStorage(size);
    std::memcpy(slot.storage->data, slot.strictBlock.get() + offset, size);
    slot.strictBlock = nullptr;
    return slot.storage->data;
}
