// Clips as people have them: what goes in, and what comes out, with ffprobe as the judge.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

#include "PlayerFixture.h"

namespace {

struct Point {
    int x;
    int y;
};

class ClipsTest : public PlayerTest {
protected:
    ClipsTest() { LinkAwkwardClips(); }

    /// What ffprobe says, line by line.
    std::vector<std::string> Probe(const std::string& file, const std::string& entries) const {
        const std::string output = file + ".probe";
        const RunResult result = Run("ffprobe", "-v error -of csv=p=0 -show_entries " + entries +
                                                    " " + file + " > " + output);
        EXPECT_EQ(result.status, 0) << file << result.errors;
        std::ifstream text(Path(output));
        std::vector<std::string> lines;
        for (std::string line; std::getline(text, line);) {
            if (!line.empty() && line != ",") {
                lines.push_back(line);
            }
        }
        return lines;
    }

    /// When the frames of a track ("v") or the sounds of one ("a") are, in seconds, in order.
    std::vector<double> Times(const std::string& file, const std::string& track) const {
        std::vector<double> times;
        for (const std::string& line :
             Probe(file, "packet=pts_time,flags -select_streams " + track)) {
            if (line.find('D') == std::string::npos) {  // Not cut off by the container.
                times.push_back(std::strtod(line.c_str(), nullptr));
            }
        }
        std::sort(times.begin(), times.end());
        return times;
    }
};

std::vector<double> FromZero(std::vector<double> times) {
    const double first = times.empty() ? 0.0 : times.front();
    for (double& time : times) {
        time -= first;
    }
    return times;
}

std::vector<double> Even(int count) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        times.push_back(i * 0.04);
    }
    return times;
}

void ExpectNear(const std::vector<double>& found, const std::vector<double>& expected,
                double tolerance, const std::string& where) {
    ASSERT_EQ(found.size(), expected.size()) << where;
    for (size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(found[i], expected[i], tolerance) << where << ", frame " << i;
    }
}

}  // namespace

TEST_F(ClipsTest, EveryFrameKeepsItsTime) {
    struct Row {
        std::string clip;
        std::vector<double> times;
        std::string warning;
    };
    const std::string repaired = " frames are missing or step back; they were repaired";
    for (const Row& row : {Row{"varying.mp4", FromZero(Times("varying.mp4", "v")), ""},
                           Row{"edit-list.mp4", FromZero(Times("edit-list.mp4", "v")), ""},
                           Row{"no-stamps.h264", Even(25), "the time stamps of 25" + repaired},
                           Row{"steps-back.ts", Even(50), "the time stamps of 1" + repaired},
                           Row{"decode-order.mp4", Even(25), repaired}}) {
        const std::vector<std::string> outputs =
            row.clip == "varying.mp4" ? std::vector<std::string>{"out.webm", "out.gif", "out.mkv"}
                                      : std::vector<std::string>{"out.mp4"};
        for (const std::string path : {"cpu", "decode"}) {
            for (const std::string& out : outputs) {
                const RunResult result =
                    Play("--overwrite " + row.clip + " --path " + path + " --out " + out);
                const std::string where = row.clip + ", " + path + ", " + out;
                EXPECT_EQ(result.status, 0) << where << result.errors;
                EXPECT_EQ(result.errors.find("repaired") != std::string::npos,
                          !row.warning.empty());
                EXPECT_NE(result.errors.find(row.warning), std::string::npos) << result.errors;
                ExpectNear(FromZero(Times(out, "v")), row.times, 0.0011, where);
            }
        }
    }
    EXPECT_NE(
        Play("varying.mp4 --out out/%d.png").errors.find("which numbered pictures do not keep"),
        std::string::npos);
    for (const std::string name : {"box.mp4", "cup.mp4", "vtest.avi"}) {
        const std::string clip = std::string(FOOTAGE "/") + name;
        if (!std::filesystem::exists(clip)) {
            GTEST_SKIP() << "scripts/footage has not fetched " << name;
        }
        std::filesystem::create_symlink(clip, Path(name));
        std::vector<double> times = Times(name, "v");
        times.resize(20);
        PlayWell(name + " --preset ultrafast --frames 20 --out " + name + ".mkv");
        ExpectNear(FromZero(Times(name + ".mkv", "v")), FromZero(times), 0.0011, name);
    }
}

TEST_F(ClipsTest, SoundKeepsItsPlaceAndLength) {
    for (const std::string clip :
         {"sound-first.mkv", "sound-first.mp4", "long-sound.mkv", "steps-back.ts"}) {
        for (const std::string out : {"out.mp4", "out.mkv"}) {
            PlayWell(clip + " --out " + out);
            const std::vector<double> sound = Times(clip, "a");
            const std::vector<double> copy = Times(out, "a");
            // Matroska shows what mp4 cuts off: a first packet that only fills the decoder.
            EXPECT_NEAR(static_cast<double>(copy.size()), static_cast<double>(sound.size()), 1.0)
                << clip << out;
            EXPECT_NEAR(Times(out, "v").front() - copy.back(),
                        clip == "steps-back.ts" ? -1.99 : Times(clip, "v").front() - sound.back(),
                        0.025)
                << clip << out;
        }
    }
}

TEST_F(ClipsTest, PicturesAreUprightAndSquare) {
    struct Row {
        std::string clip;
        Size size;
        Point corner;  ///< Of the red mark.
    };
    for (const Row& row :
         {Row{"turned-0.mp4", {64, 48}, {5, 4}}, Row{"turned-90.mp4", {48, 64}, {43, 5}},
          Row{"turned-180.mp4", {64, 48}, {58, 43}}, Row{"turned-270.mp4", {48, 64}, {4, 58}},
          Row{"turned-flip-across.mp4", {64, 48}, {58, 4}},
          Row{"turned-flip-down.mp4", {64, 48}, {5, 43}},
          Row{"turned-flip-90.mp4", {48, 64}, {4, 5}},
          Row{"turned-flip-270.mp4", {48, 64}, {43, 58}}, Row{"oblong.mp4", {80, 48}, {-1, -1}}}) {
        for (const std::string path : {"cpu", "auto"}) {
            const std::string where = row.clip + ", " + path;
            PlayWell(row.clip + " --frames 2 --path " + path + " --out out.mp4");
            PlayWell("out.mp4 --out out.png");
            const Image image = Read("out.png");
            EXPECT_EQ(image.size.width, row.size.width) << where;
            ASSERT_EQ(image.size.height, row.size.height) << where;
            if (row.corner.x >= 0) {
                EXPECT_GT(image.Pixel(row.corner.x, row.corner.y)[0], 200) << where;
                EXPECT_LT(image.Pixel(row.corner.x, row.corner.y)[1], 60) << where;
            }
            EXPECT_EQ(Probe("out.mp4", "stream=sample_aspect_ratio").at(0), "1:1") << where;
            EXPECT_TRUE(Probe("out.mp4", "stream_side_data=rotation").empty()) << where;
        }
    }
    PlayWell("turned-90.mp4 --frames 2 --no-autorotate --out out.mp4");
    EXPECT_EQ(Probe("out.mp4", "stream=width,height").at(0).rfind("64,48", 0), 0U);
    EXPECT_EQ(Probe("out.mp4", "stream_side_data=rotation").at(0), "-90");
    EXPECT_NE(Play("turned-90.mp4 --frames 2 --no-autorotate --out out.mkv")
                  .errors.find("does not keep the display matrix"),
              std::string::npos);
}

namespace {

/// What is shown for a gray of PQ: its light, compressed up to 1000 cd/m², on a screen of
/// gamma 2.4.
double ShownPq(double signal) {
    const double root = std::pow(signal, 32.0 / 2523.0);
    const double light =
        100.0 *
        std::pow(std::max(root - 0.8359375, 0.0) / (18.8515625 - 18.6875 * root), 16384.0 / 2610.0);
    const auto compressed = [](double x) {
        return (x * (0.15 * x + 0.05) + 0.004) / (x * (0.15 * x + 0.5) + 0.06) - 0.02 / 0.3;
    };
    const double part = std::clamp(compressed(light) / compressed(10.0), 0.0, 1.0);
    return 255.0 * std::pow(part, 1 / 2.4);
}

}  // namespace

TEST_F(ClipsTest, SamplesOfEveryKindComeOutAsScreensShowThem) {
    struct Row {
        std::string clip;
        std::string remark;
        std::string stream;  ///< Of the output.
    };
    for (const Row& row :
         {Row{"ten-bit.mp4", "", "64,48,smpte170m"},
          Row{"interlaced.mp4", "interlaced.mp4: interlaced pictures are deinterlaced",
              "64,48,smpte170m"},
          Row{"odd.mkv", "padded to 64x48", "64,48,smpte170m"},
          Row{"pq.mp4", "pq.mp4: PQ is tone-mapped to BT.709", "256,16,bt709"},
          Row{"hlg.mp4", "hlg.mp4: HLG is tone-mapped to BT.709", "256,16,bt709"}}) {
        const RunResult result = Play("--overwrite " + row.clip + " --out out.mp4");
        EXPECT_EQ(result.status, 0) << row.clip << result.errors;
        EXPECT_NE(result.errors.find(row.remark), std::string::npos) << result.errors;
        EXPECT_EQ(Probe("out.mp4", "stream=width,height,color_transfer").at(0), row.stream);
        ExpectNear(FromZero(Times("out.mp4", "v")), FromZero(Times(row.clip, "v")), 0.0011,
                   row.clip);
    }
    PlayWell("pq.mp4 --out pq.png");
    for (int bar = 0; bar < 16; ++bar) {
        const Rgba pixel = Read("pq.png").Pixel(16 * bar + 8, 8);
        const double signal = std::clamp((bar * 64 - 64) / 876.0, 0.0, 1.0);
        for (size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(pixel.at(i), ShownPq(signal), 2.5) << bar;
        }
    }
    // A bar that moves leaves a comb in two fields that are shown as one picture.
    const auto roughness = [this](const std::string& options) {
        PlayWell("interlaced.mp4 --start 0.4 --out comb.png" + options);
        const Image image = Read("comb.png");
        int sum = 0;
        for (int y = 1; y + 1 < image.size.height; ++y) {
            for (int x = 0; x < image.size.width; ++x) {
                sum += std::abs(2 * image.Pixel(x, y)[1] - image.Pixel(x, y - 1)[1] -
                                image.Pixel(x, y + 1)[1]);
            }
        }
        return sum;
    };
    EXPECT_LT(roughness(""), roughness(" --keep-interlaced"));
}

TEST_F(ClipsTest, ClipsThatBreakOffAreDrawnAsFarAsTheyGo) {
    EXPECT_EQ(Play("truncated.mp4 --out out.mp4").status, 1);
    ExpectNear(FromZero(Times("out.mp4", "v")), FromZero(Times("truncated.mp4", "v")), 0.0011, "");
    for (const std::string clip : {"zero-length.mp4", "no-frames.mp4"}) {
        const RunResult result = Play(clip + " --out none.mp4");
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.errors.rfind("vornplay: " + clip + ": ", 0), 0U) << result.errors;
    }
    EXPECT_FALSE(std::filesystem::exists(Path("none.mp4")));
}
