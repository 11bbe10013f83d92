// Clips that are rendered in parts, and joined.

#include <algorithm>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "Clip.h"
#include "PlayerFixture.h"
#include "support/VideoFile.h"

namespace {

constexpr int kParts = 3;

class PartTest : public PlayerTest {
protected:
    /// 90 frames with seven key frames, which are no restarts of the decoder but for the first one.
    void MakeOpenClip(const std::string& name, const std::string& options = "") const {
        std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
        const RunResult made =
            Run("ffmpeg",
                "-v error -f lavfi -i testsrc2=s=96x64:r=30:d=3 -f lavfi -i sine=d=3.1 "
                "-c:v libx264 -g 14 -bf 3 -x264-params open-gop=1:scenecut=0 " +
                    options + " " + name);
        ASSERT_EQ(made.status, 0) << made.errors;
    }

    static std::string Part(const std::string& out, int number) {
        return "p" + std::to_string(number) + "/" + out;
    }

    /// Renders a clip whole and in parts, which it joins.
    void PlayBothWays(const std::string& arguments, const std::string& out) const {
        for (const char* directory : {"whole", "joined", "p1", "p2", "p3"}) {
            std::filesystem::create_directories(Path(directory));
        }
        PlayWell(arguments + " --out whole/" + out);
        std::string parts;
        for (int i = 1; i <= kParts; ++i) {
            PlayWell(arguments + " --out " + Part(out, i) + " --part " + std::to_string(i) + "/" +
                     std::to_string(kParts));
            parts = " " + Part(out, i) + parts;  // They may be named in any order.
        }
        const RunResult joined = Play("--join joined/" + out + parts);
        EXPECT_EQ(joined.status, 0) << joined.errors;
    }

    std::vector<int64_t> Stamps(const std::string& name) const {
        std::vector<int64_t> stamps;
        VideoFile file(Path(name));
        for (const AVPacket* packet = file.Next(); packet != nullptr; packet = file.Next()) {
            stamps.push_back(packet->pts);
        }
        std::sort(stamps.begin(), stamps.end());
        return stamps;
    }

    void ExpectSamePictures(const std::string& one, const std::string& other) const {
        const std::vector<Image> expected = ReadFrames(Path(one));
        const std::vector<Image> frames = ReadFrames(Path(other));
        ASSERT_EQ(frames.size(), expected.size());
        for (size_t i = 0; i < frames.size(); ++i) {
            EXPECT_EQ(frames[i].pixels, expected[i].pixels) << other << ", frame " << i;
        }
    }

    void ExpectSameAudio(const std::string& one, const std::string& other) const {
        const std::vector<AudioTrack> expected = ReadAudio(Path(one));
        const std::vector<AudioTrack> audio = ReadAudio(Path(other));
        ASSERT_EQ(audio.size(), 1U);
        ASSERT_EQ(audio[0].packets.size(), expected[0].packets.size());
        for (size_t i = 0; i < audio[0].packets.size(); ++i) {
            EXPECT_EQ(audio[0].packets[i].seconds, expected[0].packets[i].seconds);
            EXPECT_EQ(audio[0].packets[i].bytes, expected[0].packets[i].bytes);
        }
    }

    std::string ReadText(const std::string& name) const {
        std::ifstream file(Path(name));
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

}  // namespace

TEST_F(PartTest, JoinedPartsAreTheWhole) {
    MakeOpenClip("even.mp4");
    MakeOpenClip("varied.mkv", "-vf \"select='not(mod(n,3))+lt(n,40)'\" -vsync vfr");
    std::ofstream(Path("s.json"))
        << R"({"keyframes":[{"time":0.2,"view":"fit","stickers":[[20,50]]},)"
        << R"({"time":2.9,"view":{"x":0.3,"zoom":3},"stickers":[[80,60]]}]})";
    WriteImage("sticker.png", Solid({8, 8}, {200, 10, 20, 255}));
    WriteClip("mask", 60, {48, 32});
    const std::string script = " --script s.json --sticker sticker.png";
    const std::string moves = " --mask mask/%04d.png --view-to 0.3,0,3,0";
    for (const std::string& arguments :
         std::vector<std::string>{"even.mp4" + script, "even.mp4 --start 0.85 --duration 1.3",
                                  "varied.mkv --path cpu" + moves}) {
        PlayBothWays(arguments + " --codec ffv1 --overwrite", "x.mkv");
        EXPECT_EQ(Stamps("joined/x.mkv"), Stamps("whole/x.mkv")) << arguments;
        ExpectSameAudio("whole/x.mkv", "joined/x.mkv");
        ExpectSamePictures("whole/x.mkv", "joined/x.mkv");
        std::filesystem::remove(Path("joined/x.mkv"));
    }
    PlayBothWays("varied.mkv", "x.mp4");  // Its parts begin late, with times of their own.
    EXPECT_EQ(Stamps("joined/x.mp4"), Stamps("whole/x.mp4"));
    ExpectSameAudio("whole/x.mp4", "joined/x.mp4");
}

TEST_F(PartTest, PartsWithoutKeyFramesAreEmptyAndPicturesAreNumberedThrough) {
    MakeOpenClip("in.mkv", "-x264-params open-gop=1:scenecut=0:keyint=60");
    PlayBothWays("in.mkv", "%04d.png");
    EXPECT_EQ(nlohmann::json::parse(ReadText("p1/%04d.png.json"))["frames"], 0);
    ExpectSamePictures("whole/%04d.png", "joined/%04d.png");
    EXPECT_TRUE(std::filesystem::exists(Path("joined/0090.png")));
}

TEST_F(PartTest, PartsThatDoNotBelongTogetherAreRefused) {
    MakeOpenClip("a/in.mkv");
    MakeOpenClip("b/in.mkv", "-crf 30");
    const auto refuses = [this](const std::string& parts, const std::string& reason) {
        const RunResult result = Play("--join out.mkv " + parts);
        EXPECT_EQ(result.status, 2);
        EXPECT_NE(result.errors.find(reason), std::string::npos) << result.errors;
        EXPECT_FALSE(std::filesystem::exists(Path("out.mkv")));
    };
    PlayWell("a/in.mkv --out 1.mkv --part 1/2");
    PlayWell("a/in.mkv --out 2.mkv --part 2/2");
    PlayWell("a/in.mkv --out 3.mkv --part 2/3");
    PlayWell("a/in.mkv --out mirrored.mkv --part 2/2 --mirror");
    PlayWell("b/in.mkv --out other.mkv --part 2/2");
    PlayWell("a/in.mkv --out small.mkv --part 2/2 --size 48x32");
    refuses("1.mkv", "part 2 of 2 is missing");
    refuses("1.mkv 2.mkv 2.mkv", "part 2 of 2 is there twice");
    refuses("1.mkv 3.mkv", "they are of 2 and of 3 parts");
    refuses("1.mkv mirrored.mkv", "options is");
    refuses("1.mkv other.mkv", "content is");
    refuses("1.mkv small.mkv", "options is");
    auto record = nlohmann::json::parse(ReadText("2.mkv.json"));
    record["from"] = record["from"].get<int64_t>() + 1;
    std::filesystem::copy(Path("2.mkv"), Path("gap.mkv"));
    std::ofstream(Path("gap.mkv.json")) << record;
    refuses("1.mkv gap.mkv", "does not begin where the other ends");
    std::filesystem::copy(Path("2.mkv"), Path("bare.mkv"));
    refuses("1.mkv bare.mkv", "bare.mkv: is no part that is done; bare.mkv.json is missing");
    std::ofstream(Path("2.mkv"), std::ios::app) << "more";
    refuses("1.mkv 2.mkv", "2.mkv: is not the file that its record is about");
    EXPECT_EQ(Play("--join 1.mkv 1.mkv 2.mkv").status, 2);
}

TEST_F(PartTest, UnfinishedPartsAndClipsThatCannotBeCutLeaveNoRecord) {
    MakeOpenClip("in.mp4");
    PlayWell("in.mp4 --out part.mkv --part 2/3 --codec ffv1");
    const RunResult full =
        Run("ulimit -f 40;", VORNPLAY " in.mp4 --overwrite --out part.mkv --part 2/3 --codec ffv1");
    EXPECT_EQ(full.status, 2) << full.errors;
    EXPECT_FALSE(std::filesystem::exists(Path("part.mkv.json")));

    // Times in the order of decoding.
    ASSERT_EQ(Run("ffmpeg", "-v error -i in.mp4 -c copy -bsf:v setts=pts=DTS bad.mp4").status, 0);
    const RunResult bad = Play("bad.mp4 --out bad.mkv --part 1/3 --quiet");
    EXPECT_EQ(bad.status, 3);
    EXPECT_EQ(bad.errors,
              "vornplay: bad.mp4: its time stamps are missing or step back, so that it cannot be "
              "cut; leave out --part\n");
    EXPECT_FALSE(std::filesystem::exists(Path("bad.mkv")));
    EXPECT_EQ(Play("in.mp4 --out x.gif --part 1/3").status, 2);
    EXPECT_EQ(Play("in.mp4 --out x.mkv --part 4/3").status, 2);
}
