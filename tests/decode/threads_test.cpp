// Renderers of compressed video on several threads, with the real decoder and no JVM, so that the
// thread sanitizer can watch.

#include <GLES3/gl3.h>
#include <gtest/gtest.h>
#include <linux_platform/Host.h>

#include <thread>

#include "FakeJvm.h"
#include "TestStream.h"
#include "offscreen/OffscreenContext.h"
#include "render/VERenderer.h"
#include "render/VERendererExt.h"

namespace {

constexpr int64_t kWaitUs = 10'000'000;

void LiveWithSevenFunctions(unsigned texture, std::vector<TestUnit> units) {
    VERendererMode mode = {VE_OUTPUT_PICTURE, VE_MODE_H264, 320, 240, 0, 0, 0};
    void* handle = nullptr;
    VECreateRendererHandle(&handle, static_cast<int>(texture), &mode, FakeJvm());
    HostDecoder* host = HostDecoder_acquire();
    for (TestUnit& unit : units) {
        VEUpdateCompressedData(handle, unit.bytes.data(), static_cast<int>(unit.bytes.size()));
    }
    EXPECT_EQ(HostDecoder_waitForFrame(host, 0, kWaitUs, nullptr), HOST_READY);
    HostDecoder_release(host);
    VEUpdateRenderer(handle, nullptr, 0, true, nullptr);
    VEDestroyRenderer(handle);
}

void GuardedLive(unsigned texture, const std::vector<TestUnit>& units) {
    VERendererOptions options = VEMakeRendererOptions();
    options.source = VE_SOURCE_H264;
    options.sourceWidth = 320;
    options.sourceHeight = 240;
    options.outputTexture = texture;
    options.javaVM = FakeJvm();
    VERenderer* handle = nullptr;
    ASSERT_EQ(VECreateRenderer(&options, &handle), VE_OK);
    for (const TestUnit& unit : units) {
        VEUnit given = VEMakeUnit();
        given.data = unit.bytes.data();
        given.size = unit.bytes.size();
        given.waitUs = kWaitUs;
        EXPECT_EQ(VEQueueUnit(handle, &given), VE_OK);
    }
    VEDrawn drawn = VEMakeDrawn();
    EXPECT_EQ(VEDraw(handle, nullptr, &drawn), VE_OK);
    EXPECT_EQ(VEFlush(handle), VE_OK);
    EXPECT_EQ(VECloseRenderer(handle, VE_CONTEXT_CURRENT), VE_OK);
}

TEST(DecoderThreads, RenderersOfTwoThreadsAreIndependent) {
    constexpr int kLives = 30;
    TestStream stream;
    stream.picture = [](int index) { return Gray(static_cast<uint8_t>(60 + 10 * index)); };
    const auto units = Encode(stream, 5);
    const auto live = [&units] {
        const OffscreenContext context;
        unsigned texture = 0;
        glGenTextures(1, &texture);
        for (int life = 0; life < kLives; ++life) {
            HostBehavior behavior = {};
            // Longer than a destruction waits.
            behavior.outputDelayUs = life % 10 == 9 ? 80'000 : 0;
            HostDecoder_setBehavior(nullptr, &behavior);
            life % 2 == 0 ? GuardedLive(texture, units) : LiveWithSevenFunctions(texture, units);
        }
    };
    std::thread one(live);
    std::thread other(live);
    one.join();
    other.join();
}

}  // namespace
