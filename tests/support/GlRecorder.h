#pragma once

#include <cstddef>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "gl/GLES3.h"

/// Writes down every GL call of the library, by standing in all of the table's pointers while it
/// lives. Calls go through to GL. One at a time, on one thread.
class GlRecorder {
public:
    GlRecorder();
    ~GlRecorder();
    GlRecorder(const GlRecorder&) = delete;
    GlRecorder& operator=(const GlRecorder&) = delete;

    /// The calls since the last take, without glGetError, as Call writes them.
    static std::vector<std::string> take();
};

namespace GlRecorderDetail {

inline void Write(std::ostream& out, const char* text) {
    out << '"' << text << '"';
}

/// Offsets into buffers by value; addresses only as such.
inline void Write(std::ostream& out, const void* pointer) {
    const auto value = reinterpret_cast<uintptr_t>(pointer);
    if (value < 0x10000) {
        out << value;
    } else {
        out << "address";
    }
}

inline void Write(std::ostream& out, std::nullptr_t) {
    out << 0;
}

template <typename T>
std::enable_if_t<std::is_arithmetic<T>::value> Write(std::ostream& out, T value) {
    out << +value;
}

}  // namespace GlRecorderDetail

/// A call as text: Call("glBindBuffer", GL_ARRAY_BUFFER, 3) gives "glBindBuffer(34962,3)".
template <typename... Args>
std::string Call(const char* name, Args... args) {
    std::ostringstream out;
    out << name << '(';
    [[maybe_unused]] const char* separator = "";
    ((out << separator, GlRecorderDetail::Write(out, args), separator = ","), ...);
    out << ')';
    return out.str();
}
