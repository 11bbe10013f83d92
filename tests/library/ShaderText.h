#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "gl/GLES3.h"

/// Keeps the texts given to glShaderSource while it lives.
class ShaderTextRecorder {
public:
    ShaderTextRecorder() {
        texts().clear();
        real() = std::exchange(GLES3::glShaderSource, &Record);
    }
    ~ShaderTextRecorder() { GLES3::glShaderSource = real(); }
    ShaderTextRecorder(const ShaderTextRecorder&) = delete;
    ShaderTextRecorder& operator=(const ShaderTextRecorder&) = delete;

    static std::vector<std::string>& texts() {
        static std::vector<std::string> texts;
        return texts;
    }

private:
    static decltype(GLES3::glShaderSource)& real() {
        static decltype(GLES3::glShaderSource) function = nullptr;
        return function;
    }

    static void Record(GLuint shader, GLsizei count, const GLchar* const* lines,
                       const GLint* lengths) {
        texts().emplace_back(lines[0]);
        real()(shader, count, lines, lengths);
    }
};

/// The shader text stored under \p name among the test data.
inline std::string StoredShader(const std::string& name) {
    std::ifstream file(std::string(TEST_DATA_DIR) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
