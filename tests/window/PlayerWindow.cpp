#include "PlayerWindow.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

#include "window/hud/Font.h"

namespace {

constexpr std::chrono::seconds kPatience(30);
constexpr std::chrono::milliseconds kPause(20);

/// Asks until \p holds, up to a time limit.
bool Await(const std::function<bool()>& holds) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

/// Whether a pixel may be white with this cover over the ground of text.
bool MayBe(const uint8_t* pixel, int cover) {
    constexpr int kTolerance = 3;
    constexpr int kBrightestGround = 60;
    const int most = cover + (255 - cover) * kBrightestGround / 255 + kTolerance;
    return std::all_of(pixel, pixel + 3, [cover, most](uint8_t value) {
        return value >= cover - kTolerance && value <= most;
    });
}

bool MatchesAt(const Image& image, const Image& text, int left, int top) {
    for (int i = 0; i < text.size.height; ++i) {
        // From the middle on: the first rows are as empty as a dark ground.
        const int y = (i + text.size.height / 2) % text.size.height;
        for (int x = 0; x < text.size.width; ++x) {
            if (!MayBe(image.At(left + x, top + y), text.At(x, y)[3])) {
                return false;
            }
        }
    }
    return true;
}

bool Contains(const Image& image, const Image& text) {
    for (int top = 0; top + text.size.height <= image.size.height; ++top) {
        for (int left = 0; left + text.size.width <= image.size.width; ++left) {
            if (MatchesAt(image, text, left, top)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

int CountDifferent(const Image& one, const Image& other, int tolerance) {
    if (one.pixels.size() != other.pixels.size()) {
        return -1;
    }
    int count = 0;
    for (size_t i = 0; i < one.pixels.size(); i += Image::kChannels) {
        bool differs = false;
        for (size_t channel = 0; channel < Image::kChannels; ++channel) {
            differs = differs ||
                      std::abs(one.pixels[i + channel] - other.pixels[i + channel]) > tolerance;
        }
        count += differs ? 1 : 0;
    }
    return count;
}

bool ShowsText(const Image& image, const std::string& text, const std::vector<int>& heights) {
    for (const int pixels : heights) {
        Font font(pixels);
        Image letters({font.Width(text), font.LineHeight()});
        font.Write(letters, 0, 0, text, {255, 255, 255});
        if (Contains(image, letters)) {
            return true;
        }
    }
    return false;
}

void PlayerWindow::SetUp() {
    // NOLINTNEXTLINE(cert-env33-c): the shell knows whether there is such a tool.
    if (std::system("(command -v Xvfb && command -v xdotool && command -v weston) >/dev/null") !=
        0) {
        GTEST_SKIP() << "needs Xvfb, xdotool and weston";
    }
    screen_ = VirtualScreen::Start();
    if (screen_ == nullptr) {
        GTEST_SKIP() << "Xvfb does not start";
    }
}

void PlayerWindow::Open(const std::string& arguments) {
    StartPlayer("-u WAYLAND_DISPLAY DISPLAY=" + screen_->Name(), arguments);
    WaitForWindow("vornplay", player_);
}

void PlayerWindow::OpenOnWayland(const std::string& arguments, Size size, int density,
                                 const std::string& shell) {
    const std::string environment = "XDG_RUNTIME_DIR=" + Path(".") + " ";
    compositor_ = ChildProcess("exec env DISPLAY=" + screen_->Name() + " " + environment +
                               "weston --backend=x11-backend.so --use-pixman --shell=" + shell +
                               "-shell.so --socket=wayland"
                               " --no-config --idle-time=0 --log=" +
                               Path("weston.log") + " --scale=" + std::to_string(density) +
                               " --width=" + std::to_string(size.width / density) +
                               " --height=" + std::to_string(size.height / density));
    WaitForWindow("weston", compositor_);
    StartPlayer("-u DISPLAY WAYLAND_DISPLAY=wayland " + environment, arguments);
    const auto shows = [](const Image& screen) {
        return std::any_of(screen.pixels.begin(), screen.pixels.end(),
                           [](uint8_t value) { return value != 0 && value != 255; });
    };
    EXPECT_TRUE(Sees(shows)) << Log();
    // The compositor notices the pointer when it enters, and may have missed that at its start.
    screen_->Do("mousemove 0 0");
    MoveTo(size.width / 2, size.height / 2);
}

void PlayerWindow::StartPlayer(const std::string& environment, const std::string& arguments) {
    logRead_ = 0;
    player_ = ChildProcess("cd " + Path(".") + " && exec env " + environment + " " + environment_ +
                           " " VORNPLAY " " + arguments + " 2>" + Path("log"));
}

void PlayerWindow::WaitForWindow(const std::string& program, ChildProcess& process) {
    ASSERT_TRUE(Await([&] {
        window_ = screen_->FindWindow(program);
        return window_ != 0 || process.HasEnded();
    }));
    ASSERT_NE(window_, 0U) << Log();
    screen_->Do("windowmove --sync " + std::to_string(window_) + " 10 10 windowfocus --sync " +
                std::to_string(window_));
}

int PlayerWindow::Quit() {
    Key("q");
    return player_.Wait();
}

int PlayerWindow::EndCompositor() {
    compositor_ = ChildProcess();
    return player_.Wait();
}

int PlayerWindow::EndScreen() {
    screen_->Disconnect(window_);
    return player_.Wait();
}

void PlayerWindow::Sleep(std::chrono::seconds time) const {
    kill(player_.Id(), SIGSTOP);
    std::this_thread::sleep_for(time);
    kill(player_.Id(), SIGCONT);
}

double PlayerWindow::CpuSeconds() const {
    constexpr int kFieldsBefore = 11;  // Of those after the name.
    std::ifstream file("/proc/" + std::to_string(player_.Id()) + "/stat");
    std::string field;
    std::getline(file, field, ')');
    for (int i = 0; i < kFieldsBefore; ++i) {
        file >> field;
    }
    long user = 0;
    long system = 0;
    file >> user >> system;
    return static_cast<double>(user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

std::string PlayerWindow::Log() const {
    std::ifstream file(Path("log"));
    return {std::istreambuf_iterator<char>(file), {}};
}

void PlayerWindow::MoveTo(int x, int y) const {
    screen_->Do("mousemove --window " + std::to_string(window_) + " " + std::to_string(x) + " " +
                std::to_string(y));
}

void PlayerWindow::Click(int x, int y, int button) const {
    MoveTo(x, y);
    screen_->Do("click " + std::to_string(button));
}

void PlayerWindow::DoubleClick() const {
    screen_->Do("click --repeat 2 --delay 50 1");
}

void PlayerWindow::Drag(int fromX, int fromY, int toX, int toY) const {
    MoveTo(fromX, fromY);
    screen_->Do("mousedown 1");
    MoveTo(toX, toY);
    screen_->Do("mouseup 1");
}

void PlayerWindow::Resize(Size size) const {
    screen_->Do("windowsize " + std::to_string(window_) + " " + std::to_string(size.width) + " " +
                std::to_string(size.height));
    EXPECT_TRUE(Await([this, size] {
        const Size now = screen_->SizeOf(window_);
        return now.width == size.width && now.height == size.height;
    }));
}

PlayerWindow::Saved PlayerWindow::Save() {
    constexpr char kSaved[] = "saved ";
    Key("s");
    size_t begin = 0;
    size_t end = 0;
    const bool saved = Await([&] {
        const std::string log = Log();
        begin = log.find(kSaved, logRead_);
        end = begin == std::string::npos ? begin : log.find('\n', begin);
        return end != std::string::npos;
    });
    if (!saved) {
        throw std::runtime_error("nothing saved; the player said: " + Log());
    }
    begin += sizeof(kSaved) - 1;
    logRead_ = end;
    const std::string name = Log().substr(begin, end - begin);
    return {std::strtod(name.c_str() + name.find('-') + 1, nullptr), Read(name)};
}

bool PlayerWindow::Sees(const std::function<bool(const Image&)>& holds) const {
    return Await([this, &holds] { return holds(Capture()); });
}

bool PlayerWindow::SeesText(const std::string& text) const {
    return Sees([&text](const Image& image) { return ShowsText(image, text); });
}
