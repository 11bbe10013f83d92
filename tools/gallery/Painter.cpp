#include "Painter.h"

#include "Edges.h"
#include "kernel/geometry/TesselatedQuad.h"
#include "support/ToolError.h"

namespace {

// Sources in the dialect of version 300.

constexpr char kMeshVertexShader[] = R"(
in vec4 Position;
in vec4 VertexColor;
in vec2 TexCoord;
uniform highp mat4 Mvpm;
out highp vec3 place;
out lowp vec4 color;
out highp vec2 uv;
void main() {
    place = Position.xyz;
    color = VertexColor;
    uv = TexCoord;
    gl_Position = Mvpm * Position;
}
)";

// Flat shading: the normal follows from the differences of the position between pixels.
constexpr char kFacesShader[] = R"(
precision highp float;
in vec3 place;
const vec3 kFront = vec3(0.36, 0.62, 0.90);
const vec3 kBack = vec3(0.95, 0.62, 0.30);
const vec3 kLight = vec3(0.35, 0.75, 0.56);
void main() {
    vec3 normal = normalize(cross(dFdx(place), dFdy(place)));
    float light = 0.62 + 0.38 * abs(dot(normal, kLight));
    gl_FragColor = vec4((gl_FrontFacing ? kFront : kBack) * light, 1.0);
}
)";

constexpr char kPictureShader[] = R"(
precision highp float;
in vec2 uv;
in lowp vec4 color;
uniform sampler2D Texture0;
uniform float TexCoordOffset;
void main() {
    gl_FragColor = vec4(texture2D(Texture0, uv + TexCoordOffset).rgb, color.a);
}
)";

constexpr char kVertexColorShader[] = R"(
in lowp vec4 color;
void main() {
    gl_FragColor = color;
}
)";

constexpr char kOneColorShader[] = R"(
uniform lowp vec4 UniformColor;
void main() {
    gl_FragColor = UniformColor;
}
)";

constexpr float kPaper[] = {0.94F, 0.94F, 0.93F};
constexpr Point kInk = {0.10F, 0.12F, 0.20F};
constexpr float kLineWidth = 1.5F;
constexpr int kTexCoordOffset = 0;  ///< Index in the parameter table.

OVR::GlProgram Build(const char* fragmentShader) {
    const OVR::ovrProgramParm parms[] = {
        {"TexCoordOffset", static_cast<OVR::ovrProgramParmType>(1)}};
    const OVR::GlProgram program =
        OVR::GlProgram::Build(kMeshVertexShader, fragmentShader, parms, 1, 300, false, false);
    if (program.Program == 0) {
        throw ToolError("the GL does not compile the gallery's shaders");
    }
    return program;
}

void FillTexture(GLuint texture, const Image& image) {
    GLES3::glBindTexture(GL_TEXTURE_2D, texture);
    GLES3::glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, image.size.width, image.size.height, 0, GL_RGBA,
                        GL_UNSIGNED_BYTE, image.pixels.data());
    GLES3::glGenerateMipmap(GL_TEXTURE_2D);
    GLES3::glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
}

void SetUpDrawing() {
    GLES3::glEnable(GL_DEPTH_TEST);
    GLES3::glDepthFunc(GL_LEQUAL);
    GLES3::glEnable(GL_BLEND);
    GLES3::glLineWidth(kLineWidth);
    // Moves faces back, so that the edges on them are visible.
    GLES3::glPolygonOffset(0.5F, 8);
    GLES3::glEnable(GL_POLYGON_OFFSET_FILL);
}

void BlendOver() {
    GLES3::glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void BlendMultiplied() {
    GLES3::glBlendFunc(GL_DST_COLOR, GL_ZERO);
}

/// Draws back faces, then front faces: the order that transparent meshes need, seen from outside.
void DrawFarSideFirst(const OVR::GlGeometry& mesh) {
    GLES3::glEnable(GL_CULL_FACE);
    for (const GLenum hidden : {GL_FRONT, GL_BACK}) {
        GLES3::glCullFace(hidden);
        mesh.Draw();
    }
    GLES3::glDisable(GL_CULL_FACE);
}

void Use(const OVR::GlProgram& program, const Matrix& viewProjection) {
    GLES3::glUseProgram(program.Program);
    GLES3::glUniformMatrix4fv(program.MvpmLocation, 1, GL_FALSE, &viewProjection.M[0][0]);
}

}  // namespace

Painter::Painter(Size size, const Image& panorama, const Image& photo)
    : size_(size),
      target_(size),
      faces_(Build(kFacesShader)),
      picture_(Build(kPictureShader)),
      vertexColor_(Build(kVertexColorShader)),
      oneColor_(Build(kOneColorShader)) {
    GLES3::glGenTextures(2, textures_);
    FillTexture(textures_[0], panorama);
    FillTexture(textures_[1], photo);
    // The block of all programs. No shader uses it, but WebGL wants a buffer for it.
    GLES3::glGenBuffers(1, &sceneMatrices_);
    GLES3::glBindBufferBase(GL_UNIFORM_BUFFER, faces_.SceneMatrices.Binding, sceneMatrices_);
    GLES3::glBufferData(GL_UNIFORM_BUFFER, 4 * sizeof(Matrix), nullptr, GL_STATIC_DRAW);
    SetUpDrawing();
}

Painter::~Painter() {
    GLES3::glDeleteBuffers(1, &sceneMatrices_);
    GLES3::glDeleteTextures(2, textures_);
    OVR::DeleteProgram(oneColor_);
    OVR::DeleteProgram(vertexColor_);
    OVR::DeleteProgram(picture_);
    OVR::DeleteProgram(faces_);
}

Image Painter::Draw(const Scene& scene) {
    target_.Bind();
    GLES3::glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    GLES3::glClearColor(kPaper[0], kPaper[1], kPaper[2], 1);
    GLES3::glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    GLES3::glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
    if (scene.paint == Paint::kShade) {
        DrawPhotoBehind();
    }
    DrawMesh(scene, ViewProjectionOf(scene));
    return target_.Read();
}

Matrix Painter::ViewProjectionOf(const Scene& scene) const {
    const float aspect = static_cast<float>(size_.width) / static_cast<float>(size_.height);
    return scene.paint == Paint::kShade ? Matrix::IdentityValue
                                        : scene.camera.ViewProjection(aspect);
}

/// Draws the photo over the whole target, behind everything else.
void Painter::DrawPhotoBehind() {
    OVR::GlGeometry quad = OVR::BuildTesselatedQuad(1, 1, false);
    Use(picture_, Matrix::IdentityValue);
    GLES3::glUniform1f(picture_.Uniforms[kTexCoordOffset].Location, 0);
    GLES3::glBindTexture(GL_TEXTURE_2D, textures_[1]);
    GLES3::glDisable(GL_BLEND);
    GLES3::glDepthMask(GL_FALSE);
    quad.Draw();
    GLES3::glDepthMask(GL_TRUE);
    GLES3::glEnable(GL_BLEND);
    quad.Free();
}

void Painter::DrawMesh(const Scene& scene, const Matrix& viewProjection) {
    OVR::GlGeometry mesh = scene.build();
    if (scene.paint == Paint::kLines) {
        DrawLines(mesh, viewProjection, 1);
        return;
    }
    const OVR::GlProgram& program = ProgramFor(scene.paint);
    Use(program, viewProjection);
    GLES3::glUniform1f(program.Uniforms[kTexCoordOffset].Location, scene.texCoordOffset);
    GLES3::glBindTexture(GL_TEXTURE_2D, textures_[scene.paint == Paint::kPanorama ? 0 : 1]);
    scene.paint == Paint::kShade ? BlendMultiplied() : BlendOver();
    DrawFarSideFirst(mesh);
    if (scene.edges > 0) {
        DrawLines(EdgesOf(mesh), viewProjection, scene.edges);
    }
    mesh.Free();
}

/// Draws \p lines and frees them.
void Painter::DrawLines(OVR::GlGeometry lines, const Matrix& viewProjection, float strength) {
    lines.primitiveType = GL_LINES;
    Use(oneColor_, viewProjection);
    GLES3::glUniform4f(oneColor_.UniformColorLocation, kInk.x, kInk.y, kInk.z, strength);
    BlendOver();
    lines.Draw();
    lines.Free();
}

const OVR::GlProgram& Painter::ProgramFor(Paint paint) const {
    switch (paint) {
        case Paint::kFaces: return faces_;
        case Paint::kShade: return vertexColor_;
        case Paint::kLines: return oneColor_;
        default: return picture_;
    }
}
