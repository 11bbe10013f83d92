#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "ChildProcess.h"
#include "PlayerFixture.h"
#include "VirtualScreen.h"

/// Opens the player's window, and uses it as a user does.
class PlayerWindow : public PlayerTest {
protected:
    void SetUp() override;

    /// As a desktop's settings do.
    void SetDotsPerInch(int dots) const {
        screen_->SetResources("Xft.dpi:\t" + std::to_string(dots) + "\n");
    }
    /// Starts the player and waits for its window.
    void Open(const std::string& arguments);
    /// Likewise on Wayland. The window fills a screen of \p size pixels, \p density of which make
    /// one unit of the pointer in each direction. With the shell "desktop" it does not fill it.
    void OpenOnWayland(const std::string& arguments, Size size, int density,
                       const std::string& shell = "kiosk");
    /// Presses Q. \return the player's exit status
    int Quit();
    /// Ends the Wayland compositor. \return the player's exit status
    int EndCompositor();
    /// Takes the X server away. \return the player's exit status
    int EndScreen();
    /// Stops the player for a while, as a machine that sleeps does.
    void Sleep(std::chrono::seconds time) const;
    /// The time that the player computed, in seconds.
    double CpuSeconds() const;
    /// Drops a file of the test's directory onto the window.
    void Drop(const std::string& name) const { screen_->Drop(window_, Path(name)); }
    /// What the player has written to stderr so far.
    std::string Log() const;

    void Key(const std::string& key) const { screen_->Do("key " + key); }
    /// Places of the pointer are in the window.
    void MoveTo(int x, int y) const;
    void Click(int x, int y, int button = 1) const;
    void DoubleClick() const;
    void Wheel(bool nearer) const { screen_->Do(nearer ? "click 4" : "click 5"); }
    void Drag(int fromX, int fromY, int toX, int toY) const;
    void Resize(Size size) const;

    struct Saved {
        double seconds = 0.0;
        Image image;
    };
    /// Saves the shown frame with its key, after all earlier commands.
    Saved Save();

    Image Capture() const { return screen_->Capture(window_); }
    /// Variables for the player.
    std::string environment_ = "SDL_AUDIODRIVER=dummy";
    /// Captures until \p holds, up to a time limit.
    bool Sees(const std::function<bool(const Image&)>& holds) const;
    bool SeesText(const std::string& text) const;

private:
    void StartPlayer(const std::string& environment, const std::string& arguments);
    void WaitForWindow(const std::string& program, ChildProcess& process);

    std::unique_ptr<VirtualScreen> screen_;
    ChildProcess compositor_;
    ChildProcess player_;
    unsigned long window_ = 0;
    size_t logRead_ = 0;
};

/// How many pixels of two pictures differ by more than this in a channel.
int CountDifferent(const Image& one, const Image& other, int tolerance);
/// Whether \p text is written somewhere in white.
bool ShowsText(const Image& image, const std::string& text,
               const std::vector<int>& heights = {12, 15, 30});
