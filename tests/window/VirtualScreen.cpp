#include "VirtualScreen.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace {

struct FreeX {
    void operator()(void* data) const { XFree(data); }
    void operator()(XImage* image) const { XDestroyImage(image); }
};

/// Becomes the server, which writes its number to \p channel.
[[noreturn]] void BecomeServer(int channel) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const std::string descriptor = std::to_string(channel);
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", "1000x800x24",
           "-nolisten", "tcp", static_cast<char*>(nullptr));
    _exit(1);
}

/// Until the line's end, or the end of the channel.
std::string ReadLine(int channel) {
    std::string line;
    char character = 0;
    while (read(channel, &character, 1) == 1 && character != '\n') {
        line += character;
    }
    return line;
}

/// A window may be gone while the test looks at it.
int Ignore(Display* /*display*/, XErrorEvent* /*error*/) {
    return 0;
}

}  // namespace

std::unique_ptr<VirtualScreen> VirtualScreen::Start() {
    std::array<int, 2> channel{};
    if (pipe(channel.data()) != 0) {
        return nullptr;
    }
    const pid_t server = fork();
    if (server == 0) {
        close(channel[0]);
        BecomeServer(channel[1]);
    }
    close(channel[1]);
    const std::string name = ":" + ReadLine(channel[0]);
    close(channel[0]);
    Display* display = name.size() > 1 ? XOpenDisplay(name.c_str()) : nullptr;
    // Its destructor ends the server, also if there is no display.
    std::unique_ptr<VirtualScreen> screen(new VirtualScreen(server, name, display));
    return display != nullptr ? std::move(screen) : nullptr;
}

VirtualScreen::VirtualScreen(pid_t server, std::string name, _XDisplay* display)
    : server_(server), name_(std::move(name)), display_(display) {
    XSetErrorHandler(Ignore);
}

VirtualScreen::~VirtualScreen() {
    if (display_ != nullptr) {
        XCloseDisplay(display_);
    }
    kill(server_, SIGTERM);
    waitpid(server_, nullptr, 0);
}

unsigned long VirtualScreen::FindWindow(const std::string& program) const {
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(display_, DefaultRootWindow(display_), &root, &parent, &children, &count);
    const std::unique_ptr<Window, FreeX> list(children);
    for (unsigned i = 0; i < count; ++i) {
        XClassHint name{};
        XGetClassHint(display_, children[i], &name);
        const std::unique_ptr<char, FreeX> instance(name.res_name);
        const std::unique_ptr<char, FreeX> kind(name.res_class);
        XWindowAttributes attributes{};
        XGetWindowAttributes(display_, children[i], &attributes);
        if (name.res_name != nullptr && std::string(name.res_name).find(program) == 0 &&
            attributes.map_state == IsViewable) {
            return children[i];
        }
    }
    return 0;
}

Size VirtualScreen::SizeOf(unsigned long window) const {
    XWindowAttributes attributes{};
    XGetWindowAttributes(display_, window, &attributes);
    return {attributes.width, attributes.height};
}

Image VirtualScreen::Capture(unsigned long window) const {
    const Size size = SizeOf(window);
    const std::unique_ptr<XImage, FreeX> captured(
        XGetImage(display_, window, 0, 0, static_cast<unsigned>(size.width),
                  static_cast<unsigned>(size.height), AllPlanes, ZPixmap));
    if (captured == nullptr) {
        return {};
    }
    Image image(size);
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            const unsigned long pixel = XGetPixel(captured.get(), x, y);
            uint8_t* out = image.At(x, y);
            out[0] = static_cast<uint8_t>(pixel >> 16U);
            out[1] = static_cast<uint8_t>(pixel >> 8U);
            out[2] = static_cast<uint8_t>(pixel);
            out[3] = 255;
        }
    }
    return image;
}

void VirtualScreen::Do(const std::string& arguments) const {
    const std::string command = "DISPLAY=" + name_ + " xdotool " + arguments;
    // NOLINTNEXTLINE(cert-env33-c): the tool takes a line of commands.
    if (std::system(command.c_str()) != 0) {
        throw std::runtime_error(command + " fails");
    }
}
