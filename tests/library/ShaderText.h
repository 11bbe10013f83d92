#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "gl/GLES3.h"
#include "support/Replaced.h"

/// Keeps the texts given to glShaderSource while it lives.
class ShaderTextRecorder {
public:
    ShaderTextRecorder() { texts().clear(); }

    static std::vector<std::string>& texts() {
        static std::vector<std::string> texts;
        return texts;
    }

private:
    static inline decltype(GLES3::glShaderSource) real = nullptr;
    Replaced<decltype(real)> recorder_{
        (real = GLES3::glShaderSource, GLES3::glShaderSource),
        [](GLuint shader, GLsizei count, const GLchar* const* lines, const GLint* lengths) {
            texts().emplace_back(lines[0]);
            real(shader, count, lines, lengths);
        }};
};

/// The shader text stored under \p name among the test data.
inline std::string StoredShader(const std::string& name) {
    std::ifstream file(std::string(TEST_DATA_DIR) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
