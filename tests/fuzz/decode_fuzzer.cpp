// Compressed units and calls of any kind, with a decoder of any habits, in strict mode. The decoder
// is the real one. GL and Java are fakes.

#include <fuzzer/FuzzedDataProvider.h>
#include <linux_platform/Host.h>

#include <vector>

#include "Check.h"
#include "decode/FakeJvm.h"
#include "render/VERenderer.h"
#include "render/VERendererExt.h"

namespace {

constexpr size_t kMostBytes = 1500;
constexpr int kMostPixels = 200;

std::vector<uint8_t> ReadBytes(FuzzedDataProvider& input) {
    return input.ConsumeBytes<uint8_t>(input.ConsumeIntegralInRange<size_t>(0, kMostBytes));
}

void ChooseBehavior(FuzzedDataProvider& input) {
    HostBehavior behavior = {};
    if (input.ConsumeBool()) {
        behavior.failing = input.ConsumeIntegral<uint16_t>();
        behavior.error = input.PickValueInArray({0, 1100, 1101, -10005});
        behavior.failAfterPictures = input.ConsumeIntegralInRange(0, 4);
        behavior.inputCapacity = input.PickValueInArray<size_t>({0, 1, 64, kMostBytes});
        behavior.notices = input.ConsumeBool() ? 1 : 0;
    }
    HostDecoder_setBehavior(nullptr, &behavior);
}

void UseSevenFunctions(FuzzedDataProvider& input, VERendererMode mode) {
    // Too large a unit is the caller's fault.
    HostDecoder_setBehavior(nullptr, nullptr);
    void* handle = nullptr;
    CHECK(VECreateRendererHandle(&handle, 1, &mode, FakeJvm()) == 0);
    while (input.remaining_bytes() > 0) {
        std::vector<uint8_t> unit = ReadBytes(input);
        CHECK(VEUpdateCompressedData(handle, unit.data(), static_cast<int>(unit.size())) == 0);
        CHECK(VEUpdateRenderer(handle, nullptr, 0, true, nullptr) == 0);
    }
    VEDestroyRenderer(handle);
}

void QueueUnit(FuzzedDataProvider& input, VERenderer* renderer) {
    VEUnit unit = VEMakeUnit();
    unit.flags = input.ConsumeIntegralInRange(0, 7);
    unit.ptsUs = input.ConsumeIntegral<int64_t>();
    unit.waitUs = input.ConsumeIntegralInRange(-1, 3000);
    const std::vector<uint8_t> bytes = ReadBytes(input);
    unit.data = bytes.data();
    unit.size = bytes.size();
    VEDecoderState before = VEMakeDecoderState();
    VEDecoderState after = VEMakeDecoderState();
    CHECK(VEGetDecoderState(renderer, &before) == VE_OK);
    const VEResult result = VEQueueUnit(renderer, &unit);
    CHECK(result <= VE_AGAIN && result >= VE_ERROR_UNIT_SIZE);
    CHECK(VEGetDecoderState(renderer, &after) == VE_OK);
    CHECK(after.unitsQueued == before.unitsQueued + (result == VE_OK ? 1 : 0));
    CHECK(result != VE_ERROR_DECODER || after.result != VE_OK);
}

void UseGuarded(FuzzedDataProvider& input, const VERendererMode& mode) {
    VERendererOptions options = VEMakeRendererOptions();
    options.source = mode.modeType;
    options.sourceWidth = mode.textureWidth;
    options.sourceHeight = mode.textureHeight;
    options.outputTexture = 1;
    options.javaVM = FakeJvm();
    VERenderer* renderer = nullptr;
    if (VECreateRenderer(&options, &renderer) != VE_OK) {
        CHECK(renderer == nullptr);
        return;
    }
    while (input.remaining_bytes() > 0) {
        VEDrawn drawn = VEMakeDrawn();
        switch (input.ConsumeIntegralInRange(0, 9)) {
            case 0: VEFlush(renderer); break;
            case 1: VEDraw(renderer, nullptr, &drawn); break;
            default: QueueUnit(input, renderer); break;
        }
        CHECK(drawn.picture || !drawn.newPicture);
    }
    const VEResult result = VECloseRenderer(renderer, VE_CONTEXT_CURRENT);
    CHECK(result == VE_OK || result == VE_BUSY);
}

}  // namespace

/// The seven functions do not delete the decoder's format.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:MakeFormat\n";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    HostPlatform_setStrict(1);
    FuzzedDataProvider input(data, size);
    const int type = input.ConsumeBool() ? VE_MODE_H264 : VE_MODE_MJPEG;
    const bool guarded = input.ConsumeBool();
    const VERendererMode mode = {VE_OUTPUT_PICTURE,
                                 type,
                                 input.ConsumeIntegralInRange(1, kMostPixels),
                                 input.ConsumeIntegralInRange(1, kMostPixels),
                                 0,
                                 0,
                                 0};
    ChooseBehavior(input);
    guarded ? UseGuarded(input, mode) : UseSevenFunctions(input, mode);
    return 0;
}
