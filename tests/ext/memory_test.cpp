// The library allocates nothing for a frame but the mesh of a sticker. When the heap runs out, at
// each allocation of each call in turn, the call fails, nothing is lost, and the next one works.

#include <dlfcn.h>
#include <link.h>

#include <gtest/gtest.h>
#include <linux_platform/Host.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <new>
#include <thread>

#include "decode/FakeJvm.h"
#include "ext/ExtRenderer.h"
#include "ext/GlNameCount.h"
#include "kernel/Allocator.h"
#include "kernel/Log.h"
#include "kernel/System.h"

namespace {

/// How many more allocations of this thread succeed; negative for all.
thread_local int allocationsLeft = -1;
thread_local int allocations = 0;
std::atomic<int> blocks{0};  ///< Of the library, on all threads, that are not freed yet.

/// In front of each block.
struct alignas(std::max_align_t) Header {
    bool ofTheLibrary;
};

/// GL's own allocations always succeed.
bool IsOfTheLibrary(void* caller) {
    dl_find_object object;
    return _dl_find_object(caller, &object) == 0 &&
           std::strstr(object.dlfo_link_map->l_name, "libvornrenderer") != nullptr;
}

bool Fails() {
    ++allocations;
    return allocationsLeft == 0 || allocationsLeft-- == 0;
}

struct FailingAllocator : OVR::DefaultAllocator {
    void* Alloc(size_t size) override { return Fails() ? nullptr : (++blocks, std::malloc(size)); }
    void* Realloc(void* p, size_t size) override {
        return Fails() ? nullptr : std::realloc(p, size);
    }
    void Free(void* p) override {
        --blocks;
        std::free(p);
    }
};

FailingAllocator failingAllocator;

}  // namespace

__attribute__((noinline)) void* operator new(size_t size) {
    const bool ofTheLibrary = IsOfTheLibrary(__builtin_return_address(0));
    if (ofTheLibrary && Fails()) {
        throw std::bad_alloc();
    }
    blocks += ofTheLibrary ? 1 : 0;
    return new (std::malloc(sizeof(Header) + size)) Header{ofTheLibrary} + 1;
}
__attribute__((noinline)) void operator delete(void* block) noexcept {
    if (block != nullptr) {
        Header* header = static_cast<Header*>(block) - 1;
        blocks -= header->ofTheLibrary ? 1 : 0;
        std::free(header);
    }
}
__attribute__((noinline)) void operator delete(void* block, size_t) noexcept {
    operator delete(block);
}

namespace {

/// The number of blocks, once the decoder's thread has freed its own.
int Settled(int expected) {
    for (int wait = 0; wait < 2000 && blocks != expected; ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return blocks;
}

class Memory : public testing::Test {
protected:
    Memory() {
        Settled(0);
        OVR::System::Destroy();
        OVR::System::Init(OVR::Log::GetDefaultLog(), &failingAllocator);
    }

    const TestContext context;
    Image frame = Noise({8, 6}, 1);
    int failures = 0;  ///< Allocations that were made to fail.

    /// Calls until there is memory for the whole call, with one more allocation each time. A call
    /// that fails leaves as many blocks, GL names and Java objects as there were before.
    template <typename Call>
    void expectNothingLost(const Call& call) {
        for (int succeeding = 0; succeeding < 60; ++succeeding) {
            const int blocksBefore = blocks;
            const int objectsBefore = LiveJavaObjects();
            allocationsLeft = succeeding;
            VEResult result = VE_OK;
            try {
                result = call();
            } catch (const std::bad_alloc&) {
                result = VE_ERROR_MEMORY;
            }
            allocationsLeft = -1;
            if (result == VE_OK) {
                return;
            }
            ++failures;
            ASSERT_EQ(VE_ERROR_MEMORY, result);
            EXPECT_EQ(blocksBefore, Settled(blocksBefore)) << "at allocation " << succeeding;
            EXPECT_EQ(objectsBefore, LiveJavaObjects()) << "at allocation " << succeeding;
        }
        FAIL() << "never succeeds";
    }

    /// A life whose calls fail, if \p failing. \return how many GL names it leaves, as documented.
    int namesLeftBySevenFunctions(VERendererMode mode, int textures, bool failing) {
        const int namesBefore = CountGlNames();
        const auto repeat = [&](const auto& call) {
            failing ? expectNothingLost(call) : static_cast<void>(call());
        };
        const unsigned texture = NewTexture();
        void* handle = nullptr;
        const auto create = [&] {
            VECreateRendererHandle(&handle, static_cast<int>(texture), &mode, FakeJvm());
            return VE_OK;
        };
        repeat(create);
        void* pixels = frame.pixels.data();
        const auto update = [&](VEStickerList stickers) {
            const int done =
                VEUpdateRendererWithSticker(handle, pixels, 0, true, pixels, 1, stickers);
            return done == 0 ? VE_OK : VE_ERROR_ARGUMENT;
        };
        for (int call = 0; call < textures + 2; ++call) {
            repeat([&] { return update({}); });
        }
        repeat([&] { return update({{3, 3}, {4, 4}}); });
        repeat([&] {
            VEUpdateUserPosition(handle, 0.1F, 0, 2.5F, 0);
            VEUpdateCompressedData(handle, pixels, 8);
            return VEUpdateRenderer(handle, pixels, 0, true, pixels) == 0 ? VE_OK : VE_ERROR_GL;
        });
        EXPECT_EQ(GLenum{GL_NO_ERROR}, glGetError());
        if (mode.modeType == VE_MODE_RGBA) {
            EXPECT_NE(ReadBack(texture, {8, 6}).pixels, Image({8, 6}).pixels);
        }
        VEDestroyRenderer(handle);
        glDeleteTextures(1, &texture);
        EXPECT_EQ(0, Settled(0));
        return CountGlNames() - namesBefore;
    }
};

TEST_F(Memory, OnlyStickersOfTheSevenFunctionsTakeIt) {
    RendererHarness renderer({VE_OUTPUT_MASKED, VE_MODE_RGBA, 8, 6, VE_MASK_RGBA, 8, 6});
    const auto allocationsOf = [&](VEStickerList stickers) {
        allocations = 0;
        void* pixels = frame.pixels.data();
        VEUpdateUserPosition(renderer.handle, 0.1F, 0, 2.5F, 0);
        VEUpdateRenderer(renderer.handle, pixels, 0, true, pixels);
        VEUpdateRendererWithSticker(renderer.handle, pixels, 0, true, pixels, 1, stickers);
        return allocations;
    };
    for (int warmUp = 0; warmUp < 4; ++warmUp) {
        allocationsOf({{3, 3}});
    }
    EXPECT_EQ(allocationsOf({}), 0);
    EXPECT_GT(allocationsOf({{3, 3}}), 0) << "the counter does not count";
}

TEST_F(Memory, TheSevenFunctionsThrowAndLoseNothing) {
    for (const int output : {VE_OUTPUT_PICTURE, VE_OUTPUT_MASKED}) {
        for (const int type : {VE_MODE_RGBA, VE_MODE_H264}) {
            failures = 0;
            const VERendererMode mode = {output, type, 8, 6, VE_MASK_RGBA, 8, 6};
            const int textures =
                (type == VE_MODE_RGBA ? 1 : 0) + (output == VE_OUTPUT_MASKED ? 1 : 0);
            EXPECT_EQ(namesLeftBySevenFunctions(mode, textures, false),
                      namesLeftBySevenFunctions(mode, textures, true));
            EXPECT_GT(failures, 10);
        }
    }
}

TEST_F(Memory, TheGuardedFunctionsGiveAResultAndADrawNeedsNone) {
    const int32_t place[2] = {4, 4};
    for (const int source : {VE_SOURCE_RGBA, VE_SOURCE_TEXTURE_2D, VE_SOURCE_H264}) {
        VERendererOptions options = WithMask(OptionsOf(source, 8, 6), frame, VE_MASK_RGBA);
        options.javaVM = FakeJvm();
        Fill(options.outputTexture, frame);
        VEDrawOptions draw = VEMakeDrawOptions();
        draw.frame = source == VE_SOURCE_RGBA ? frame.pixels.data() : nullptr;
        draw.mask = frame.pixels.data();
        if (source == VE_SOURCE_TEXTURE_2D) {
            Fill(draw.sourceTexture = NewTexture(), frame);
        }
        draw.stickerTexture = options.outputTexture;
        draw.stickers = place;
        draw.stickerCount = 1;
        VEUnit unit = VEMakeUnit();
        unit.data = place;
        unit.size = sizeof(place);
        const int blocksBefore = blocks;
        const int names = CountGlNames();
        VERenderer* renderer = nullptr;
        failures = 0;
        expectNothingLost([&] { return VECheckSource(source); });
        expectNothingLost([&] {
            const VEResult result = VECreateRenderer(&options, &renderer);
            if (result != VE_OK) {
                EXPECT_EQ(nullptr, HostDecoder_acquire());
                EXPECT_EQ(names, CountGlNames());
            }
            return result;
        });
        EXPECT_GT(failures, 2);
        allocationsLeft = 0;
        for (int call = 0; call < 3; ++call) {
            EXPECT_EQ(VE_OK, VEDraw(renderer, &draw, nullptr));
        }
        if (source == VE_SOURCE_H264) {
            VEDecoderState state = VEMakeDecoderState();
            EXPECT_EQ(VE_OK, VEQueueUnit(renderer, &unit));
            EXPECT_EQ(VE_OK, VEGetDecoderState(renderer, &state));
            EXPECT_EQ(VE_OK, VEFlush(renderer));
        }
        EXPECT_EQ(VE_OK, VECloseRenderer(renderer, VE_CONTEXT_CURRENT));
        allocationsLeft = -1;
        EXPECT_EQ(names, CountGlNames());
        EXPECT_EQ(blocksBefore, Settled(blocksBefore));
        glDeleteTextures(1, &draw.sourceTexture);
        glDeleteTextures(1, &options.outputTexture);
    }
}

}  // namespace
