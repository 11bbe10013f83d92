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

/// A uniform, sampler or uniform block that Build looks up besides the well-known ones.
struct ovrProgramParm {
    const char* Name;  ///< NUL-terminated; the caller owns it.
    ovrProgramParmType Type;
};

/// The place of a uniform in a program.
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
/// source, so sources may be written in the language of version 100 or of version 300. It binds the
/// attribute names of VertexAttributeLocation, sets the samplers "Texture0" to "Texture7" to units
/// 0 to 7, and looks up the well-known uniforms below.
///
/// The prefix declares what follows; a source uses it and does not declare it again.
///
/// - Both stages: `DISABLE_MULTIVIEW`, 0 or 1. `in` and `out` also stand for `attribute` and
///   `varying`, and the other way round.
/// - Vertex stage: `uniform highp mat4 ModelMatrix`. `NUM_VIEWS` is 2. The arrays
///   `ViewMatrix[NUM_VIEWS]` and `ProjectionMatrix[NUM_VIEWS]` are uniforms in version 100. From
///   version 300 on they belong to the uniform block `SceneMatrices`, and sources write
///   `sm.ViewMatrix` and `sm.ProjectionMatrix`. The block has the layout `shared`, in practice four
///   matrices of 64 bytes one after the other. WebGL draws only while the block has
///   a buffer, even if the source does not use it.
/// - `VIEW_ID` is the index of the view: `uniform lowp int ViewID`, or `gl_ViewID_OVR` if multiview
///   is on and GL has GL_OVR_multiview2.
/// - `TransformVertex(p)` is projection × view × model × p for that view. It may be a macro: put an
///   argument such as `(p + q)` in parentheses.
/// - Fragment stage: from version 300 on, `out mediump vec4 fragColor`; `gl_FragColor` is another
///   name for it, and `texture2D` and `textureCube` for `texture`. `float` has no default
///   precision.
///
/// \code
/// #include "kernel/GlProgram.h"
/// #include "kernel/Matrix4.h"
/// #include "kernel/geometry/TesselatedQuad.h"
///
/// // Draws the texture of unit 0 over the whole viewport.
/// void DrawTexture() {
///     OVR::GlProgram program = OVR::BuildProgram(
///         "in vec4 Position;\n"
///         "in vec2 TexCoord;\n"
///         "out highp vec2 uv;\n"
///         "void main() { uv = TexCoord; gl_Position = TransformVertex(Position); }\n",
///         "in highp vec2 uv;\n"
///         "uniform sampler2D Texture0;\n"
///         "void main() { gl_FragColor = texture2D(Texture0, uv); }\n",
///         300);
///     OVR::GlGeometry quad = OVR::BuildTesselatedQuad(1, 1, false);
///
///     // SceneMatrices: the views' ViewMatrix, then their ProjectionMatrix.
///     const OVR::Matrix4<float> one = OVR::Matrix4<float>::IdentityValue;
///     const OVR::Matrix4<float> scene[] = {one, one, one, one};
///     GLuint sceneBuffer = 0;
///     GLES3::glGenBuffers(1, &sceneBuffer);
///     GLES3::glBindBufferBase(GL_UNIFORM_BUFFER, program.SceneMatrices.Binding,
///                              sceneBuffer);
///     GLES3::glBufferData(GL_UNIFORM_BUFFER, sizeof(scene), scene, GL_STATIC_DRAW);
///
///     GLES3::glUseProgram(program.Program);
///     GLES3::glUniform1i(program.ViewID.Location, 0);
///     GLES3::glUniformMatrix4fv(program.ModelMatrix.Location, 1, GL_FALSE, &one.M[0][0]);
///     quad.Draw();
///
///     GLES3::glDeleteBuffers(1, &sceneBuffer);
///     quad.Free();
///     OVR::DeleteProgram(program);
/// }
/// \endcode
///
/// A plain value; the caller calls Free once for all copies. Build leaves program 0 in use.
/// Failures are returned and never logged. Build throws std::bad_alloc without memory for the
/// sources, before it makes a GL object.
///
/// \thread the one with the GL context, after GLES3::LoadGLFunctions.
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

    /// \param vertexDirectives, fragmentDirectives lines behind the version line; may be null.
    /// \param vertexSrc, fragmentSrc not null. A version line in them is replaced.
    /// \param parms         table of \p numParms entries, at most MAX_UNIFORMS (not checked);
    ///                      samplers and blocks get units and binding points in this order.
    /// \param programVersion version of the shading language; less than 300 means 300. Both stages
    ///                      get version 100 if the fragment stage mentions
    ///                      GL_OES_EGL_image_external anywhere and the process-wide multiview
    ///                      switch is off.
    /// \param abortOnError  has no effect.
    /// \param useMultiview  only stored in the record.
    /// \return an empty record (Program 0) when a stage does not compile or the link fails.
    static GlProgram Build(const char* vertexDirectives, const char* vertexSrc,
                           const char* fragmentDirectives, const char* fragmentSrc,
                           const ovrProgramParm* parms, int numParms, int programVersion,
                           bool abortOnError, bool useMultiview);
    static GlProgram Build(const char* vertexSrc, const char* fragmentSrc,
                           const ovrProgramParm* parms, int numParms, int programVersion,
                           bool abortOnError, bool useMultiview);

    /// Deletes program and shaders and sets their names to 0; the rest of the record stays. Leaves
    /// program 0 in use. A second call has no effect.
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
