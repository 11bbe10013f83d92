#pragma once

#include <stdexcept>
#include <string>

/// No GL context could be created; what() names the step that failed, in one line.
struct OffscreenError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// An OpenGL ES 3 context without window or surface, current on the thread that creates it. Destroy
/// it on the same thread.
class OffscreenContext {
public:
    /// \throws OffscreenError
    OffscreenContext();
    ~OffscreenContext();
    OffscreenContext(const OffscreenContext&) = delete;
    OffscreenContext& operator=(const OffscreenContext&) = delete;

private:
    void* display_ = nullptr;
    void* context_ = nullptr;
};
