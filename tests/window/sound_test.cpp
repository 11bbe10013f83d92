// The sound of a clip: decoded to the sample, and in step with the pictures.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <thread>

#include "PlayerWindow.h"
#include "window/sound/AudioReader.h"

namespace {

constexpr int kRate = 25;
constexpr int kShades = 200;

class SoundTest : public PlayerWindow {
protected:
    /// A clip whose frames count in shades of gray, with a sound that rises.
    void MakeClip(int seconds) const {
        const std::string length = ":duration=" + std::to_string(seconds);
        const RunResult made =
            Run("ffmpeg",
                "-nostdin -v error -f lavfi -i color=size=64x48:rate=25" + length +
                    ",geq=lum='16+mod(N\\,200)':cb=128:cr=128 -f lavfi -i aevalsrc='sin(500*t*t)'"
                    ":sample_rate=44100" +
                    length + " -c:v libx264 -preset ultrafast -crf 1 -c:a aac -b:a 256k clip.mp4");
        ASSERT_EQ(made.status, 0) << made.errors;
    }

    /// Plays the clip. \return how far the sound was ahead of the picture, in seconds, each time
    /// that the test looked
    std::vector<double> Listen(int seconds);
};

/// From a time on.
std::vector<Sample> ReadFrom(AudioReader& reader, double seconds) {
    reader.Seek(seconds, false);
    std::vector<Sample> all;
    for (auto some = reader.Next(); !some.empty(); some = reader.Next()) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

/// How long a file of samples is silent at first: until the clip plays.
double SilenceIn(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    size_t count = 0;
    for (Sample sample{}; file.read(reinterpret_cast<char*>(sample.data()), sizeof(sample));) {
        if (std::abs(sample[0]) > 1e-4F) {
            break;
        }
        ++count;
    }
    return static_cast<double>(count) / Speaker::kRate;
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::vector<double> SoundTest::Listen(int seconds) {
    const std::string file = Path("sound.raw");
    std::filesystem::remove(file);
    environment_ = "SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE=" + file;
    Open("clip.mp4 --path cpu");
    while (!std::filesystem::exists(file)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    std::vector<std::pair<double, double>> seen;  // When, in the sound, and which shade.
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (std::chrono::steady_clock::now() < end) {
        const auto before = std::filesystem::file_size(file);
        const Image image = Capture();
        const auto bytes = (before + std::filesystem::file_size(file)) / 2;
        seen.emplace_back(static_cast<double>(bytes) / sizeof(Sample) / Speaker::kRate,
                          image.Pixel(160, 100)[1] * 219.0 / 255.0 / kShades);
        std::this_thread::sleep_for(std::chrono::milliseconds(15));
    }
    EXPECT_EQ(Quit(), 0) << Log();
    std::vector<double> ahead;
    const double begin = SilenceIn(file);
    for (const auto& [time, shade] : seen) {
        const double rounds = (time - begin) * kRate / kShades - shade;
        ahead.push_back((rounds - std::round(rounds)) * kShades / kRate);
    }
    return ahead;
}

}  // namespace

TEST_F(SoundTest, IsReadFromEveryTimeToTheSample) {
    MakeClip(4);
    const auto reader = AudioReader::Open(VideoFile(Path("clip.mp4")), 0.0);
    ASSERT_NE(reader, nullptr);
    const std::vector<Sample> all = ReadFrom(*reader, 0.0);
    EXPECT_NEAR(static_cast<double>(all.size()) / Speaker::kRate, 4.0, 0.03);
    for (const double seconds : {0.5, 1.7773, 3.9}) {
        const std::vector<Sample> part = ReadFrom(*reader, seconds);
        const auto first = static_cast<size_t>(std::lround(seconds * Speaker::kRate));
        double difference = 0.0;
        // The resampler needs a few samples to settle.
        for (size_t i = 100; i < 1000; ++i) {
            difference += std::abs(static_cast<double>(part.at(i)[0] - all.at(first + i)[0]));
        }
        EXPECT_LT(difference / 900, 0.03) << seconds;
    }
}

TEST_F(SoundTest, GoesOnAcrossStampsThatBeginAgainAndWaitsForLateSound) {
    LinkAwkwardClips();
    EXPECT_EQ(AudioReader::Open(VideoFile(Path("oblong.mp4")), 0.0), nullptr) << "it has none";
    const auto joined = AudioReader::Open(VideoFile(Path("steps-back.ts")), 1.48);
    ASSERT_NE(joined, nullptr);
    EXPECT_NEAR(static_cast<double>(ReadFrom(*joined, 0.0).size()) / Speaker::kRate, 2.0, 0.1);
    const auto late = AudioReader::Open(VideoFile(Path("long-sound.mp4")), -0.5);
    ASSERT_NE(late, nullptr);
    const std::vector<Sample> samples = ReadFrom(*late, 0.0);
    EXPECT_NEAR(static_cast<double>(samples.size()) / Speaker::kRate, 4.5, 0.03);
    EXPECT_EQ(samples.at(Speaker::kRate / 4)[0], 0.0F);
}

/// SDL writes what the device would play into a file as fast as it would. $VORN_SOUND_SECONDS
/// makes the test longer. A busy machine may disturb a try.
TEST_F(SoundTest, PicturesFollowTheSound) {
    const char* wanted = std::getenv("VORN_SOUND_SECONDS");
    const int seconds =
        wanted != nullptr ? static_cast<int>(std::strtol(wanted, nullptr, 10)) : SOUND_SECONDS;
    MakeClip(seconds + 6);
    // The device holds up to two periods of 11 ms that are not heard yet, and a frame stays for 40.
    constexpr double kExpected = 0.036;
    double worst = 1.0;
    for (int tries = 0; tries < 3 && worst > 0.02; ++tries) {
        const std::vector<double> ahead = Listen(seconds);
        const auto third = static_cast<ptrdiff_t>(ahead.size() / 3);
        const double first = Median({ahead.begin(), ahead.begin() + third}) - kExpected;
        const double last = Median({ahead.end() - third, ahead.end()}) - kExpected;
        std::cout << "sound ahead of pictures: " << first << " s, then " << last << " s\n";
        // Drawing takes its time on a busy machine, which must not add up.
        worst = std::max({std::abs(first) / 2, std::abs(last) / 2, std::abs(last - first)});
    }
    EXPECT_LE(worst, 0.02);
}
