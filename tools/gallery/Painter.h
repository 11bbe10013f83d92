#pragma once

#include "Scenes.h"
#include "Target.h"
#include "kernel/GlProgram.h"
#include "support/Image.h"

/// Draws the scenes of the gallery. The same GL context must be current during its whole life.
class Painter {
public:
    /// \throws ToolError
    Painter(Size size, const Image& panorama, const Image& photo);
    ~Painter();
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    Image Draw(const Scene& scene);

private:
    void DrawPhotoBehind();
    void DrawMesh(const Scene& scene, const Matrix& viewProjection);
    void DrawLines(OVR::GlGeometry lines, const Matrix& viewProjection, float strength);
    Matrix ViewProjectionOf(const Scene& scene) const;
    const OVR::GlProgram& ProgramFor(Paint paint) const;

    Size size_;
    Target target_;
    OVR::GlProgram faces_;
    OVR::GlProgram picture_;
    OVR::GlProgram vertexColor_;
    OVR::GlProgram oneColor_;
    GLuint textures_[2] = {};  ///< Panorama and photo.
    GLuint sceneMatrices_ = 0;
};
