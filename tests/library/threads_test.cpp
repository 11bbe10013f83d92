// Renderers on contexts of their own, each on its own thread, share nothing but the loaded table.

#include <gtest/gtest.h>

#include <thread>

#include "support/RendererHarness.h"

namespace {

void Render(int number) {
    TestContext context;
    for (int round = 0; round < 3; ++round) {
        const Image frame = Noise({96 + number, 64}, static_cast<uint32_t>(number));
        const Image mask = Noise({16, 16}, static_cast<uint32_t>(number + round));
        const Image sticker = Noise({2, 2}, static_cast<uint32_t>(number + 50));
        RendererHarness renderer(
            {VE_OUTPUT_MASKED, VE_MODE_RGBA, 96 + number, 64, VE_MASK_RGBA, 16, 16});
        Scene scene;
        scene.source = &frame;
        scene.mask = &mask;
        scene.sticker = &sticker;
        scene.stickers = {{40, 40}};
        for (int i = 0; i < 5; ++i) {
            scene.viewX = 0.05F * static_cast<float>(i);
            scene.zoom = 1.0F + 0.3F * static_cast<float>(number);
            renderer.expectShows(scene);
        }
    }
}

TEST(Threads, RenderersOnTheirOwnContextsAreIndependent) {
    std::thread threads[] = {std::thread(Render, 0), std::thread(Render, 1),
                             std::thread(Render, 2)};
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
