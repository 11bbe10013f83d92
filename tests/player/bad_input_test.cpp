#include <algorithm>
#include <fstream>

#include "Clip.h"
#include "PlayerFixture.h"
#include "support/VideoFile.h"

extern "C" {
#include <libavutil/intreadwrite.h>
}

using BadInputTest = PlayerTest;

TEST_F(BadInputTest, BadInputGivesOneLineAndLeavesNothingBehind) {
    WriteImage("in.png", Opaque(Noise({9, 7}, 1)));
    std::ofstream(Path("text.bin")) << "no picture at all, only text\n";
    std::filesystem::create_directory(Path("taken.png"));
    WriteClip("clip", 2, {8, 8});
    std::filesystem::create_symlink("in.png", Path("link.png"));
    std::filesystem::create_hard_link(Path("in.png"), Path("same.png"));
    std::filesystem::create_directory_symlink("clip", Path("there"));
    std::ofstream(Path("deep.json")) << std::string(20000, '[');
    std::ofstream(Path("script.png")) << "{}";
    const std::set<std::string> before = Files();
    const Image picture = Read("in.png");
    for (const std::string arguments :
         {"--quiet",
          "in.png --overwrite --out in.png",
          "in.png --overwrite --out ./clip/../in.png",
          "file:in.png --overwrite --out in.png",
          "in.png --overwrite --out link.png",
          "link.png --overwrite --out in.png",
          "in.png --overwrite --out same.png",
          "in.png --overwrite --out there/%d.png --mask clip/%04d.png",
          "clip/%04d.png --overwrite --out there/0002.png",
          "clip/0001.png --overwrite --out in.png --at 1,2 --sticker same.png",
          "in.png --overwrite --script script.png --out script.png",
          "in.png --out taken.png/%d.png --script /dev/zero",
          "in.png --out new.png --script deep.json",
          "in.png --out same2.png --script text.bin",
          "none.mp4 --out out.mp4",
          "none/%04d.png --out out/%04d.png",
          "text.bin --out out.png",
          "in.png --start 5 --out out.png",
          "in.png --nonsense --out out.png",
          "in.png --size 0x7 --out out.png",
          "in.png --size 9 --out out.png",
          "in.png --size 99999x7 --out out.png",
          "in.png --out out.bmp",
          "in.png --out out%s.png",
          "in.png --out none/out.png",
          "in.png --size 8x8 --out none/out.mp4",
          "in.png --size 8x8 --out none/out.webm",
          "in.png --out none/out.gif",
          "in.png --out none/out.webp",
          "in.png --script none.json --out out.png",
          "in.png --script text.bin --mirror --out out.png",
          "in.png --out taken.png",
          "in.png --out text.bin/%d.png",
          "in.png --mask text.bin --out out.png",
          "in.png --sticker text.bin --at 1,2 --out out.png",
          "in.png --sticker in.png --at 1,2,3 --out out.png",
          "in.png --at 1,2 --out out.png",
          "in.png --view 0,0,two,0 --out out.png",
          "in.png --view 0,0,2,0 --fit --out out.png",
          "in.png --clear 0,0,0,256 --out out.png",
          "in.png --frames 0 --out out.png",
          "in.png --start nan --out out.png",
          "in.png --backdrop red --size 8x8 --out out.mp4"}) {
        const RunResult result = Play(arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_EQ(result.errors.rfind("vornplay: ", 0), 0U) << arguments << "\n" << result.errors;
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1)
            << arguments << "\n"
            << result.errors;
        EXPECT_EQ(Files(), before) << arguments;
        EXPECT_EQ(Read("in.png").pixels, picture.pixels) << arguments;
    }
}

TEST_F(BadInputTest, AnEarlierOutputOutlivesAFailedRun) {
    WriteImage("in.png", Opaque(Noise({9, 7}, 1)));
    std::ofstream(Path("out.mp4")) << "earlier";
    EXPECT_EQ(Play("in.png --size 8x8 --mask none.png --out out.mp4").status, 2);
    EXPECT_EQ(std::filesystem::file_size(Path("out.mp4")), 7U);
}

TEST_F(BadInputTest, WithoutAGlContextItSaysSo) {
    WriteImage("in.png", Opaque(Noise({9, 7}, 1)));
    const RunResult result =
        Run("__EGL_VENDOR_LIBRARY_FILENAMES=/dev/null " VORNPLAY, "in.png --no-window");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors.rfind("vornplay: no EGL", 0), 0U) << result.errors;
}

TEST_F(BadInputTest, WithoutADisplayItSaysWhatToDo) {
    WriteImage("in.png", Opaque(Noise({9, 7}, 1)));
    const std::string player = "env -u DISPLAY -u WAYLAND_DISPLAY " VORNPLAY " ";
    const RunResult result = Run(player, "in.png");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(
        result.errors,
        "vornplay: no display to open a window on: name a file with --out, or let it be drawn "
        "and timed with --no-window\n");
    for (const std::string arguments : {"--no-window", "--frames 1"}) {
        EXPECT_EQ(Run(player, "in.png " + arguments).status, 0) << arguments;
    }
    EXPECT_NE(Run(player, "none.png").errors.find("none.png: "), std::string::npos);
}

namespace {

/// Makes the type of one picture of an H.264 file wrong, so that the decoder drops it without an
/// error.
void DisguisePicture(const std::string& path, int number) {
    VideoFile file(path);
    const AVPacket* unit = nullptr;
    for (int i = 0; i < number; ++i) {
        unit = file.Next();
    }
    int64_t type = 4;  // Behind the length.
    while ((unit->data[type] & 31) == 6) {
        type += 4 + AV_RB32(unit->data + type - 4);
    }
    std::fstream(path, std::ios::in | std::ios::out | std::ios::binary)
        .seekp(unit->pos + type)
        .put(0x65);  // A key picture, which it is not.
}

}  // namespace

TEST_F(BadInputTest, CountsPicturesThatTheDecoderDropsInSilenceUnlessFieldsMayBePaired) {
    ClipKind kind;
    kind.container = "mp4";
    for (const bool interlaced : {false, true}) {
        kind.interlaced = interlaced;
        MakeClip(Path("clip.mp4"), kind);
        DisguisePicture(Path("clip.mp4"), 8);
        const RunResult result = Play("clip.mp4 --no-window --path decode");
        EXPECT_EQ(result.status, interlaced ? 0 : 1) << result.errors;
        const bool named =
            result.errors.find("clip.mp4 is broken: 1 frames lost") != std::string::npos;
        EXPECT_EQ(named, !interlaced) << result.errors;
    }
}

TEST_F(BadInputTest, BrokenInputIsDrawnAsFarAsItDecodes) {
    WriteClip("in", 5, {16, 16});
    // Pictures of many sizes are scaled to one.
    for (int i = 1; i <= 40; ++i) {
        WriteImage("clip/" + std::to_string(i) + ".png", Opaque(Noise({150 + i, 160}, 1)));
    }
    PlayWell("clip/%d.png --size 160x160 --out clip.mp4");
    std::filesystem::resize_file(Path("clip.mp4"),
                                 std::filesystem::file_size(Path("clip.mp4")) * 2 / 3);
    RunResult result = Play("clip.mp4 --out out.mp4");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("clip.mp4 is broken: "), std::string::npos) << result.errors;
    EXPECT_GT(std::filesystem::file_size(Path("out.mp4")), 0U);

    std::filesystem::resize_file(Path("in/0003.png"), 40);
    result = Play("in/%04d.png --out out/%d.png");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("in/%04d.png is broken: 1 frames lost"), std::string::npos);
    EXPECT_NE(result.errors.find("4 frames in, 4 out, 1 failed"), std::string::npos);
    EXPECT_EQ(Read("out/3.png").Pixel(8, 8), FrameColor(4));
}
