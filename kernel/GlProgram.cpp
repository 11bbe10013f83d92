#include "kernel/GlProgram.h"

#include <algorithm>
#include <cstring>

#include "gl/GLES3.h"
#include "kernel/StringUtils.h"
#include "kernel/VertexAttribs.h"
#include "kernel/private/ShaderCompiler.h"

namespace OVR {
namespace {

using StringUtils::Va;

constexpr int kMinimumVersion = 300;
constexpr int kExternalImageVersion = 100;
constexpr int kNamedTextureUnits = 8;

bool multiviewEnabled = false;

bool MentionsExternalImage(const char* text) {
    return text != nullptr && std::strstr(text, "GL_OES_EGL_image_external") != nullptr;
}

/// External images only work reliably in shaders of version 100, so both stages use it.
// Frozen: program version
int ChooseVersion(int requested, const char* fragmentDirectives, const char* fragmentSrc) {
    const bool external = !multiviewEnabled && (MentionsExternalImage(fragmentDirectives) ||
                                                MentionsExternalImage(fragmentSrc));
    return external ? kExternalImageVersion : std::max(requested, kMinimumVersion);
}

void BindAttributeLocations(GLuint program) {
    static constexpr struct {
        VertexAttributeLocation location;
        const char* name;
    } kAttributes[] = {
        {VERTEX_ATTRIBUTE_POSITION, "Position"},
        {VERTEX_ATTRIBUTE_NORMAL, "Normal"},
        {VERTEX_ATTRIBUTE_TANGENT, "Tangent"},
        {VERTEX_ATTRIBUTE_BINORMAL, "Binormal"},
        {VERTEX_ATTRIBUTE_COLOR, "VertexColor"},
        {VERTEX_ATTRIBUTE_UV0, "TexCoord"},
        {VERTEX_ATTRIBUTE_UV1, "TexCoord1"},
        {VERTEX_ATTRIBUTE_JOINT_INDICES, "JointIndices"},
        {VERTEX_ATTRIBUTE_JOINT_WEIGHTS, "JointWeights"},
        {VERTEX_ATTRIBUTE_FONT_PARMS, "FontParms"},
    };
    for (const auto& attribute : kAttributes) {
        GLES3::glBindAttribLocation(program, static_cast<GLuint>(attribute.location),
                                    attribute.name);
    }
}

/// Compiles both stages and links them into \p out. On false, \p out holds what was made so far.
bool CompileAndLink(GlProgram& out, const String& vertexText, const String& fragmentText) {
    out.VertexShader = CompileShader(GL_VERTEX_SHADER, vertexText);
    if (out.VertexShader == 0) {
        return false;
    }
    out.FragmentShader = CompileShader(GL_FRAGMENT_SHADER, fragmentText);
    if (out.FragmentShader == 0) {
        return false;
    }
    out.Program = GLES3::glCreateProgram();
    GLES3::glAttachShader(out.Program, out.VertexShader);
    GLES3::glAttachShader(out.Program, out.FragmentShader);
    BindAttributeLocations(out.Program);
    GLES3::glLinkProgram(out.Program);
    return Succeeded(out.Program, GL_LINK_STATUS, GLES3::glGetProgramiv,
                     GLES3::glGetProgramInfoLog);
}

int32_t LookUp(const GlProgram& program, const char* name) {
    return GLES3::glGetUniformLocation(program.Program, name);
}

/// Block index of \p name; GL_INVALID_INDEX, for none, comes out as -1.
int32_t LookUpBlock(const GlProgram& program, const char* name) {
    return static_cast<int32_t>(GLES3::glGetUniformBlockIndex(program.Program, name));
}

int32_t BindBlock(GlProgram& program, int32_t blockIndex) {
    const int32_t binding = program.NumUniformBufferBindings++;
    GLES3::glUniformBlockBinding(program.Program, static_cast<GLuint>(blockIndex),
                                 static_cast<GLuint>(binding));
    return binding;
}

ovrUniform FindUniform(const GlProgram& program, const char* name, ovrProgramParmType type) {
    const int32_t location = LookUp(program, name);
    return {location, location, type};
}

void FindSceneMatrices(GlProgram& program) {
    ovrUniform& block = program.SceneMatrices;
    block.Type = ovrProgramParmType::BufferUniform;
    block.Location = LookUpBlock(program, "SceneMatrices");
    if (block.Location >= 0) {
        block.Binding = BindBlock(program, block.Location);
    }
}

void FindWellKnownUniforms(GlProgram& program) {
    program.ViewID = FindUniform(program, "ViewID", ovrProgramParmType::Int);
    FindSceneMatrices(program);
    program.ModelMatrix = FindUniform(program, "ModelMatrix", ovrProgramParmType::FloatMatrix4);
    program.ViewMatrix = FindUniform(program, "ViewMatrix", ovrProgramParmType::FloatMatrix4);
    program.ProjectionMatrix =
        FindUniform(program, "ProjectionMatrix", ovrProgramParmType::FloatMatrix4);

    program.MvpmLocation = LookUp(program, "Mvpm");
    program.ModelmLocation = LookUp(program, "Modelm");
    program.UniformColorLocation = LookUp(program, "UniformColor");
    program.UniformFadeDirectionLocation = LookUp(program, "UniformFadeDirection");
    program.TexmLocation = LookUp(program, "Texm");
    program.Texm2Location = LookUp(program, "Texm2");
    program.ColorTableOffsetLocation = LookUp(program, "ColorTableOffset");
    program.ClipUVsLocation = LookUp(program, "ClipUVs");
    program.JointMatricesIndex = LookUpBlock(program, "JointMatrices");
    if (program.JointMatricesIndex != -1) {
        program.JointMatricesBinding = BindBlock(program, program.JointMatricesIndex);
    }
}

/// For table entries; the well-known uniforms keep 32 bits.
// Frozen: 16-bit locations
int32_t LookUpNarrowed(const GlProgram& program, const char* name) {
    return static_cast<int16_t>(LookUp(program, name));
}

void AssignParm(GlProgram& program, ovrUniform& uniform, const ovrProgramParm& parm) {
    uniform.Type = parm.Type;
    switch (parm.Type) {
        case ovrProgramParmType::TextureSampled:
            uniform.Location = LookUpNarrowed(program, parm.Name);
            uniform.Binding = program.NumTextureBindings++;
            GLES3::glUniform1i(uniform.Location, uniform.Binding);
            break;
        case ovrProgramParmType::BufferUniform:
            // Frozen: absent blocks
            uniform.Location = LookUpBlock(program, parm.Name);
            uniform.Binding = BindBlock(program, uniform.Location);
            break;
        default:
            uniform.Location = LookUpNarrowed(program, parm.Name);
            uniform.Binding = uniform.Location;
            break;
    }
}

/// Gives the samplers "Texture0" to "Texture7" their units, also if the table gave them others.
void AssignNamedTextureUnits(const GlProgram& program) {
    for (int unit = 0; unit < kNamedTextureUnits; ++unit) {
        const int32_t location = LookUp(program, Va("Texture%i", unit));
        if (location != -1) {
            GLES3::glUniform1i(location, unit);
        }
    }
}

}  // namespace

GlProgram GlProgram::Build(const char* vertexDirectives, const char* vertexSrc,
                           const char* fragmentDirectives, const char* fragmentSrc,
                           const ovrProgramParm* parms, int numParms, int programVersion,
                           bool /*abortOnError*/, bool useMultiview) {
    const int version = ChooseVersion(programVersion, fragmentDirectives, fragmentSrc);
    // Both texts before the first GL object: they may throw.
    const String vertexText =
        AssembleShader(GL_VERTEX_SHADER, vertexDirectives, vertexSrc, version, multiviewEnabled);
    const String fragmentText = AssembleShader(GL_FRAGMENT_SHADER, fragmentDirectives, fragmentSrc,
                                               version, multiviewEnabled);
    GlProgram program;
    if (!CompileAndLink(program, vertexText, fragmentText)) {
        Free(program);
        return {};
    }
    program.UseMultiview = useMultiview;
    FindWellKnownUniforms(program);

    GLES3::glUseProgram(program.Program);
    for (int i = 0; i < numParms; ++i) {
        AssignParm(program, program.Uniforms[i], parms[i]);
    }
    AssignNamedTextureUnits(program);
    GLES3::glUseProgram(0);
    return program;
}

GlProgram GlProgram::Build(const char* vertexSrc, const char* fragmentSrc,
                           const ovrProgramParm* parms, int numParms, int programVersion,
                           bool abortOnError, bool useMultiview) {
    return Build(nullptr, vertexSrc, nullptr, fragmentSrc, parms, numParms, programVersion,
                 abortOnError, useMultiview);
}

void GlProgram::Free(GlProgram& program) {
    GLES3::glUseProgram(0);
    if (program.Program != 0) {
        GLES3::glDeleteProgram(program.Program);
    }
    if (program.VertexShader != 0) {
        GLES3::glDeleteShader(program.VertexShader);
    }
    if (program.FragmentShader != 0) {
        GLES3::glDeleteShader(program.FragmentShader);
    }
    program.Program = 0;
    program.VertexShader = 0;
    program.FragmentShader = 0;
}

void GlProgram::SetUseMultiview(bool useMultiview) {
    multiviewEnabled = useMultiview;
}

GlProgram BuildProgram(const char* vertexDirectives, const char* vertexSrc,
                       const char* fragmentDirectives, const char* fragmentSrc,
                       int programVersion) {
    return GlProgram::Build(vertexDirectives, vertexSrc, fragmentDirectives, fragmentSrc, nullptr,
                            0, programVersion, true, true);
}

GlProgram BuildProgram(const char* vertexSrc, const char* fragmentSrc, int programVersion) {
    return BuildProgram(nullptr, vertexSrc, nullptr, fragmentSrc, programVersion);
}

void DeleteProgram(GlProgram& program) {
    GlProgram::Free(program);
}

}  // namespace OVR
