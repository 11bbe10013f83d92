#pragma once

#include <sys/types.h>

#include <memory>
#include <string>

#include "support/Image.h"

struct _XDisplay;

/// An X server of the test's own, without a screen that anybody sees.
class VirtualScreen {
public:
    /// \return null where there is none to be had
    static std::unique_ptr<VirtualScreen> Start();
    ~VirtualScreen();
    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;

    /// As $DISPLAY names it.
    const std::string& Name() const { return name_; }

    /// The window that the program of this name opened; 0 if there is none to be seen yet.
    unsigned long FindWindow(const std::string& program) const;
    /// What a window shows; nothing if it cannot be had just now.
    Image Capture(unsigned long window) const;
    Size SizeOf(unsigned long window) const;

    /// Runs xdotool with these arguments on the server.
    void Do(const std::string& arguments) const;

private:
    VirtualScreen(pid_t server, std::string name, _XDisplay* display);

    pid_t server_;
    std::string name_;
    _XDisplay* display_;
};
