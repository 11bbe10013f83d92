#include <algorithm>
#include <fstream>
#include <iterator>

#include "PlayerFixture.h"

TEST_F(PlayerTest, BadInputGivesOneLineAndLeavesNothingBehind) {
    WriteImage("in.png", Pattern({9, 7}));
    std::ofstream(Path("text.bin")) << "no picture at all, only text\n";
    std::filesystem::create_directory(Path("taken.png"));
    const std::set<std::string> before = Files();
    for (const std::string arguments : {
             "",
             "none.mp4 --out out.mp4",
             "none/%04d.png --out out/%04d.png",
             "text.bin --out out.png",
             "in.png --start 5 --out out.png",
             "in.png --nonsense --out out.png",
             "in.png --size 0x7 --out out.png",
             "in.png --size 9 --out out.png",
             "in.png --size 99999x7 --out out.png",
             "in.png --out out.mp4",
             "in.png --out out.bmp",
             "in.png --out out.mkv",
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
             "in.png --backdrop red --size 8x8 --out out.mp4",
         }) {
        const RunResult result = Play(arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_EQ(result.errors.rfind("vornplay: ", 0), 0U) << arguments << "\n" << result.errors;
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1)
            << arguments << "\n"
            << result.errors;
        EXPECT_EQ(Files(), before) << arguments;
    }
}

TEST_F(PlayerTest, AnEarlierOutputOutlivesAFailedRun) {
    WriteImage("in.png", Pattern({9, 7}));
    std::ofstream(Path("out.mp4")) << "earlier";
    EXPECT_EQ(Play("in.png --size 8x8 --mask none.png --out out.mp4").status, 2);
    EXPECT_EQ(std::filesystem::file_size(Path("out.mp4")), 7U);
}

TEST_F(PlayerTest, WithoutAGlContextItSaysSo) {
    WriteImage("in.png", Pattern({9, 7}));
    const RunResult result =
        Run("__EGL_VENDOR_LIBRARY_FILENAMES=/dev/null " VORNPLAY, "in.png --no-window");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors.rfind("vornplay: no EGL", 0), 0U) << result.errors;
}

TEST_F(PlayerTest, WithoutADisplayItSaysWhatToDo) {
    WriteImage("in.png", Pattern({9, 7}));
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
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    constexpr size_t kLengthSize = 4;
    size_t unit = bytes.find("mdat") + kLengthSize;
    for (int pictures = 0; pictures < number;) {
        const int type = bytes.at(unit + kLengthSize) & 31;
        pictures += type == 1 || type == 5 ? 1 : 0;
        if (pictures == number) {
            bytes[unit + kLengthSize] = 0x65;  // A key picture, which it is not.
        }
        size_t length = 0;
        for (size_t i = 0; i < kLengthSize; ++i) {
            length = length << 8U | static_cast<uint8_t>(bytes.at(unit + i));
        }
        unit += kLengthSize + length;
    }
    std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace

TEST_F(PlayerTest, CountsPicturesThatTheDecoderDropsInSilence) {
    WriteClip("clip", 12, {64, 48});
    PlayWell("clip/%04d.png --out clip.mp4");
    DisguisePicture(Path("clip.mp4"), 8);
    const RunResult result = Play("clip.mp4 --no-window");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("clip.mp4 is broken: 1 frames lost"), std::string::npos)
        << result.errors;
}
