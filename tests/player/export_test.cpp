// The kinds of files that are written, each read again.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "Clip.h"
#include "PlayerFixture.h"
#include "export/Output.h"
#include "support/VideoReader.h"

using ExportTest = PlayerTest;

namespace {

constexpr AVRational kNtsc = {30000, 1001};

/// Whether all four channels agree, up to what lossy codecs lose.
bool Near(const Rgba& pixel, const Rgba& expected, int loss = 6) {
    for (size_t i = 0; i < pixel.size(); ++i) {
        if (std::abs(pixel.at(i) - expected.at(i)) > loss) {
            return false;
        }
    }
    return true;
}

size_t Expected(const OutputKind& kind, size_t frames) {
    return kind.frames == OutputFrames::kFirst ? 1 : frames;
}

std::string ReadText(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

void ExpectCopy(const AudioTrack& copy, const AudioTrack& source, const std::string& where) {
    EXPECT_EQ(copy.language, source.language) << where;
    const bool ts = where.rfind("x.ts", 0) == 0;  // It wraps packets, and keeps no titles.
    if (!ts && where.rfind("x.mp4", 0) != 0) {  // libavformat writes titles but does not read them.
        EXPECT_EQ(copy.title, source.title) << where;
    }
    ASSERT_EQ(copy.packets.size(), source.packets.size()) << where;
    for (size_t i = 0; i < source.packets.size(); ++i) {
        EXPECT_TRUE(ts || copy.packets[i].bytes == source.packets[i].bytes) << where;
        EXPECT_NEAR(copy.packets[i].seconds - source.packets[i].seconds,
                    copy.packets[0].seconds - source.packets[0].seconds, 0.002)
            << where;
    }
}

}  // namespace

TEST_F(ExportTest, HelpAndPageHaveTheWordsOfEveryKind) {
    std::string table = "| `--out` | holds | alpha | audio copied |\n|---|---|---|---|\n";
    for (const OutputKind& kind : OutputKinds()) {
        const std::string audio = kind.audio != nullptr ? kind.audio : "none";
        EXPECT_TRUE(*kind.holds != '\0' && !audio.empty()) << kind.example;
        table += "| `" + std::string(kind.example) + "` | " + kind.holds + " | " +
                 Words(kind.alpha) + " | " + audio + " |\n";
    }
    EXPECT_NE(ReadText(PLAYER_PAGE).find("\n\n" + table + "\n"), std::string::npos) << table;

    ASSERT_EQ(Play("--help > help").status, 0);
    const std::string help = ReadText(Path("help"));
    EXPECT_NE(help.find("\nKinds of output:\n" + OutputNotes()), std::string::npos) << help;
}

TEST_F(ExportTest, EveryKindHoldsEveryFrameInOrderByBothPaths) {
    ClipKind clip;
    clip.frames = 23;
    clip.frameRate = kNtsc;
    MakeClip(Path("in.mkv"), clip);
    for (const OutputKind& kind : OutputKinds()) {
        const std::string out = kind.example;
        for (const std::string path : {"cpu", "decode"}) {
            PlayWell("in.mkv --path " + path + " --out " + out);
            const std::vector<Image> frames = ReadFrames(Path(out));
            ASSERT_EQ(frames.size(), Expected(kind, 23)) << out << ", " << path;
            for (size_t i = 0; i < frames.size(); ++i) {
                ASSERT_EQ(frames[i].size.width, 64);
                ASSERT_EQ(frames[i].size.height, 48);
                EXPECT_TRUE(Near(frames[i].Pixel(32, 24), FrameColor(static_cast<int>(i) + 1), 9))
                    << out << ", " << path << ", frame " << i + 1;
            }
        }
    }
    EXPECT_EQ(ReadWebp(Path("x.webp")).back().second, 767);  // 23 × 1001 / 30
    EXPECT_NEAR(av_q2d(VideoFile(Path("x.apng")).FrameRate()), av_q2d(kNtsc), 0.01);
    // The start is found also where it is no key frame.
    PlayWell("x.mp4 --start 0.2 --frames 1 --out seventh.png");
    EXPECT_TRUE(Near(Read("seventh.png").Pixel(32, 24), FrameColor(7), 9));
}

TEST_F(ExportTest, EveryKindKeepsItsAlphaLeavesNoTraceAndRepeatsFrames) {
    constexpr Rgba kRed = {220, 20, 30, 255};
    constexpr Rgba kBlue = {20, 30, 220, 255};
    constexpr Rgba kFaint = {30, 200, 40, 60};
    // A red part that moves over nothing, and at last something faint, three times.
    for (int i = 0; i < 5; ++i) {
        Image image = Solid({96, 64}, {0, 0, 0, 0});
        for (int y = 0; y < 64; ++y) {
            std::copy_n(Solid({32, 1}, i < 2 ? kRed : kFaint).pixels.begin(), 128,
                        image.At(32 * std::min(i, 2), y));
        }
        WriteImage("in/" + std::to_string(i) + ".png", image);
    }
    for (const OutputKind& kind : OutputKinds()) {
        const std::string out = kind.example;
        PlayWell("in/%d.png --backdrop '#141edc' --out " + out);
        const std::vector<Image> frames = ReadFrames(Path(out));
        ASSERT_EQ(frames.size(), Expected(kind, 5)) << out;
        EXPECT_TRUE(Near(frames[0].Pixel(8, 32), kRed, 12)) << out;
        if (kind.alpha == OutputAlpha::kFlattened) {
            EXPECT_TRUE(Near(frames[0].Pixel(80, 32), kBlue)) << out;
            EXPECT_TRUE(Near(frames[2].Pixel(88, 32), {22, 70, 178, 255})) << out;
            continue;
        }
        EXPECT_EQ(frames[0].Pixel(80, 32)[3], 0) << out;
        if (frames.size() > 1) {
            EXPECT_TRUE(Near(frames[1].Pixel(48, 32), kRed, 12)) << out;
            EXPECT_EQ(frames[1].Pixel(8, 32)[3], 0) << out;
            EXPECT_EQ(frames[2].Pixel(48, 32)[3], 0) << out;
            const Rgba faint = frames[2].Pixel(88, 32);
            const bool kept = kind.alpha == OutputAlpha::kKept;
            EXPECT_TRUE(kept ? Near(faint, kFaint, 12) : faint[3] == 0) << out;
        }
    }
    PlayWell("in/%d.png --out checker.mkv");
    const Image checker = ReadFrames(Path("checker.mkv"))[0];
    EXPECT_FALSE(Near(checker.Pixel(72, 8), checker.Pixel(88, 8)));
}

TEST_F(ExportTest, VideoKeepsFrameRateAndColorTags) {
    ClipKind kind;
    kind.frameRate = kNtsc;
    kind.tags = {AVCOL_RANGE_JPEG, AVCOL_SPC_BT2020_NCL, AVCOL_PRI_BT2020, AVCOL_TRC_BT2020_10};
    MakeClip(Path("in.mkv"), kind);
    for (const std::string out : {"out.mp4", "out.mkv", "out.webm"}) {
        PlayWell("in.mkv --path cpu --out " + out);
        const VideoFile file(Path(out));
        EXPECT_EQ(av_cmp_q(file.FrameRate(), kNtsc), 0) << out;
        EXPECT_EQ(file.Codec().color_range, AVCOL_RANGE_JPEG) << out;
        EXPECT_EQ(file.Codec().color_space, AVCOL_SPC_BT2020_NCL) << out;
        EXPECT_EQ(file.Codec().color_primaries, AVCOL_PRI_BT2020) << out;
        EXPECT_EQ(file.Codec().color_trc, AVCOL_TRC_BT2020_10) << out;
        EXPECT_TRUE(Near(ReadFrames(Path(out))[4].Pixel(32, 24), FrameColor(5))) << out;
    }
}

TEST_F(ExportTest, VideoOfUntaggedInputHasTheTagsOfItsSize) {
    for (const auto& [size, matrix] : {std::pair(Size{64, 48}, AVCOL_SPC_SMPTE170M),
                                       std::pair(Size{1280, 16}, AVCOL_SPC_BT709)}) {
        WriteClip("in", 2, size);
        PlayWell("in/%04d.png --out out.mp4");
        const VideoFile file(Path("out.mp4"));
        EXPECT_EQ(file.Codec().color_space, matrix);
        EXPECT_EQ(file.Codec().color_range, AVCOL_RANGE_MPEG);
        EXPECT_TRUE(Near(ReadFrames(Path("out.mp4"))[1].Pixel(32, 8), FrameColor(2)));
    }
}

TEST_F(ExportTest, GifRefusesMoreThanAHundredFramesASecond) {
    ClipKind clip;
    clip.frameRate = {101, 1};
    MakeClip(Path("in.mkv"), clip);
    const RunResult result = Play("in.mkv --out out.gif");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors, "vornplay: out.gif: a gif shows at most 100 frames a second\n");
}

TEST_F(ExportTest, AudioIsCopiedWhereTheKindTakesItAndElseNamed) {
    ClipKind clip;
    clip.audio = {"aac", "pcm_s16le", "libopus"};
    MakeClip(Path("in.mkv"), clip);
    const std::vector<AudioTrack> given = ReadAudio(Path("in.mkv"));
    ASSERT_EQ(given.size(), 3U);
    const std::vector<std::string> names = {"aac", "pcm_s16le", "opus"};
    const std::map<std::string, std::set<size_t>> copies = {
        {"x.mp4", {0, 2}}, {"x.ts", {0, 2}}, {"x.mkv", {0, 1, 2}}, {"x.webm", {2}}};
    for (const OutputKind& kind : OutputKinds()) {
        const std::string out = kind.example;
        const auto found = copies.find(out);
        const std::set<size_t> expected =
            found != copies.end() ? found->second : std::set<size_t>();
        EXPECT_EQ(expected.empty(), kind.audio == nullptr) << out;
        const RunResult result = Play("in.mkv --out " + out);
        ASSERT_EQ(result.status, 0) << result.errors;
        for (size_t i = 0; i < names.size(); ++i) {
            const std::string line =
                "vornplay: " + out + " does not take " + names[i] + "; this audio is left out\n";
            EXPECT_EQ(result.errors.find(line) == std::string::npos, expected.count(i) == 1)
                << line;
        }
        if (expected.empty()) {
            continue;
        }
        const std::vector<AudioTrack> copied = ReadAudio(Path(out));
        ASSERT_EQ(copied.size(), expected.size()) << out;
        size_t track = 0;
        for (const size_t i : expected) {
            ExpectCopy(copied[track++], given[i], out + ", track " + std::to_string(i));
        }
    }
}

TEST_F(ExportTest, AudioIsCutAndMovedWithTheVideo) {
    ClipKind kind;
    kind.frames = 100;
    kind.audio = {"pcm_s16le"};
    MakeClip(Path("in.mkv"), kind);
    // The first frame from the start on is the one of 1.52 s.
    PlayWell("in.mkv --start 1.51 --frames 25 --out out.mkv");
    const std::vector<AudioPacket> given = ReadAudio(Path("in.mkv")).at(0).packets;
    const std::vector<AudioPacket> copied = ReadAudio(Path("out.mkv")).at(0).packets;
    const double offset =
        1.52 + static_cast<double>(VideoFile(Path("in.mkv")).Stream().start_time) / 1000.0 -
        static_cast<double>(VideoFile(Path("out.mkv")).Stream().start_time) / 1000.0;
    size_t index = 0;
    while (given.at(index).bytes != copied.at(0).bytes) {
        ++index;
    }
    EXPECT_NEAR(given[index].seconds, offset + copied[0].seconds, 0.002);
    EXPECT_LT(given[index - 1].seconds, offset);
    EXPECT_NEAR(static_cast<double>(copied.size()), 1.0 * 48000 / 1024, 1.1);
}

TEST_F(ExportTest, OptionsChooseCodecQualityAudioAndLength) {
    ClipKind kind;
    kind.frames = 50;
    kind.audio = {"aac"};
    MakeClip(Path("in.mkv"), kind);
    const auto codec = [this](const std::string& name) { return VideoFile(Path(name)).Codec(); };
    PlayWell("in.mkv --out best.mp4 --crf 1");
    PlayWell("in.mkv --out least.mp4 --crf 51 --preset ultrafast");
    EXPECT_GT(std::filesystem::file_size(Path("best.mp4")),
              std::filesystem::file_size(Path("least.mp4")));
    PlayWell("in.mkv --out new.mkv --codec h265 --start 0.4 --duration 0.8 --audio none");
    EXPECT_EQ(codec("new.mkv").codec_id, AV_CODEC_ID_HEVC);
    EXPECT_EQ(ReadFrames(Path("new.mkv")).size(), 20U);
    EXPECT_TRUE(VideoFile(Path("new.mkv")).AudioCodecs().empty());
    PlayWell("in.mkv --out new.mp4 --codec vp9 --frames 2");
    EXPECT_EQ(codec("new.mp4").codec_id, AV_CODEC_ID_VP9);
    EXPECT_EQ(Play("in.mkv --out new.webm --codec h264").status, 2);
    EXPECT_EQ(Play("in.mkv --out new.gif --crf 3").status, 2);

    ASSERT_EQ(Play("--version > version").status, 0);
    const std::string version = ReadText(Path("version"));
    EXPECT_EQ(version.rfind("vornplay and libvornrenderer ", 0), 0U) << version;
    EXPECT_NE(version.find("\nGL: OpenGL ES 3"), std::string::npos) << version;
    EXPECT_EQ(Play("in.mkv --no-windo").errors,
              "vornplay: --no-windo is no option; the nearest is --no-window\n");
}
