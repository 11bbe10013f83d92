// The heap runs out, at each allocation of the library's in turn.

#include <dlfcn.h>
#include <link.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <new>

#include "ext/ExtRenderer.h"
#include "ext/GlNameCount.h"

namespace {

/// How many more allocations succeed; negative for all.
thread_local int allocationsLeft = -1;

/// GL's own allocations always succeed.
bool IsOfTheLibrary(void* caller) {
    dl_find_object object;
    return _dl_find_object(caller, &object) == 0 &&
           std::strstr(object.dlfo_link_map->l_name, "libvornrenderer") != nullptr;
}

}  // namespace

__attribute__((noinline)) void* operator new(size_t size) {
    if (allocationsLeft >= 0 && IsOfTheLibrary(__builtin_return_address(0))) {
        if (allocationsLeft == 0) {
            throw std::bad_alloc();
        }
        --allocationsLeft;
    }
    return std::malloc(size == 0 ? 1 : size);
}
__attribute__((noinline)) void operator delete(void* block) noexcept {
    std::free(block);
}
__attribute__((noinline)) void operator delete(void* block, size_t) noexcept {
    std::free(block);
}

namespace {

TEST(ExtMemory, CreationGivesAResultAndLeavesNothingAndADrawNeedsNone) {
    const TestContext context;
    VERendererOptions options = OptionsOf(VE_SOURCE_RGBA, 8, 6);
    options.maskFormat = VE_MASK_RGBA;
    options.maskWidth = options.maskHeight = 8;
    const Image frame = Noise({8, 8}, 1);
    Fill(options.outputTexture, frame);
    const int names = CountGlNames();
    VERenderer* renderer = nullptr;
    int tries = 0;
    for (VEResult result = VE_ERROR_MEMORY; result != VE_OK; ++tries) {
        ASSERT_LT(tries, 20);
        allocationsLeft = tries;
        result = VECreateRenderer(&options, &renderer);
        allocationsLeft = -1;
        if (result != VE_OK) {
            EXPECT_EQ(VE_ERROR_MEMORY, result);
            EXPECT_EQ(nullptr, renderer);
            EXPECT_EQ(names, CountGlNames());
        }
    }
    EXPECT_GT(tries, 2);

    const int32_t place[2] = {4, 4};
    VEDrawOptions draw = VEMakeDrawOptions();
    draw.frame = draw.mask = frame.pixels.data();
    draw.stickerTexture = options.outputTexture;
    draw.stickers = place;
    draw.stickerCount = 1;
    allocationsLeft = 0;
    for (int call = 0; call < 3; ++call) {
        EXPECT_EQ(VE_OK, VEDraw(renderer, &draw, nullptr));
    }
    EXPECT_EQ(VE_OK, VECloseRenderer(renderer, VE_CONTEXT_CURRENT));
    allocationsLeft = -1;
    EXPECT_EQ(names, CountGlNames());
}

}  // namespace
