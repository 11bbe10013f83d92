#include <gtest/gtest.h>

#include <set>

#include "TestWindow.h"

namespace {

void Post(const TestWindow& target, uint8_t value) {
    ANativeWindow_Buffer buffer;
    ASSERT_EQ(ANativeWindow_lock(target.window, &buffer, nullptr), 0);
    *static_cast<uint8_t*>(buffer.bits) = value;
    ASSERT_EQ(ANativeWindow_unlockAndPost(target.window), 0);
}

TEST(Window, KeepsTheNewestFrameInLittleMemory) {
    const TestWindow target;
    ASSERT_EQ(ANativeWindow_setBuffersGeometry(target.window, 8, 4, WINDOW_FORMAT_RGBA_8888), 0);
    std::set<uint8_t*> memory;
    for (uint8_t value = 0; value < 50; ++value) {
        Post(target, value);
        if (value % 3 == 0) {
            auto frame = target.queue->Acquire();
            ASSERT_NE(frame, nullptr);
            EXPECT_EQ(frame->pixels[0], value);
            EXPECT_EQ(target.queue->Acquire(), nullptr);
            memory.insert(frame->pixels.get());
            target.queue->Recycle(std::move(frame));
        }
    }
    EXPECT_LE(memory.size(), 3U);
}

TEST(Window, RefusesWhatDoesNotFitItsState) {
    const TestWindow target;
    ANativeWindow_Buffer buffer;
    ARect dirty;
    EXPECT_LT(ANativeWindow_setBuffersGeometry(target.window, 8, 0, 0), 0);
    EXPECT_LT(ANativeWindow_setBuffersGeometry(target.window, 8, 8, 4), 0);
    EXPECT_LT(ANativeWindow_unlockAndPost(target.window), 0);
    target.queue->SetDefaultSize(6, 5);
    EXPECT_EQ(ANativeWindow_lock(target.window, &buffer, &dirty), 0);
    EXPECT_EQ(buffer.width, 6);
    EXPECT_EQ(dirty.bottom, 5);
    EXPECT_LT(ANativeWindow_lock(target.window, &buffer, nullptr), 0);
    target.queue->Abandon();
    ANativeWindow_unlockAndPost(target.window);
    EXPECT_EQ(target.queue->Acquire(), nullptr);
    EXPECT_LT(ANativeWindow_lock(target.window, &buffer, nullptr), 0);
}

}  // namespace
