// Texts of shaders on their way to GL, which may refuse any of them.

#include <fuzzer/FuzzedDataProvider.h>

#include <set>
#include <string>

#include "Check.h"
#include "gl/GLES3.h"
#include "kernel/GlProgram.h"

namespace {

using OVR::GlProgram;

int refusedStage;  ///< 1 and 2: a shader, 3: the program.
std::string sources[2];
std::set<GLuint> objects;
GLuint lastName;

GLuint NewName() {
    objects.insert(++lastName);
    return lastName;
}

void InstallRecorder() {
    GLES3::LoadGLFunctions();
    GLES3::glCreateShader = [](GLenum) { return NewName(); };
    GLES3::glCreateProgram = [] { return NewName(); };
    GLES3::glDeleteShader = [](GLuint name) { CHECK(objects.erase(name) == 1); };
    GLES3::glDeleteProgram = GLES3::glDeleteShader;
    GLES3::glShaderSource = [](GLuint name, GLsizei, const GLchar* const* text, const GLint*) {
        sources[(name - 1) % 2] = *text;
    };
    GLES3::glGetShaderiv = [](GLuint name, GLenum, GLint* compiled) {
        *compiled = static_cast<int>(name) == refusedStage ? GL_FALSE : GL_TRUE;
    };
    GLES3::glGetProgramiv = GLES3::glGetShaderiv;
    GLES3::glGetUniformLocation = [](GLuint, const GLchar* name) {
        return static_cast<GLint>(std::string(name).size()) - 1;
    };
}

bool Mentions(const std::string& text) {
    return text.find("GL_OES_EGL_image_external") != std::string::npos;
}

std::string WithoutVersion(const std::string& text) {
    if (text.rfind("#version ", 0) != 0) {
        return text;
    }
    const size_t end = text.find('\n');
    return end == std::string::npos ? "" : text.substr(end + 1);
}

void CheckSource(const std::string& made, const std::string& directives, const std::string& text,
                 const std::string& version) {
    const std::string end = WithoutVersion(text);
    const std::string start =
        "#version " + version + "\n" + directives + "#define DISABLE_MULTIVIEW 1\n";
    CHECK(made.rfind(start, 0) == 0);
    CHECK(made.size() > start.size() + end.size());
    CHECK(made.substr(made.size() - end.size()) == end);
}

/// As a C function reads it.
std::string Text(FuzzedDataProvider& input) {
    return input.ConsumeRandomLengthString().c_str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool installed = (InstallRecorder(), true);
    FuzzedDataProvider input(data, size);
    objects.clear();
    lastName = 0;
    refusedStage = input.ConsumeIntegralInRange(0, 4);
    const int version = input.ConsumeIntegralInRange(0, 1000);
    const std::string names[] = {Text(input), Text(input)};
    const OVR::ovrProgramParm parms[] = {
        {names[0].c_str(), OVR::ovrProgramParmType::TextureSampled},
        {names[1].c_str(), OVR::ovrProgramParmType::BufferUniform}};
    const std::string directives[] = {Text(input), Text(input)};
    const std::string vertex = Text(input);
    const std::string fragment = Text(input);
    GlProgram program =
        GlProgram::Build(directives[0].c_str(), vertex.c_str(), directives[1].c_str(),
                         fragment.c_str(), parms, 2, version, installed, false);
    const bool external = Mentions(directives[1]) || Mentions(fragment);
    const std::string line = external ? "100 " : std::to_string(std::max(version, 300)) + " es";
    CheckSource(sources[0], directives[0], vertex, line);
    if (refusedStage != 1) {
        CheckSource(sources[1], directives[1], fragment, line);
    }
    CHECK((program.Program == 0) == (refusedStage >= 1 && refusedStage <= 3));
    GlProgram::Free(program);
    CHECK(objects.empty());
    return 0;
}
