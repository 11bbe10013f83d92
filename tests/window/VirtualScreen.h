#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "support/Image.h"

struct _XDisplay;

/// An X server without a real screen.
class VirtualScreen {
public:
    /// \return null if there is none
    static std::unique_ptr<VirtualScreen> Start();
    ~VirtualScreen();
    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;

    /// As $DISPLAY names it.
    const std::string& Name() const { return name_; }

    /// The visible window of the program of this name; 0 if there is none yet.
    unsigned long FindWindow(const std::string& program) const;
    /// What a window shows; empty if the server does not say.
    Image Capture(unsigned long window) const;
    Size SizeOf(unsigned long window) const;

    /// Replaces the resources of all programs.
    void SetResources(const std::string& lines) const;

    /// Drops a file onto a window, and waits until it was taken.
    void Drop(unsigned long window, const std::string& path) const;

    /// Ends the connection of a window's program, as a server that goes away does.
    void Disconnect(unsigned long window) const;

    /// Runs xdotool with these arguments on the server.
    void Do(const std::string& arguments) const;

private:
    VirtualScreen(FILE* server, std::string name, _XDisplay* display);

    FILE* server_;
    std::string name_;
    _XDisplay* display_;
};
