#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "support/TestImages.h"

constexpr Rgba kKeyedOut = {169, 210, 216, 0};

struct RunResult {
    int status = 0;
    std::string errors;
};

/// A color for each frame number, opaque and far from those of its neighbors.
Rgba FrameColor(int frame);

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
    /// Links the clips of scripts/awkward-clips into the test's directory.
    void LinkAwkwardClips() const;

private:
    std::filesystem::path directory_;
};
