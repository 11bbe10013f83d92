#pragma once

#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

#include "gl/GLES3.h"

/// Records every GL call of the library by replacing all pointers of the table while it lives.
/// Calls go on to GL. One recorder at a time, on one thread.
class GlRecorder {
public:
    GlRecorder();
    ~GlRecorder();
    GlRecorder(const GlRecorder&) = delete;
    GlRecorder& operator=(const GlRecorder&) = delete;

    /// The calls since the last take, without glGetError, as Call writes them.
    static std::vector<std::string> take();
};

/// An argument of a call as text: numbers by value, names in quotes, small pointers as offsets,
/// and "address" for other pointers.
class CallArgument {
public:
    template <typename T, typename = std::enable_if_t<std::is_arithmetic<T>::value>>
    CallArgument(T value) : text_(std::to_string(value)) {}
    CallArgument(const char* text);
    CallArgument(const void* pointer);
    CallArgument(std::nullptr_t) : text_("0") {}

    const std::string& text() const { return text_; }

private:
    std::string text_;
};

std::string JoinCall(const char* name, std::initializer_list<CallArgument> arguments);

/// A call as text: Call("glBindBuffer", GL_ARRAY_BUFFER, 3) gives "glBindBuffer(34962,3)".
template <typename... Args>
std::string Call(const char* name, Args... args) {
    return JoinCall(name, {CallArgument(args)...});
}
