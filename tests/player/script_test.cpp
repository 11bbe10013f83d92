// Compositions that are read from a file.

#include <fstream>

#include "Clip.h"
#include "PlayerFixture.h"

namespace {

constexpr Rgba kGreen = {0, 255, 0, 255};

class ScriptTest : public PlayerTest {
protected:
    void WriteScript(const std::string& text) const { std::ofstream(Path("move.json")) << text; }
};

}  // namespace

TEST_F(ScriptTest, ChangesWhatItNamesAtItsTimes) {
    // Left half red, right half blue; 25 frames a second.
    Image half = Solid({200, 100}, {0, 0, 255, 255});
    for (int y = 0; y < 100; ++y) {
        std::copy_n(Solid({100, 1}, {255, 0, 0, 255}).pixels.begin(), 400, half.At(0, y));
    }
    for (int i = 0; i < 10; ++i) {
        WriteImage("in/" + std::to_string(i) + ".png", half);
    }
    PlayWell("in/%d.png --fit --out in.mp4");
    WriteImage("art/pin.png", Solid({2, 2}, kGreen));
    WriteScript(R"({
        "sticker": "art/pin.png",
        "keyframes": [
            { "time": 0,    "view": "fit" },
            { "time": 0.08, "view": { "x": 0.5, "zoom": 1.4003148 },
                            "stickers": [[20, 80]] },
            { "time": 0.16, "stickers": [[60, 80]] },
            { "time": 0.24, "mirror": true, "stickers": [] },
            { "time": 0.32, "mirror": false, "stickers": [[20, 80], [-1, -1]] }
        ]
    })");
    for (const std::string path : {"in/%d.png", "in.mp4 --path decode", "in.mp4 --path cpu"}) {
        PlayWell(path + " --clear 9,8,7,255 --script move.json --out out/%d.png");
        // Where red and blue meet: at the middle, then a quarter of the picture further left.
        const std::array<int, 10> edges = {100, 75, 50, 50, 50, 50, 50, 50, 50, 50};
        // The sticker's middle, moved with the picture.
        const std::array<int, 10> stickers = {-1, -1, -30, -10, 10, 10, -1, -1, -30, -30};
        for (size_t i = 0; i < edges.size(); ++i) {
            const Image frame = Read("out/" + std::to_string(i + 1) + ".png");
            const bool mirrored = i == 6 || i == 7;
            const size_t left = mirrored ? 2 : 0;
            EXPECT_GT(frame.Pixel(edges.at(i) - 8, 95).at(left), 200) << path << ", frame " << i;
            EXPECT_GT(frame.Pixel(edges.at(i) + 8, 95).at(2 - left), 200)
                << path << ", frame " << i;
            const bool shown = frame.Pixel(10, 65) == kGreen;
            EXPECT_EQ(shown, stickers.at(i) == 10) << path << ", frame " << i;
        }
        EXPECT_FALSE(std::filesystem::exists(Path("out/11.png")));
        std::filesystem::remove_all(Path("out"));
    }
}

TEST_F(ScriptTest, StickersMoveEvenlyWithTheViewThatTheScriptNames) {
    WriteClip("in", 5, {200, 100});
    WriteImage("pin.png", Solid({2, 2}, {255, 255, 255, 255}));
    WriteScript(R"({ "keyframes": [ { "time": 0.04, "stickers": [[40, 80]], "view": { "zoom": 2 } },
                                    { "time": 0.12, "stickers": [[120, 80]] } ] })");
    PlayWell("in/%04d.png --mask pin.png --sticker pin.png --script move.json --out out/%d.png");
    // Zoom 2 shows the picture 1.15 times as large.
    const std::array<int, 5> middles = {-1, 31, 77, 123, 123};
    for (int i = 0; i < 5; ++i) {
        const Image frame = Read("out/" + std::to_string(i + 1) + ".png");
        for (const int middle : {31, 77, 123}) {
            const bool shown = frame.Pixel(middle, 67) == (Rgba{255, 255, 255, 255});
            EXPECT_EQ(shown, middles.at(static_cast<size_t>(i)) == middle) << i << ", " << middle;
        }
    }
}

TEST_F(ScriptTest, ErrorsNameTheLine) {
    WriteClip("in", 2, {8, 8});
    struct Case {
        const char* text;
        int line;
        const char* message;
    };
    for (const Case& script : {
             Case{"", 1, "unexpected end of input"},
             Case{"{\n \"keyframes\": [\n  { \"time\": 0, }\n ]\n}", 3, "unexpected '}'"},
             Case{"{\n \"keyframes\": [\n  { \"time\": 1e999\n }\n ]\n}", 3, "number overflow"},
             Case{"\n{\n \"frames\": []\n}", 3, "\"frames\" is not known here"},
             Case{"{ }", 1, "a script needs \"keyframes\""},
             Case{"{ \"keyframes\": [\n {\n  \"mirror\": true\n } ] }", 2, "needs a \"time\""},
             Case{"{ \"keyframes\": [\n{\"time\": 1},\n{\"time\":\n1\n} ] }", 4, "must be later"},
             Case{"{ \"keyframes\": [\n{\"time\": 1,\n\"time\": 2} ] }", 3, "is there twice"},
             Case{"{ \"keyframes\": [ {\"time\": 0,\n\"view\": {\n\"zoom\": \"in\"\n} } ] }", 3,
                  "\"zoom\" must be a number"},
             Case{"{ \"sticker\": \"p\", \"keyframes\": [ {\"time\": 0,\n\"stickers\": [\n[1, "
                  "2],\n[3] ] } ] }",
                  4, "must be [x, y]"},
         }) {
        WriteScript(script.text);
        const RunResult result = Play("in/%04d.png --script move.json --out out.mp4");
        EXPECT_EQ(result.status, 2) << script.text;
        const std::string head = "vornplay: move.json:" + std::to_string(script.line) + ": ";
        EXPECT_EQ(result.errors.rfind(head, 0), 0U) << script.text << "\n" << result.errors;
        EXPECT_NE(result.errors.find(script.message), std::string::npos) << result.errors;
    }
    EXPECT_FALSE(std::filesystem::exists(Path("out.mp4")));
}
