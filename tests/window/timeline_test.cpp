// The time line, single frames, the loop, files that are dropped, and what happens to windows.

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <thread>

#include "PlayerWindow.h"

namespace {

using namespace std::chrono_literals;

constexpr double kRate = 25.0;
constexpr int kFrames = 100;
/// In the time line of a window of the smallest size.
constexpr int kBarY = 240 - 8 - 18;

/// The frames that were shown and dropped, as the player says at its end.
std::pair<int, int> Counts(const std::string& log) {
    std::smatch counts;
    return std::regex_search(log, counts, std::regex("(\\d+) frames shown, (\\d+) dropped"))
               ? std::pair(std::stoi(counts[1]), std::stoi(counts[2]))
               : std::pair(-1, -1);
}

double DrawMilliseconds(const std::string& log) {
    std::smatch time;
    return std::regex_search(log, time, std::regex("([\\d.]+) ms a draw")) ? std::stod(time[1])
                                                                           : 0.0;
}

class TimelineTest : public PlayerWindow {
protected:
    void MakeClip(int frames) const {
        WriteClip("in", frames, {64, 48});
        PlayWell("in/%04d.png --out clip.mp4");
    }

    double Now() { return Save().seconds; }

    double After(const std::string& keys) {
        Key(keys);
        return Now();
    }
};

}  // namespace

TEST_F(TimelineTest, ClicksAndDragsGoToTheTime) {
    MakeClip(kFrames);
    Open("clip.mp4");
    Key("space");
    MoveTo(160, kBarY);
    Click(160, kBarY);
    const double middle = Now();
    EXPECT_NEAR(middle, 2.0, 0.4);
    Click(200, kBarY);
    const double later = Now();
    EXPECT_GT(later, middle + 0.3);
    EXPECT_NEAR(later * kRate, std::round(later * kRate), 0.03) << "a frame's time";
    Drag(140, kBarY, 160, kBarY);
    EXPECT_NEAR(Now(), middle, 0.001);
    EXPECT_EQ(CountDifferent(Save().image, Save().image, 0), 0);
    Click(25, kBarY);
    EXPECT_TRUE(SeesText("The end. Space plays it again"));
    EXPECT_EQ(Quit(), 0) << Log();
}

TEST_F(TimelineTest, KeysGoFrameByFrameBothWays) {
    LinkAwkwardClips();
    Open("varying.mp4");
    Key("space Home");
    std::vector<double> times = {Now()};
    for (int i = 0; i < 10; ++i) {
        times.push_back(After("period"));
        EXPECT_GT(times.back(), times[times.size() - 2]);
    }
    for (size_t i = times.size() - 1; i-- > 0;) {
        EXPECT_NEAR(After("comma"), times[i], 0.001) << i;
    }
    EXPECT_NEAR(After("comma"), 0.0, 0.001) << "the first one stays";
    const double last = After("End");
    EXPECT_GT(last, 1.5);
    EXPECT_NEAR(After("period"), last, 0.001);
    EXPECT_LT(After("comma"), last);
    EXPECT_NEAR(After("Up"), last, 0.001);
    EXPECT_EQ(After("Down"), 0.0);
}

TEST_F(TimelineTest, StampsThatBeginAgainCostNoFrameAndCanBeSearched) {
    LinkAwkwardClips();
    std::filesystem::rename(Path("steps-back.ts"), Path("joined.ts"));
    for (const std::string path : {"cpu", "decode"}) {
        Open("joined.ts --path " + path);
        EXPECT_TRUE(SeesText("The end. Space plays it again"));
        EXPECT_EQ(Quit(), 0);
        // A busy machine drops some, a slow one many; a clip that is misread, most of a part.
        const auto [shown, dropped] = Counts(Log());
        EXPECT_EQ(shown + dropped, 50) << Log();
        EXPECT_TRUE(dropped < 20 || DrawMilliseconds(Log()) > 20.0) << Log();
        Open("joined.ts --path " + path + " --start 1.48");
        Key("space");
        EXPECT_GT(Now(), 1.47) << path;
        EXPECT_NEAR(After("End"), 1.96, 0.001) << path;
        EXPECT_NEAR(After("comma"), 1.92, 0.001) << path;
        EXPECT_NEAR(After("Left"), 0.0, 0.001) << path;
        EXPECT_NEAR(After("Right"), 1.96, 0.001) << path;
        EXPECT_EQ(Quit(), 0) << Log();
    }
}

TEST_F(TimelineTest, LoopsUntilItIsToldNotTo) {
    MakeClip(10);
    Open("clip.mp4");
    EXPECT_TRUE(SeesText("The end. Space plays it again"));
    Key("l space");
    EXPECT_TRUE(SeesText("Loop: on"));
    std::this_thread::sleep_for(1500ms);
    Key("l");
    EXPECT_TRUE(SeesText("The end. Space plays it again"));
    EXPECT_EQ(Quit(), 0);
    const auto [shown, dropped] = Counts(Log());
    EXPECT_GT(shown + dropped, 30) << Log();
}

TEST_F(TimelineTest, PlaysWhatIsDroppedOntoIt) {
    MakeClip(kFrames);
    WriteImage("picture.png", Solid({64, 48}, {10, 200, 30, 255}));
    Open("");
    EXPECT_TRUE(SeesText("Drop a file here"));
    Key("space period s l x k i 0 Home End Left");  // Nothing to do these to.
    Click(100, 100);
    Drop("in");
    EXPECT_TRUE(SeesText("Cannot play in"));
    Drop("picture.png");
    EXPECT_TRUE(Sees([](const Image& seen) { return seen.Pixel(320, 180)[1] == 200; }));
    Drop("clip.mp4");
    EXPECT_TRUE(Sees([](const Image& seen) { return seen.Pixel(320, 180)[1] != 200; }));
    EXPECT_EQ(Quit(), 0) << Log();
}

TEST_F(TimelineTest, PlaysItsInputsInTurn) {
    MakeClip(10);
    const auto shows = [this](uint8_t green) {
        return Sees([green](const Image& seen) { return seen.Pixel(160, 120)[1] == green; });
    };
    WriteImage("first.png", Solid({64, 48}, {10, 200, 30, 255}));
    WriteImage("last.png", Solid({64, 48}, {10, 100, 30, 255}));
    Open("first.png clip.mp4 in last.png");
    EXPECT_TRUE(shows(200));
    Key("Page_Up");
    EXPECT_TRUE(shows(200));
    Key("Page_Down");
    EXPECT_TRUE(shows(100)) << "after the clip, without the folder";
    Key("Page_Down Page_Up");
    EXPECT_TRUE(shows(100)) << "the clip plays in between";
    EXPECT_EQ(Quit(), 1) << Log();
    EXPECT_NE(Log().find("in: "), std::string::npos);
}

TEST_F(TimelineTest, TheWholeScreenByKeysAndDoubleClick) {
    constexpr Rgba kOrange = {200, 100, 50, 255};
    WriteImage("in.png", Solid({64, 48}, kOrange));
    environment_ += " SDL_MOUSE_DOUBLE_CLICK_TIME=5000";
    OpenOnWayland("in.png", {640, 480}, 1, "desktop");
    const auto covers = [this, &kOrange](bool all) {
        return Sees([all, &kOrange](const Image& seen) {
            return (seen.Pixel(2, 470) == kOrange && seen.Pixel(637, 470) == kOrange) == all;
        });
    };
    // The shell puts the window anywhere.
    Size place;
    ASSERT_TRUE(Sees([&place, &kOrange](const Image& seen) {
        for (int i = 0; i < 640 * 480 && place.width == 0; ++i) {
            const Size at = {i % 640, i / 640};
            place = seen.Pixel(at.width, at.height) == kOrange ? at : Size();
        }
        return place.width > 0;
    }));
    EXPECT_TRUE(covers(false));
    MoveTo(place.width + 20, place.height + 20);
    DoubleClick();
    EXPECT_TRUE(covers(true));
    EXPECT_EQ(CountDifferent(Save().image, Solid({64, 48}, kOrange), 0), 0) << "no sticker stays";
    for (const std::string key : {"Escape", "F11", "f"}) {
        Key(key);
        EXPECT_TRUE(covers(key == "F11")) << key;
    }
    EXPECT_EQ(Quit(), 0) << Log();
}

TEST_F(TimelineTest, OutlivesTinyWindowsAndSleep) {
    MakeClip(kFrames);
    Open("clip.mp4");
    Key("i");
    for (const Size size : {Size{1, 1}, Size{37, 5}, Size{120, 400}, Size{320, 240}}) {
        Resize(size);
        Key("h");
        Now();
    }
    Key("space Home");
    Now();
    const double before = CpuSeconds();
    std::this_thread::sleep_for(1s);
    EXPECT_LT(CpuSeconds() - before, 0.3) << "computes while the clip stands";
    Key("space");
    Sleep(5s);
    EXPECT_LT(Now(), kFrames / kRate - 1.0) << "skipped what the machine slept through";
    EXPECT_EQ(Quit(), 0) << Log();
}

TEST_F(TimelineTest, EndsWithTheScreen) {
    MakeClip(kFrames);
    Open("clip.mp4");
    EXPECT_NE(EndScreen(), -1) << Log();
}
