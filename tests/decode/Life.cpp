#include "Life.h"

#include <GLES3/gl3.h>
#include <gtest/gtest.h>
#include <linux_platform/Host.h>

#include <thread>

#include "offscreen/OffscreenContext.h"
#include "render/VERenderer.h"
#include "render/VERendererExt.h"

namespace {

constexpr int64_t kWaitUs = 10'000'000;

void LiveWithSevenFunctions(const Life& life, std::vector<TestUnit>& units) {
    VERendererMode mode = {VE_OUTPUT_PICTURE, VE_MODE_H264, 320, 240, 0, 0, 0};
    void* handle = nullptr;
    VECreateRendererHandle(&handle, static_cast<int>(life.texture), &mode, life.jvm);
    HostDecoder* host = HostDecoder_acquire();
    for (TestUnit& unit : units) {
        VEUpdateCompressedData(handle, unit.bytes.data(), static_cast<int>(unit.bytes.size()));
    }
    if (life.toThePicture) {
        EXPECT_EQ(HostDecoder_waitForFrame(host, 0, kWaitUs, nullptr), HOST_READY);
    }
    VEUpdateRenderer(handle, nullptr, 0, true, nullptr);
    HostDecoder_release(host);
    VEDestroyRenderer(handle);
}

void LiveGuarded(const Life& life, const std::vector<TestUnit>& units) {
    VERendererOptions options = VEMakeRendererOptions();
    options.source = VE_SOURCE_H264;
    options.sourceWidth = 320;
    options.sourceHeight = 240;
    options.outputTexture = life.texture;
    options.javaVM = life.jvm;
    VERenderer* handle = nullptr;
    ASSERT_EQ(VECreateRenderer(&options, &handle), VE_OK);
    for (const TestUnit& unit : units) {
        VEUnit given = VEMakeUnit();
        given.data = unit.bytes.data();
        given.size = unit.bytes.size();
        given.ptsUs = unit.timeUs;
        given.waitUs = kWaitUs;
        EXPECT_EQ(VEQueueUnit(handle, &given), VE_OK);
    }
    VEDrawn drawn = VEMakeDrawn();
    do {
        EXPECT_EQ(VEDraw(handle, nullptr, &drawn), VE_OK);
    } while (life.toThePicture && !drawn.newPicture);
    EXPECT_EQ(VEFlush(handle), VE_OK);
    EXPECT_EQ(VECloseRenderer(handle, VE_CONTEXT_CURRENT), VE_OK);
}

}  // namespace

void Live(const Life& life, std::vector<TestUnit> units) {
    life.guarded ? LiveGuarded(life, units) : LiveWithSevenFunctions(life, units);
}

void LiveOnTwoThreads(JavaVM* jvm, int lives) {
    TestStream stream;
    stream.picture = [](int index) { return Gray(static_cast<uint8_t>(60 + 10 * index)); };
    const auto units = Encode(stream, 5);
    const auto live = [&] {
        {
            const OffscreenContext context;
            unsigned texture = 0;
            glGenTextures(1, &texture);
            for (int life = 0; life < lives; ++life) {
                HostBehavior behavior = {};
                // Longer than a destruction waits.
                behavior.outputDelayUs = life % 20 == 9 ? 80'000 : 0;
                HostDecoder_setBehavior(nullptr, &behavior);
                Live({jvm, texture, life % 2 == 0, life % 10 < 2}, units);
            }
            EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
        }
        jvm->DetachCurrentThread();
    };
    std::thread one(live);
    std::thread other(live);
    one.join();
    other.join();
}
