#pragma once

#include <cstdint>

#include "kernel/Export.h"

namespace OVR {

/// What a uniform is, as one byte. Codes without a name here are ordinary uniforms.
enum class ovrProgramParmType : uint8_t {
    Int = 0,
    FloatMatrix4 = 8,
    TextureSampled = 9,
    BufferUniform = 10,
    Unset = 11,
};

/// A uniform, sampler or uniform block that a program should look up besides the well-known ones.
struct ovrProgramParm {
    const char* Name;  ///< NUL-terminated, the caller's.
    ovrProgramParmType Type;
};

/// Where a uniform stands in a program.
struct ovrUniform {
    /// Uniform location, or block index for a uniform buffer; -1 when absent.
    int32_t Location = -1;
    /// Texture unit, uniform-buffer binding point, or a copy of Location; -1 when not assigned.
    int32_t Binding = -1;
    ovrProgramParmType Type = ovrProgramParmType::Unset;
};

/// A linked program with its shaders and the places of its uniforms.
///
/// Build puts a version line, the caller's directives and a compatibility prefix in front of each
/// source, so that sources may be written in the dialect of version 100 or 300. It binds the
/// attribute names of VertexAttributeLocation, sets the samplers "Texture0" … "Texture7" to units
/// 0 … 7, and looks the well-known uniforms below up.
///
/// A plain value; the holder calls Free. Every call needs the GL context current, and
/// GLES3::LoadGLFunctions done. Build leaves program 0 in use. Failures are returned, never logged.
struct OVR_EXPORT GlProgram {
    static constexpr int MAX_UNIFORMS = 8;

    uint32_t Program = 0;  ///< 0 when the program could not be built.
    uint32_t VertexShader = 0;
    uint32_t FragmentShader = 0;

    ovrUniform ViewID;
    ovrUniform ModelMatrix;
    ovrUniform SceneMatrices;
    ovrUniform ViewMatrix;
    ovrUniform ProjectionMatrix;
    ovrUniform Uniforms[MAX_UNIFORMS];  ///< The caller's table, in its order.

    int32_t NumTextureBindings = 0;
    int32_t NumUniformBufferBindings = 0;
    bool UseMultiview = false;  ///< The argument of Build.

    int32_t MvpmLocation = -1;
    int32_t ModelmLocation = -1;
    int32_t UniformColorLocation = -1;
    int32_t UniformFadeDirectionLocation = -1;
    int32_t TexmLocation = -1;
    int32_t Texm2Location = -1;
    int32_t ColorTableOffsetLocation = -1;
    int32_t ClipUVsLocation = -1;
    int32_t JointMatricesIndex = -1;
    int32_t JointMatricesBinding = -1;

    /// \param vertexDirectives, fragmentDirectives lines to follow the version line; may be null.
    /// \param vertexSrc, fragmentSrc never null; a version line of their own is replaced.
    /// \param parms         table of \p numParms entries, at most MAX_UNIFORMS (not checked);
    ///                      samplers and blocks get units and binding points in table order.
    /// \param programVersion shading-language version; less than 300 counts as 300. A fragment
    ///                      stage that mentions GL_OES_EGL_image_external anywhere makes it 100,
    ///                      unless the process-wide multiview switch is on.
    /// \param abortOnError  accepted and ignored.
    /// \param useMultiview  kept in the record for the caller.
    /// \return an empty record (Program 0) when a stage does not compile or the link fails.
    static GlProgram Build(const char* vertexDirectives, const char* vertexSrc,
                           const char* fragmentDirectives, const char* fragmentSrc,
                           const ovrProgramParm* parms, int numParms, int programVersion,
                           bool abortOnError, bool useMultiview);
    static GlProgram Build(const char* vertexSrc, const char* fragmentSrc,
                           const ovrProgramParm* parms, int numParms, int programVersion,
                           bool abortOnError, bool useMultiview);

    /// Deletes program and shaders and zeroes their names; the rest of the record stays. May be
    /// repeated. Leaves program 0 in use.
    static void Free(GlProgram& program);

    /// The process-wide multiview switch, off at start. Set it before any program is built.
    static void SetUseMultiview(bool useMultiview);
};

/// GlProgram::Build without a parameter table.
OVR_EXPORT GlProgram BuildProgram(const char* vertexDirectives, const char* vertexSrc,
                                  const char* fragmentDirectives, const char* fragmentSrc,
                                  int programVersion);
OVR_EXPORT GlProgram BuildProgram(const char* vertexSrc, const char* fragmentSrc,
                                  int programVersion);

/// GlProgram::Free.
OVR_EXPORT void DeleteProgram(GlProgram& program);

}  // namespace OVR
