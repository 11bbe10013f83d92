#pragma once

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <set>
#include <string>

#include "support/Image.h"

using Pixel = std::array<uint8_t, 4>;

constexpr Pixel kKeyedOut = {169, 210, 216, 0};

struct RunResult {
    int status = 0;
    std::string errors;
};

Pixel At(const Image& image, int x, int y);
Image Solid(Size size, const Pixel& color);
/// A picture whose pixels all differ from their neighbors.
Image Pattern(Size size);
/// A color for each frame number, opaque and far from those of its neighbors.
Pixel FrameColor(int frame);

/// Runs the tools in a new, empty directory.
class PlayerTest : public ::testing::Test {
protected:
    PlayerTest();
    ~PlayerTest() override;

    /// Runs a tool on arguments as a shell takes them, in the test's directory.
    RunResult Run(const std::string& tool, const std::string& arguments) const;
    RunResult Play(const std::string& arguments) const;
    /// Runs the player, which must succeed.
    void PlayWell(const std::string& arguments) const;

    std::string Path(const std::string& name) const { return (directory_ / name).string(); }
    Image Read(const std::string& name) const;
    void WriteImage(const std::string& name, const Image& image) const;
    /// \p count pictures "<name>/0001.png" …, each all of its FrameColor.
    void WriteClip(const std::string& name, int count, Size size) const;
    std::set<std::string> Files() const;

private:
    std::filesystem::path directory_;
};
