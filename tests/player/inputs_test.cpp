// Several inputs in one output, and inputs and outputs that are pipes.

#include <fstream>

#include "Clip.h"
#include "PlayerFixture.h"

using InputsTest = PlayerTest;

namespace {

double Seconds(const std::string& path) {
    const std::vector<AudioTrack> tracks = ReadAudio(path);
    return tracks.empty() ? 0.0 : tracks[0].packets.back().seconds;
}

}  // namespace

TEST_F(InputsTest, FollowEachOtherWithTheirSoundAndOneView) {
    ClipKind kind;
    kind.audio = {"aac"};
    MakeClip(Path("one.mkv"), kind);
    kind.frameRate = {30, 1};
    MakeClip(Path("two.mkv"), kind);
    for (const std::string path : {"cpu", "decode"}) {
        for (const std::string audio : {"copy", "aac"}) {
            const std::string where = path + ", " + audio;
            PlayWell("one.mkv two.mkv one.mkv --path " + path + " --audio " + audio +
                     " --json --out out.mkv > run.json");
            const std::vector<Image> frames = ReadFrames(Path("out.mkv"));
            ASSERT_EQ(frames.size(), 60U) << where;
            for (size_t i = 0; i < frames.size(); ++i) {
                EXPECT_NEAR(frames[i].Pixel(9, 9)[2], FrameColor(static_cast<int>(i % 20) + 1)[2],
                            8)
                    << where << ", frame " << i;
            }
            // After 0.8 and 0.667 s of frames, the whole sound of the last input.
            EXPECT_NEAR(Seconds(Path("out.mkv")), 1.467 + Seconds(Path("one.mkv")), 0.08) << where;
        }
    }
    PlayWell("one.mkv two.mkv --start 0.4 --frames 20 --out out.mkv");
    EXPECT_EQ(ReadFrames(Path("out.mkv")).size(), 20U);
    EXPECT_NEAR(Seconds(Path("out.mkv")), 0.4 + 10 / 30.0, 0.05);
}

TEST_F(InputsTest, ThatDoNotGoTogetherAreRefusedBeforeAnythingIsWritten) {
    ClipKind kind;
    kind.audio = {"aac"};
    MakeClip(Path("one.mkv"), kind);
    kind.audio = {"libopus"};
    MakeClip(Path("opus.mkv"), kind);
    kind.size = {32, 48};
    MakeClip(Path("narrow.mkv"), kind);
    const std::set<std::string> before = Files();
    EXPECT_EQ(Play("one.mkv narrow.mkv --out out.mkv").errors,
              "vornplay: narrow.mkv: its pictures are 32x48, not 64x48 as those of one.mkv; "
              "--size 64x48 scales them\n");
    EXPECT_EQ(Play("one.mkv opus.mkv --out out.mkv").errors,
              "vornplay: opus.mkv: its audio is not of the same form as that of one.mkv; "
              "--audio aac joins them\n");
    EXPECT_EQ(Play("one.mkv opus.mkv --audio aac --out out.webm").errors,
              "vornplay: out.webm: this kind of file does not take aac\n");
    EXPECT_EQ(Files(), before);
    PlayWell("one.mkv narrow.mkv --size 64x48 --audio aac --out out.mkv");
    EXPECT_EQ(ReadFrames(Path("out.mkv")).size(), 40U);
}

TEST_F(InputsTest, PipesCarryPicturesAndSoundBothWays) {
    ClipKind kind;
    kind.audio = {"aac"};
    MakeClip(Path("in.mkv"), kind);
    const std::vector<AudioTrack> sound = ReadAudio(Path("in.mkv"));
    for (const std::string format : {"mkv", "mp4", "ts"}) {
        const RunResult result = Run("cat in.mkv | " VORNPLAY,
                                     "- --quiet --out - --format " + format +
                                         " | " VORNPLAY " - --quiet --overwrite --out out.mkv");
        EXPECT_EQ(result.errors, "") << format;
        EXPECT_EQ(ReadFrames(Path("out.mkv")).size(), 20U) << format;
        EXPECT_EQ(ReadAudio(Path("out.mkv")).at(0).packets.size(), sound[0].packets.size())
            << format;
    }
    PlayWell("in.mkv --frames 5 --out whole.mp4");
    EXPECT_EQ(Play("in.mkv --out - --format png > picture").errors,
              "vornplay: --format png: this kind of file cannot be written to stdout; those that "
              "can are .mp4, .mkv, .ts, .webm, .gif\n");
    EXPECT_EQ(Play("in.mkv --quiet --out - > /dev/full").errors,
              "vornplay: stdout: cannot be written: No space left on device\n");
    EXPECT_EQ(Play("nosuch://clip --out url.mkv").errors,
              "vornplay: nosuch://clip: Protocol not found; -v shows more\n");
}

/// Python's server sends only whole files.
TEST_F(InputsTest, ServersMaySendOnlyWholeFiles) {
    MakeClip(Path("in.mkv"), ClipKind());
    PlayWell("in.mkv --out in.mp4");
    std::ofstream(Path("serve.py")) << R"(
import http.server, subprocess, sys, threading
server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), http.server.SimpleHTTPRequestHandler)
threading.Thread(target=server.serve_forever, daemon=True).start()
sys.exit(subprocess.call(sys.argv[1].replace("SERVER", "http://127.0.0.1:%d" % server.server_port), shell=True)))";
    const auto play = [this](const std::string& arguments) {
        return Run("python3 serve.py",
                   "'" VORNPLAY " --overwrite --out out.mkv " + arguments + "'");
    };
    for (const std::string clip : {"in.mkv", "in.mp4"}) {
        EXPECT_EQ(play("SERVER/" + clip + " --start 0.4").status, 0);
        EXPECT_EQ(ReadFrames(Path("out.mkv")).size(), 10U) << clip;
    }
    EXPECT_NE(play("SERVER/none.mp4").errors.find("404 Not Found"), std::string::npos);
}
