#include "VirtualScreen.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace {

struct FreeX {
    void operator()(void* data) const { XFree(data); }
    void operator()(XImage* image) const { XDestroyImage(image); }
};

/// A window may be gone while the test looks at it.
int Ignore(Display* /*display*/, XErrorEvent* /*error*/) {
    return 0;
}

}  // namespace

std::unique_ptr<VirtualScreen> VirtualScreen::Start() {
    // Ends with its last client, which is the connection below.
    // NOLINTNEXTLINE(cert-env33-c): the shell finds the server.
    FILE* server = popen(
        "exec Xvfb -displayfd 1 -terminate -screen 0 1000x800x24 -nolisten tcp 2>/dev/null", "r");
    std::array<char, 16> number{};
    if (server != nullptr && std::fgets(number.data(), number.size(), server) != nullptr) {
        const std::string name =
            ":" + std::string(number.data(), std::strcspn(number.data(), "\n"));
        if (Display* display = XOpenDisplay(name.c_str())) {
            return std::unique_ptr<VirtualScreen>(new VirtualScreen(server, name, display));
        }
    }
    return nullptr;
}

VirtualScreen::VirtualScreen(FILE* server, std::string name, _XDisplay* display)
    : server_(server), name_(std::move(name)), display_(display) {
    XSetErrorHandler(Ignore);
}

VirtualScreen::~VirtualScreen() {
    XCloseDisplay(display_);
    pclose(server_);
}

void VirtualScreen::SetResources(const std::string& lines) const {
    XChangeProperty(display_, DefaultRootWindow(display_), XA_RESOURCE_MANAGER, XA_STRING, 8,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(lines.data()),
                    static_cast<int>(lines.size()));
    XFlush(display_);
}

void VirtualScreen::Disconnect(unsigned long window) const {
    XKillClient(display_, window);
    XFlush(display_);
}

/// By the protocol of drag and drop: this client owns the data, and hands them over on demand.
void VirtualScreen::Drop(unsigned long window, const std::string& path) const {
    const auto atom = [this](const char* name) {
        return static_cast<long>(XInternAtom(display_, name, False));
    };
    const Window source =
        XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
    const auto send = [&](const char* type, std::array<long, 4> values) {
        XEvent event{};
        event.xclient = {
            ClientMessage, 0, True, display_, window, static_cast<Atom>(atom(type)), 32, {}};
        event.xclient.data.l[0] = static_cast<long>(source);
        std::copy(values.begin(), values.end(), event.xclient.data.l + 1);
        XSendEvent(display_, window, False, NoEventMask, &event);
    };
    XSetSelectionOwner(display_, static_cast<Atom>(atom("XdndSelection")), source, CurrentTime);
    send("XdndEnter", {5L << 24, atom("text/uri-list"), 0, 0});
    send("XdndPosition", {0, (20L << 16) | 20L, CurrentTime, atom("XdndActionCopy")});
    send("XdndDrop", {0, CurrentTime, 0, 0});
    const std::string text = "file://" + path + "\r\n";
    XEvent event{};
    do {
        XNextEvent(display_, &event);
    } while (event.type != SelectionRequest);
    const XSelectionRequestEvent& asked = event.xselectionrequest;
    XChangeProperty(display_, asked.requestor, asked.property, asked.target, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(text.data()),
                    static_cast<int>(text.size()));
    XEvent answer{};
    answer.xselection = {
        SelectionNotify, 0,         True, display_, asked.requestor, asked.selection, asked.target,
        asked.property,  asked.time};
    XSendEvent(display_, asked.requestor, False, NoEventMask, &answer);
    XFlush(display_);
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
