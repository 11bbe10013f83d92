// What the calls leave of the caller's GL state, as the public header's table promises.

#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "gl/GLES3.h"
#include "support/HostileState.h"
#include "support/RendererHarness.h"
#include "support/StateTable.h"

namespace {

class GlState : public testing::TestWithParam<std::tuple<int, unsigned>> {
protected:
    GlState() { Fill(stickerTexture, Noise({2, 2}, 3)); }

    /// One call from the hostile state.
    void expectKept(const char* name, StateNames given, const std::function<void()>& call) {
        given.insert(masked() ? "masked" : "plain");
        given.insert("raw");
        table.expectKept({name, given, 32, 16}, call);
    }
    static bool masked() { return std::get<0>(GetParam()) == VE_OUTPUT_MASKED; }

    /// One update with the pixels and stickers that are given.
    void update(const char* name, StateNames given) {
        const auto has = [&given](const char* what) { return given.count(what) != 0; };
        expectKept(name, given, [&] {
            VEUpdateRendererWithSticker(
                renderer->handle, has("frame") ? frame.pixels.data() : nullptr, 0, true,
                has("mask") ? mask.pixels.data() : nullptr,
                has("stickers") ? static_cast<int>(stickerTexture) : -1, stickers);
        });
    }

    TestContext context;
    const StateTable table{"VERenderer.h"};
    HostileState hostile{std::get<1>(GetParam())};
    Image frame = Noise({32, 16}, 1);
    Image mask = Solid({2, 2}, {255, 255, 255, 90});
    unsigned stickerTexture = NewTexture();
    VEStickerList stickers = {{16, 12}, {-1, -1}, {3, 14}};
    std::optional<RendererHarness> renderer;
};

TEST_P(GlState, EveryCallLeavesWhatTheHeaderPromises) {
    hostile.SetUnpacking();
    expectKept("creation", {}, [this] {
        renderer.emplace(
            VERendererMode{std::get<0>(GetParam()), VE_MODE_RGBA, 32, 16, VE_MASK_RGBA, 2, 2});
    });
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    for (int call = 0; call <= std::get<0>(GetParam()); ++call) {
        hostile.Set();
        update("prepare", {"frame", "mask"});
    }
    std::mt19937 random(std::get<1>(GetParam()));
    StateNames given = {"frame", "mask", "stickers"};
    for (int call = 0; call < 40; ++call) {
        StateNames next;
        for (const std::string what : {"frame", "mask", "stickers"}) {
            const bool uploads = what == "frame" || (what == "mask" && masked());
            if (call < 2 || random() % 2 != 0) {
                next.insert(what);
            } else if (uploads && call > 0 && given.count(what) != 0) {
                next.insert("pending-" + what);
            }
        }
        given = next;
        hostile.Set();
        if (call > 0) {
            hostile.BindUnpackBuffer();
        }
        update("draw", given);
    }
    // None of it reached the picture.
    Scene scene;
    scene.source = &frame;
    scene.mask = masked() ? &mask : nullptr;
    for (int call = 0; call < 2; ++call) {
        hostile.Set();
        update("draw", {"frame", "mask"});
    }
    ExpectShows(renderer->readBack(), scene);

    hostile.SetUnpacking();
    expectKept("", {}, [this] { VEUpdateUserPosition(renderer->handle, 1, 1, 1, 1); });
    expectKept("", {}, [this] { renderer.reset(); });
}

INSTANTIATE_TEST_SUITE_P(Seeds, GlState,
                         testing::Combine(testing::Values(0, 1), testing::Range(0U, 4U)));

}  // namespace
