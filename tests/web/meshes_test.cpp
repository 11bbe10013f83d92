#include <gtest/gtest.h>

#include <algorithm>

#include "gallery/Painter.h"
#include "gallery/Pictures.h"
#include "gallery/Scenes.h"
#include "offscreen/OffscreenContext.h"
#include "support/ComparePicture.h"
#include "support/PngFile.h"

namespace {

constexpr int kReach = 2;

/// Part of the values of \p image that are outside the range of the values around the same place of
/// \p other.
double Strange(const Image& image, const Image& other, int tolerance) {
    const auto [width, height] = image.size;
    int strange = 0;
    for (int i = 0; i < width * height * Image::kChannels; ++i) {
        const int channel = i % Image::kChannels;
        const int x = i / Image::kChannels % width;
        const int y = i / Image::kChannels / width;
        int least = 255;
        int most = 0;
        for (int v = std::max(y - kReach, 0); v <= std::min(y + kReach, height - 1); ++v) {
            for (int u = std::max(x - kReach, 0); u <= std::min(x + kReach, width - 1); ++u) {
                const int value = other.At(u, v)[channel];
                least = std::min(least, value);
                most = std::max(most, value);
            }
        }
        const int value = image.At(x, y)[channel];
        strange += value < least - tolerance || value > most + tolerance ? 1 : 0;
    }
    return static_cast<double>(strange) / (width * height * Image::kChannels);
}

/// WebGL's lines are thinner.
void ExpectSameButForLines(const Image& drawn, const Image& expected, double limit) {
    EXPECT_LT(Strange(drawn, expected, 12), limit);
    EXPECT_LT(Strange(expected, drawn, 64), limit);
}

TEST(Meshes, AreDrawnAsOnTheDesktop) {
    const OffscreenContext context;
    Painter painter({360, 270}, DrawPanorama(), DrawLandscape());
    for (const Scene& scene : Scenes()) {
        SCOPED_TRACE(scene.name);
        const Image drawn = painter.Draw(scene);
        const std::string path = "/kernel/" + scene.name + ".png";
        if (scene.paint == Paint::kLines) {
            ExpectSameButForLines(drawn, ReadPng(path), 0.002);
        } else if (scene.edges == 0) {
            EXPECT_NO_THROW(ComparePicture(drawn, path));
        } else if (scene.name != "sphere-patch") {  // Too many lines.
            ExpectSameButForLines(drawn, ReadPng(path), 0.025);
        }
    }
    EXPECT_EQ(GLES3::glGetError(), GLenum{GL_NO_ERROR});
}

}  // namespace
