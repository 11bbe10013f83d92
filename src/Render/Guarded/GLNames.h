#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// All GL names of a renderer. They are deleted together, or forgotten together after the context
/// was lost.
///
/// \thread the GL thread.
class GLNames {
public:
    GLNames() { entries_.reserve(kMost); }
    ~GLNames();
    GLNames(const GLNames&) = delete;
    GLNames& operator=(const GLNames&) = delete;

    uint32_t makeTexture();
    uint32_t makeBuffer();
    uint32_t makeVertexArray();
    uint32_t makeFramebuffer();
    /// Takes a program over.
    void keepProgram(uint32_t program);

    /// No name is deleted any more.
    void forget() { entries_.clear(); }

private:
    using Delete = void (*)(uint32_t name);
    struct Entry {
        Delete remove;
        uint32_t name;
    };

    uint32_t keep(uint32_t name, Delete remove);

    /// With so many, keeping one cannot fail. A texture and two buffers for the frames, likewise
    /// for the mask; two meshes of a buffer and a vertex array; two framebuffers; three programs.
    static constexpr size_t kMost = 6 + 4 + 2 + 3;
    std::vector<Entry> entries_;
};
