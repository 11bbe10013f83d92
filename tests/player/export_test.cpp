// The kinds of files that are written, each read again.

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "Clip.h"
#include "PlayerFixture.h"
#include "export/Output.h"
#include "support/VideoFile.h"

namespace {

constexpr AVRational kNtsc = {30000, 1001};

/// Whether all four channels agree, up to what lossy codecs lose.
bool Near(const Pixel& pixel, const Pixel& expected, int loss = 6) {
    for (size_t i = 0; i < pixel.size(); ++i) {
        if (std::abs(pixel.at(i) - expected.at(i)) > loss) {
            return false;
        }
    }
    return true;
}

std::vector<Image> ReadAny(const std::string& path) {
    if (path.substr(path.size() - 5) != ".webp") {
        return ReadFrames(path);
    }
    std::vector<Image> frames;
    for (const auto& [image, end] : ReadWebp(path)) {
        frames.push_back(image);
    }
    return frames;
}

std::string ReadText(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

}  // namespace

TEST_F(PlayerTest, HelpAndPageHaveTheWordsOfEveryKind) {
    std::string table = "| `--out` | holds | alpha | audio copied |\n|---|---|---|---|\n";
    for (const OutputKind& kind : OutputKinds()) {
        const std::string audio = kind.audio != nullptr ? kind.audio : "none";
        for (const std::string& words : {std::string(kind.holds), audio}) {
            EXPECT_NE(words, "") << kind.example;
        }
        table += "| `" + std::string(kind.example) + "` | " + kind.holds + " | " +
                 Words(kind.alpha) + " | " + audio + " |\n";
    }
    EXPECT_NE(ReadText(PLAYER_PAGE).find("\n\n" + table + "\n"), std::string::npos) << table;

    ASSERT_EQ(Play("--help > help").status, 0);
    const std::string help = ReadText(Path("help"));
    EXPECT_NE(help.find(OutputExamples()), std::string::npos) << help;
    EXPECT_NE(help.find("\nOutput:\n" + OutputNotes()), std::string::npos) << help;
}

TEST_F(PlayerTest, EveryKindHoldsEveryFrameInOrderByBothPaths) {
    ClipKind kind;
    kind.frames = 23;
    kind.frameRate = kNtsc;
    MakeClip(Path("in.mkv"), kind);
    for (const std::string out : {"out.mp4", "out.mkv", "out.webm", "out.webp", "out.gif"}) {
        for (const std::string path : {"cpu", "decode"}) {
            PlayWell("in.mkv --path " + path + " --out " + out);
            const std::vector<Image> frames = ReadAny(Path(out));
            ASSERT_EQ(frames.size(), 23U) << out << ", " << path;
            for (size_t i = 0; i < frames.size(); ++i) {
                ASSERT_EQ(frames[i].size.width, 64);
                ASSERT_EQ(frames[i].size.height, 48);
                EXPECT_TRUE(Near(At(frames[i], 32, 24), FrameColor(static_cast<int>(i) + 1), 9))
                    << out << ", " << path << ", frame " << i + 1;
            }
        }
    }
    EXPECT_EQ(ReadWebp(Path("out.webp")).back().second, 767);  // 23 × 1001 / 30
}

TEST_F(PlayerTest, FramesThatRepeatAreWrittenEachTime) {
    WriteImage("still.png", Solid({32, 32}, {200, 30, 40, 255}));
    for (int i = 1; i <= 4; ++i) {
        std::filesystem::copy(Path("still.png"), Path(std::to_string(i) + ".png"));
    }
    for (const std::string out : {"out.mp4", "out.webm", "out.webp", "out.gif"}) {
        PlayWell("%d.png --out " + out);
        EXPECT_EQ(ReadAny(Path(out)).size(), 4U) << out;
    }
}

TEST_F(PlayerTest, AlphaIsKeptAndLeavesNoTraceOfTheFrameBefore) {
    constexpr Pixel kRed = {220, 20, 30, 255};
    constexpr Pixel kBlue = {20, 30, 220, 255};
    constexpr Pixel kFaint = {30, 200, 40, 60};
    // A red part that moves over nothing, and at last something faint.
    for (int i = 0; i < 3; ++i) {
        Image image = Solid({96, 64}, {0, 0, 0, 0});
        for (int y = 0; y < 64; ++y) {
            std::copy_n(Solid({32, 1}, i == 2 ? kFaint : kRed).pixels.begin(), 128,
                        image.At(32 * i, y));
        }
        WriteImage("in/" + std::to_string(i) + ".png", image);
    }
    for (const std::string out : {"out.webm", "out.webp", "out.gif"}) {
        PlayWell("in/%d.png --out " + out);
        const std::vector<Image> frames = ReadAny(Path(out));
        ASSERT_EQ(frames.size(), 3U) << out;
        EXPECT_TRUE(Near(At(frames[0], 8, 32), kRed, 12)) << out;
        EXPECT_TRUE(Near(At(frames[1], 48, 32), kRed, 12)) << out;
        EXPECT_EQ(At(frames[1], 8, 32)[3], 0) << out;
        EXPECT_EQ(At(frames[2], 48, 32)[3], 0) << out;
        const uint8_t faint = At(frames[2], 88, 32)[3];
        EXPECT_NEAR(faint, out == "out.gif" ? 0 : kFaint[3], 6) << out;
    }
    // Alpha of an export that comes in again: not premultiplied.
    EXPECT_TRUE(Near(At(ReadFrames(Path("out.webm"))[2], 88, 32), kFaint, 12));
    PlayWell("in/%d.png --backdrop '#141edc' --out out.mkv");
    EXPECT_TRUE(Near(At(ReadFrames(Path("out.mkv"))[0], 80, 32), kBlue));
}

TEST_F(PlayerTest, VideoKeepsFrameRateAndColorTags) {
    ClipKind kind;
    kind.frameRate = kNtsc;
    kind.tags = {AVCOL_RANGE_JPEG, AVCOL_SPC_BT2020_NCL, AVCOL_PRI_BT2020, AVCOL_TRC_SMPTE2084};
    MakeClip(Path("in.mkv"), kind);
    for (const std::string out : {"out.mp4", "out.mkv", "out.webm"}) {
        PlayWell("in.mkv --path cpu --out " + out);
        const VideoFile file(Path(out));
        EXPECT_EQ(av_cmp_q(file.FrameRate(), kNtsc), 0) << out;
        EXPECT_EQ(file.Codec().color_range, AVCOL_RANGE_JPEG) << out;
        EXPECT_EQ(file.Codec().color_space, AVCOL_SPC_BT2020_NCL) << out;
        EXPECT_EQ(file.Codec().color_primaries, AVCOL_PRI_BT2020) << out;
        EXPECT_EQ(file.Codec().color_trc, AVCOL_TRC_SMPTE2084) << out;
        EXPECT_TRUE(Near(At(ReadFrames(Path(out))[4], 32, 24), FrameColor(5))) << out;
    }
}

TEST_F(PlayerTest, AudioIsCopiedWhereTheContainerTakesIt) {
    ClipKind kind;
    kind.audio = {"aac", "pcm_s16le", "libopus"};
    MakeClip(Path("in.mkv"), kind);
    const auto given = ReadAudio(Path("in.mkv"));
    ASSERT_EQ(given.size(), 3U);
    struct Case {
        const char* out;
        std::vector<size_t> copied;
        std::vector<std::string> leftOut;
    };
    for (const Case& expected :
         {Case{"out.mp4", {0, 2}, {"pcm_s16le"}}, Case{"out.mkv", {0, 1, 2}, {}},
          Case{"out.webm", {2}, {"aac", "pcm_s16le"}}}) {
        const RunResult result = Play(std::string("in.mkv --out ") + expected.out);
        ASSERT_EQ(result.status, 0) << result.errors;
        for (const std::string& codec : expected.leftOut) {
            EXPECT_NE(result.errors.find("does not take " + codec), std::string::npos);
        }
        const auto copied = ReadAudio(Path(expected.out));
        ASSERT_EQ(copied.size(), expected.copied.size()) << expected.out;
        for (size_t i = 0; i < copied.size(); ++i) {
            const auto& source = given[expected.copied[i]];
            ASSERT_EQ(copied[i].size(), source.size()) << expected.out << ", track " << i;
            for (size_t k = 0; k < source.size(); ++k) {
                EXPECT_EQ(copied[i][k].bytes, source[k].bytes);
                EXPECT_NEAR(copied[i][k].seconds - source[k].seconds,
                            copied[i][0].seconds - source[0].seconds, 0.002);
            }
        }
    }
}

TEST_F(PlayerTest, AudioIsCutAndMovedWithTheVideo) {
    ClipKind kind;
    kind.frames = 100;
    kind.audio = {"pcm_s16le"};
    MakeClip(Path("in.mkv"), kind);
    // The first frame from the start on is the one of 1.52 s.
    PlayWell("in.mkv --start 1.51 --frames 25 --out out.mkv");
    const std::vector<AudioPacket> given = ReadAudio(Path("in.mkv")).at(0);
    const std::vector<AudioPacket> copied = ReadAudio(Path("out.mkv")).at(0);
    const double offset = 1.52 + VideoFile(Path("in.mkv")).Stream().start_time / 1000.0 -
                          VideoFile(Path("out.mkv")).Stream().start_time / 1000.0;
    size_t index = 0;
    while (given.at(index).bytes != copied.at(0).bytes) {
        ++index;
    }
    EXPECT_NEAR(given[index].seconds, offset + copied[0].seconds, 0.002);
    EXPECT_LT(given[index - 1].seconds, offset);
    EXPECT_NEAR(static_cast<double>(copied.size()), 1.0 * 48000 / 1024, 1.1);
}
