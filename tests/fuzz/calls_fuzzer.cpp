// Calls of both interfaces in any order, for several renderers on two contexts. After each call,
// all pictures of the context must be right.

#include <EGL/egl.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "Check.h"
#include "ext/ExtRenderer.h"

namespace {

constexpr Size kSize = {24, 20};

/// What a scene refers to.
struct Images {
    Image source{kSize};
    Image mask{kSize};
    Image sticker{kSize};
};

struct Slot {
    std::unique_ptr<RendererHarness> plain;
    std::unique_ptr<ExtRenderer> guarded;
    std::unique_ptr<Images> images;  ///< Of the last scene: those of the next one lie elsewhere.
    Image shown{kSize};
    bool drawn = false;

    bool Empty() const { return plain == nullptr && guarded == nullptr; }
};

struct World {
    TestContext context;
    EGLContext handle = eglGetCurrentContext();
    std::array<Slot, 3> slots;

    void MakeCurrent() const {
        CHECK(eglMakeCurrent(eglGetCurrentDisplay(), EGL_NO_SURFACE, EGL_NO_SURFACE, handle) ==
              EGL_TRUE);
    }

    /// VEDestroyRenderer may delete framebuffers of the other renderers of the context.
    void Clear() { slots = {}; }

    void CheckPictures() const {
        for (const Slot& slot : slots) {
            if (slot.drawn) {
                const Image now = slot.plain ? slot.plain->readBack() : slot.guarded->readBack();
                CHECK(now.pixels == slot.shown.pixels);
            }
        }
    }
};

void Create(FuzzedDataProvider& input, World& world, Slot& slot) {
    if (slot.plain != nullptr) {
        world.Clear();
    }
    slot = Slot();
    const bool rgb = input.ConsumeBool();
    const bool masked = input.ConsumeBool();
    if (input.ConsumeBool()) {
        slot.plain = std::make_unique<RendererHarness>(VERendererMode{
            masked ? VE_OUTPUT_MASKED : VE_OUTPUT_PICTURE, rgb ? VE_MODE_RGB : VE_MODE_RGBA,
            kSize.width, kSize.height, VE_MASK_RGBA, kSize.width, kSize.height});
        return;
    }
    VERendererOptions options =
        OptionsOf(input.PickValueInArray({VE_SOURCE_RGB, VE_SOURCE_RGBA, VE_SOURCE_TEXTURE_2D}),
                  kSize.width, kSize.height);
    options.keepState = input.ConsumeBool();
    options.drawOnce = input.ConsumeBool();
    slot.guarded = std::make_unique<ExtRenderer>(
        masked ? WithMask(options, Image(kSize), VE_MASK_RGBA) : options);
}

Scene ReadScene(FuzzedDataProvider& input, Images& images, const Slot& slot) {
    const auto seed = input.ConsumeIntegral<uint8_t>();
    images = {Opaque(Noise(kSize, seed)), Noise(kSize, seed + 300U), Noise({5, 4}, seed + 600U)};
    std::fill_n(images.mask.At(0, 3), 5 * Image::kChannels, uint8_t{0});
    Scene scene;
    scene.source = &images.source;
    scene.colorMirror = input.ConsumeBool();
    const bool masked =
        slot.plain ? slot.plain->mode.outputMode == VE_OUTPUT_MASKED : input.ConsumeBool();
    scene.mask = masked ? &images.mask : nullptr;
    const bool fits = slot.guarded != nullptr && input.ConsumeBool();
    if (fits) {
        scene.zoom = VE_ZOOM_FIT;
    } else if (slot.guarded != nullptr || masked) {
        scene.viewX = input.ConsumeFloatingPointInRange(-1.0F, 1.0F);
        scene.zoom = input.ConsumeFloatingPointInRange(0.0F, 4.0F);
    }
    if (slot.guarded != nullptr) {
        scene.viewY = fits ? 0 : input.ConsumeFloatingPointInRange(-1.0F, 1.0F);
        scene.rotation = 180 * input.ConsumeIntegralInRange(0, 1);
    }
    for (int i = input.ConsumeIntegralInRange(0, 2); i > 0; --i) {
        scene.sticker = &images.sticker;
        scene.stickers.emplace_back(input.ConsumeIntegralInRange(-1, kSize.width),
                                    input.ConsumeIntegralInRange(-1, kSize.height));
    }
    scene.clear = {seed, 20, 30, 40};
    return scene;
}

void Show(FuzzedDataProvider& input, Slot& slot) {
    if (slot.Empty()) {
        return;
    }
    auto images = std::make_unique<Images>();
    const Scene scene = ReadScene(input, *images, slot);
    slot.plain ? slot.plain->show(scene) : slot.guarded->show(scene);
    slot.shown = slot.plain ? slot.plain->readBack() : slot.guarded->readBack();
    ExpectMayShow(slot.shown, scene);
    slot.drawn = true;
    slot.images = std::move(images);
}

/// Calls that draw nothing, many of them wrong.
void Disturb(FuzzedDataProvider& input, const Slot& slot) {
    void* handle = slot.plain ? slot.plain->handle : slot.guarded ? slot.guarded->handle : nullptr;
    auto* guarded = static_cast<VERenderer*>(handle);
    std::vector<uint8_t> bytes = input.ConsumeBytes<uint8_t>(8);
    VEUnit unit = VEMakeUnit();
    VEDrawOptions draw = VEMakeDrawOptions();
    draw.rotation = 45;
    VEUpdateCompressedData(handle, bytes.data(), static_cast<int>(bytes.size()));
    VEUpdateUserPosition(handle, 5.0F, 6.0F, 7.0F, 8.0F);
    CHECK(VEQueueUnit(guarded, &unit) < VE_OK);
    CHECK(VEDraw(guarded, &draw, nullptr) < VE_OK);
    CHECK(VEFlush(guarded) < VE_OK);
    CHECK(slot.guarded != nullptr || VECloseRenderer(guarded, VE_CONTEXT_CURRENT) < VE_OK);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    testing::GTEST_FLAG(break_on_failure) = true;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static World worlds[2];
    FuzzedDataProvider input(data, size);
    World* world = &worlds[0];
    world->MakeCurrent();
    while (input.remaining_bytes() > 0) {
        Slot& slot = world->slots[input.ConsumeIntegralInRange<size_t>(0, 2)];
        switch (input.ConsumeIntegralInRange(0, 7)) {
            case 0: world = &worlds[input.ConsumeIntegralInRange(0, 1)]; break;
            case 1:
            case 2: Create(input, *world, slot); break;
            case 3: Disturb(input, slot); break;
            default: Show(input, slot); break;
        }
        world->MakeCurrent();
        world->CheckPictures();
    }
    for (World& each : worlds) {
        each.MakeCurrent();
        each.Clear();
    }
    return 0;
}
