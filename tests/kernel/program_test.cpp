#include "kernel/GlProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GlProgramExample.inc"
#include "GlTest.h"

namespace {

using OVR::GlProgram;
using OVR::ovrProgramParm;
using Type = OVR::ovrProgramParmType;

constexpr char kVertex[] = "attribute vec4 Position;\nvoid main() { gl_Position = Position; }\n";
constexpr char kFragment[] = "void main() { gl_FragColor = vec4(1.0); }\n";

std::vector<std::string> sources;
std::vector<GLuint> shaders;

/// The real compiler, with every source and shader name written down. What a test builds goes with
/// its context.
class Program : public GlTest {
protected:
    void SetUp() override {
        GlTest::SetUp();
        sources.clear();
        shaders.clear();
    }
    void TearDown() override {
        GlProgram::SetUseMultiview(false);
        GlTest::TearDown();
    }

private:
    static void Record(GLuint shader, GLsizei count, const GLchar* const* text,
                       const GLint* length) {
        sources.emplace_back(*text);
        shaders.push_back(shader);
        original(shader, count, text, length);
    }

    static decltype(GLES3::glShaderSource) original;
    Replaced<decltype(GLES3::glShaderSource)> recorder_{
        (GLES3::LoadGLFunctions(), original = GLES3::glShaderSource, GLES3::glShaderSource),
        Record};
};

decltype(GLES3::glShaderSource) Program::original = nullptr;

bool Starts(const std::string& text, const std::string& beginning) {
    return text.rfind(beginning, 0) == 0;
}

bool Ends(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

GLint UniformValue(const GlProgram& program, const char* name) {
    GLint value = -1;
    GLES3::glUseProgram(program.Program);  // Emscripten reads no other program's values.
    GLES3::glGetUniformiv(program.Program, GLES3::glGetUniformLocation(program.Program, name),
                          &value);
    return value;
}

GLint BlockBinding(const GlProgram& program, int32_t index) {
    GLint binding = -1;
    GLES3::glGetActiveUniformBlockiv(program.Program, static_cast<GLuint>(index),
                                     GL_UNIFORM_BLOCK_BINDING, &binding);
    return binding;
}

void ExpectUnset(const OVR::ovrUniform& uniform) {
    EXPECT_EQ(uniform.Location, -1);
    EXPECT_EQ(uniform.Binding, -1);
    EXPECT_EQ(uniform.Type, Type::Unset);
}

void ExpectEmpty(const GlProgram& program) {
    EXPECT_EQ(program.Program, 0U);
    EXPECT_EQ(program.VertexShader, 0U);
    EXPECT_EQ(program.FragmentShader, 0U);
    ExpectUnset(program.ViewID);
    for (int32_t GlProgram::*location :
         {&GlProgram::MvpmLocation, &GlProgram::ModelmLocation, &GlProgram::UniformColorLocation,
          &GlProgram::UniformFadeDirectionLocation, &GlProgram::TexmLocation,
          &GlProgram::Texm2Location, &GlProgram::ColorTableOffsetLocation,
          &GlProgram::ClipUVsLocation, &GlProgram::JointMatricesIndex,
          &GlProgram::JointMatricesBinding}) {
        EXPECT_EQ(program.*location, -1);
    }
}

TEST_F(Program, SourcesAreAssembledInOrder) {
    OVR::BuildProgram("#define A 1\n", kVertex, "#define B 2\n", kFragment, 300);
    ASSERT_EQ(sources.size(), 2U);
    EXPECT_TRUE(Starts(sources[0],
                       "#version 300 es\n#define A 1\n#define DISABLE_MULTIVIEW 1\n"
                       "\n#ifndef DISABLE_MULTIVIEW\n"));
    EXPECT_TRUE(Starts(sources[1],
                       "#version 300 es\n#define B 2\n#define DISABLE_MULTIVIEW 1\n"
                       "\n#if __VERSION__ < 300\n\t#define in varying\n"));
    EXPECT_TRUE(Ends(sources[0], std::string("}\n#endif\n") + kVertex));
    EXPECT_TRUE(Ends(sources[1], std::string("textureCube texture\n#endif\n") + kFragment));
}

TEST_F(Program, VersionFollowsTheFragmentStage) {
    const std::string mention = std::string("// GL_OES_EGL_image_external\n");
    const std::string fragment = mention + kFragment;
    const std::string vertex = mention + kVertex;
    const struct {
        const char* directives;
        const char* vertex;
        const char* fragment;
        const char* line;
        int requested;
        bool multiview = false;
    } cases[] = {
        {nullptr, kVertex, kFragment, "#version 300 es\n", 100},
        {nullptr, kVertex, kFragment, "#version 310 es\n", 310},
        {"#extension GL_OES_EGL_image_external : enable\n", kVertex, kFragment, "#version 100 \n",
         310},
        {nullptr, kVertex, fragment.c_str(), "#version 100 \n", 300},
        {nullptr, vertex.c_str(), kFragment, "#version 300 es\n", 300},
        {nullptr, kVertex, fragment.c_str(), "#version 300 es\n#define DISABLE_MULTIVIEW 0\n", 300,
         true},
    };
    for (const auto& c : cases) {
        sources.clear();
        GlProgram::SetUseMultiview(c.multiview);
        OVR::BuildProgram(nullptr, c.vertex, c.directives, c.fragment, c.requested);
        ASSERT_FALSE(sources.empty());  // WebGL stops at the first of version 310.
        for (const std::string& source : sources) {
            EXPECT_TRUE(Starts(source, c.line)) << source.substr(0, 16);
        }
    }
}

TEST_F(Program, TheSourcesOwnVersionLineIsDropped) {
    const std::string vertex = std::string("#version 310 es\n") + kVertex;
    EXPECT_NE(OVR::BuildProgram(vertex.c_str(), kFragment, 300).Program, 0U);
    EXPECT_EQ(sources[0].find("310"), std::string::npos);
    EXPECT_TRUE(Ends(sources[0], std::string("#endif\n") + kVertex));
}

TEST_F(Program, AttributesStandAtTheGeometrysLocations) {
    GlProgram program = OVR::BuildProgram(
        "attribute vec4 JointWeights, FontParms;\nattribute vec2 TexCoord1, TexCoord;\n"
        "attribute vec4 VertexColor, Position, JointIndices;\n"
        "attribute vec3 Binormal, Tangent, Normal;\n"
        "void main() { gl_Position = JointWeights + FontParms + VertexColor + Position + "
        "JointIndices + vec4(TexCoord + TexCoord1, 0, 0) + vec4(Binormal + Tangent + Normal, 0); "
        "}\n",
        kFragment, 300);
    ASSERT_NE(program.Program, 0U);
    constexpr const char* kNames[] = {"Position",     "Normal",   "Tangent",   "Binormal",
                                      "VertexColor",  "TexCoord", "TexCoord1", "JointIndices",
                                      "JointWeights", "FontParms"};
    for (int location = 0; location < 10; ++location) {
        EXPECT_EQ(GLES3::glGetAttribLocation(program.Program, kNames[location]), location);
    }
}

constexpr char kBlocksVertex[] =
    "attribute vec4 Position;\n"
    "uniform JointMatrices { highp mat4 Joints[2]; } jm;\n"
    "uniform Extra { highp vec4 Offset; } ex;\n"
    "uniform highp mat4 Mvpm;\n"
    "void main() { gl_Position = Mvpm * jm.Joints[1] * TransformVertex(Position) + ex.Offset; }\n";
constexpr char kSamplersFragment[] =
    "precision mediump float;\n"
    "uniform sampler2D Texture1, Mask, Detail;\nuniform vec4 UniformColor, Tint;\n"
    "void main() { gl_FragColor = UniformColor * Tint * texture2D(Texture1, vec2(0.0)) *\n"
    "  texture2D(Mask, vec2(0.0)) * texture2D(Detail, vec2(0.0)); }\n";

TEST_F(Program, TableEntriesGetUnitsAndBindingPointsInOrder) {
    const ovrProgramParm parms[] = {{"Mask", Type::TextureSampled},
                                    {"Tint", static_cast<Type>(5)},
                                    {"Extra", Type::BufferUniform},
                                    {"Detail", Type::TextureSampled},
                                    {"Absent", Type::Int}};
    GlProgram program =
        GlProgram::Build(kBlocksVertex, kSamplersFragment, parms, 5, 300, false, true);
    ASSERT_NE(program.Program, 0U);
    EXPECT_TRUE(program.UseMultiview);
    EXPECT_EQ(program.NumTextureBindings, 2);
    EXPECT_EQ(program.Uniforms[0].Binding, 0);
    EXPECT_EQ(program.Uniforms[3].Binding, 1);
    EXPECT_EQ(UniformValue(program, "Mask"), 0);
    EXPECT_EQ(UniformValue(program, "Detail"), 1);
    EXPECT_EQ(UniformValue(program, "Texture1"), 1);

    EXPECT_EQ(program.Uniforms[1].Location, GLES3::glGetUniformLocation(program.Program, "Tint"));
    EXPECT_EQ(program.Uniforms[1].Binding, program.Uniforms[1].Location);
    EXPECT_EQ(program.Uniforms[1].Type, static_cast<Type>(5));
    EXPECT_EQ(program.Uniforms[4].Location, -1);
    ExpectUnset(program.Uniforms[5]);

    // The well-known blocks come before the table's.
    EXPECT_EQ(program.NumUniformBufferBindings, 3);
    EXPECT_EQ(program.SceneMatrices.Binding, 0);
    EXPECT_EQ(program.JointMatricesBinding, 1);
    EXPECT_EQ(program.Uniforms[2].Binding, 2);
    EXPECT_EQ(BlockBinding(program, program.JointMatricesIndex), 1);
    EXPECT_EQ(BlockBinding(program, program.Uniforms[2].Location), 2);
}

TEST_F(Program, AbsentBlocksUseABindingPoint) {
    const ovrProgramParm parms[] = {{"Absent", Type::BufferUniform},
                                    {"Extra", Type::BufferUniform}};
    GlProgram program =
        GlProgram::Build(kBlocksVertex, kSamplersFragment, parms, 2, 300, false, true);
    EXPECT_EQ(GLES3::glGetError(), GLenum{GL_INVALID_VALUE});
    EXPECT_EQ(program.Uniforms[0].Location, -1);
    EXPECT_EQ(program.Uniforms[0].Binding, 2);
    EXPECT_EQ(program.Uniforms[1].Binding, 3);
}

TEST_F(Program, WellKnownUniformsAreFound) {
    GlProgram program = OVR::BuildProgram(kBlocksVertex, kSamplersFragment, 300);
    const auto location = [&program](const char* name) {
        return GLES3::glGetUniformLocation(program.Program, name);
    };
    EXPECT_GE(program.ModelMatrix.Location, 0);
    EXPECT_EQ(program.ModelMatrix.Location, location("ModelMatrix"));
    EXPECT_EQ(program.ModelMatrix.Binding, program.ModelMatrix.Location);
    EXPECT_EQ(program.ModelMatrix.Type, Type::FloatMatrix4);
    EXPECT_EQ(program.MvpmLocation, location("Mvpm"));
    EXPECT_EQ(program.UniformColorLocation, location("UniformColor"));
    EXPECT_EQ(program.ModelmLocation, -1);

    // The older dialect knows no blocks.
    program = OVR::BuildProgram(nullptr, kVertex, "// GL_OES_EGL_image_external\n", kFragment, 300);
    EXPECT_EQ(program.SceneMatrices.Location, -1);
    EXPECT_EQ(program.NumUniformBufferBindings, 0);
}

GLuint MakeTexture(uint32_t pixel) {
    GLuint texture = 0;
    GLES3::glGenTextures(1, &texture);
    GLES3::glBindTexture(GL_TEXTURE_2D, texture);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    GLES3::glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, &pixel);
    return texture;
}

TEST_F(Program, TheExampleOfTheHeaderDrawsItsTexture) {
    GLuint framebuffer = 0;
    GLES3::glGenFramebuffers(1, &framebuffer);
    GLES3::glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    GLES3::glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                                  MakeTexture(0), 0);
    GLES3::glViewport(0, 0, 1, 1);
    MakeTexture(0x12345678);
    DrawTexture();
    uint32_t pixel = 0;
    GLES3::glReadPixels(0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, &pixel);
    EXPECT_EQ(pixel, 0x12345678U);
}

TEST_F(Program, OnlyTableLocationsAreNarrowedTo16Bits) {
    static GLint assigned;
    assigned = 0;
    const ovrProgramParm parms[] = {{"Sampler", Type::TextureSampled}, {"Plain", Type::Int}};
    const Replaced locations(GLES3::glGetUniformLocation, [](GLuint, const GLchar* name) {
        return name[0] == 'S' ? 0x1FFFE : 0x18001;
    });
    const Replaced assignments(GLES3::glUniform1i, [](GLint location, GLint) {
        assigned = assigned == 0 ? location : assigned;
    });
    GlProgram program = GlProgram::Build(kVertex, kFragment, parms, 2, 300, false, false);
    EXPECT_EQ(program.Uniforms[0].Location, -2);
    EXPECT_EQ(program.Uniforms[0].Binding, 0);
    EXPECT_EQ(assigned, -2);
    EXPECT_EQ(program.Uniforms[1].Location, -32767);
    EXPECT_EQ(program.Uniforms[1].Binding, -32767);
    EXPECT_EQ(program.ModelMatrix.Location, 0x18001);
    EXPECT_EQ(program.MvpmLocation, 0x18001);
}

TEST_F(Program, FailuresLeaveAnEmptyRecordAndNoObjects) {
    static GLuint made;
    made = 0;
    static decltype(GLES3::glCreateProgram) create;
    create = GLES3::glCreateProgram;
    const Replaced recorder(GLES3::glCreateProgram, [] { return made = create(); });
    static int infoLogs;
    infoLogs = 0;
    const auto countInfoLog = [](GLuint, GLsizei, GLsizei*, GLchar*) { ++infoLogs; };
    const Replaced ofShaders(GLES3::glGetShaderInfoLog, countInfoLog);
    const Replaced ofPrograms(GLES3::glGetProgramInfoLog, countInfoLog);
    ExpectEmpty(GlProgram::Build("nonsense", kFragment, nullptr, 0, 300, true, true));
    ExpectEmpty(GlProgram::Build(kVertex, "nonsense", nullptr, 0, 300, true, true));
    EXPECT_EQ(made, 0U);
    // Both stages compile, but disagree on the varying.
    ExpectEmpty(
        GlProgram::Build("attribute vec4 Position;\nvarying highp vec2 uv;\n"
                         "void main() { uv = vec2(1.0); gl_Position = Position; }\n",
                         "varying highp vec4 uv;\nvoid main() { gl_FragColor = uv; }\n", nullptr, 0,
                         300, true, true));
    EXPECT_NE(made, 0U);
    EXPECT_FALSE(GLES3::glIsProgram(made));
    EXPECT_EQ(shaders.size(), 5U);
    EXPECT_EQ(infoLogs, 3);
    for (const GLuint shader : shaders) {
        EXPECT_FALSE(GLES3::glIsShader(shader));
    }
}

TEST_F(Program, FreeDeletesNamesAndKeepsTheRest) {
    GlProgram program = OVR::BuildProgram(kBlocksVertex, kSamplersFragment, 300);
    const GlProgram copy = program;
    GLES3::glUseProgram(program.Program);
    GlProgram::Free(program);
    GlProgram::Free(program);
    EXPECT_EQ(GetInteger(GL_CURRENT_PROGRAM), 0);
    EXPECT_FALSE(GLES3::glIsProgram(copy.Program));
    EXPECT_FALSE(GLES3::glIsShader(copy.VertexShader));
    EXPECT_FALSE(GLES3::glIsShader(copy.FragmentShader));
    EXPECT_EQ(program.Program, 0U);
    EXPECT_EQ(program.MvpmLocation, copy.MvpmLocation);
}

}  // namespace
