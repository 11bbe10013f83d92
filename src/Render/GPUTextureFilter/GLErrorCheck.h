#pragma once

/// The error checks of the filter, with their numbers in the log.
// Frozen: check numbers
enum class DrawCheck {
    // Locations of uniforms, at the first draw.
    ColorMirrorLocation = 150,
    MatrixLocation = 152,
    StickerLocation = 154,
    SourceLocation = 157,
    MaskLocation = 161,
    StickerTextureLocation = 164,

    // State of the target.
    DepthTest = 242,
    ScissorTest = 243,
    StencilTest = 244,
    CullFace = 245,
    Blend = 246,
    ArrayBuffer = 254,
    IndexBuffer = 255,

    // The program and its uniforms.
    UseProgram = 257,
    Matrix = 258,
    ColorMirror = 259,
    StickerFlagOff = 260,
    SourceUnit = 261,

    // Textures, with an external source.
    ExternalSource = 264,
    ExternalSourceSampler = 265,
    ExternalMaskUnit = 268,
    ExternalMask = 269,
    ExternalMaskSampler = 270,
    ExternalStickerUnit = 275,
    ExternalSticker = 276,
    ExternalStickerSampler = 277,

    // Textures, with a 2D source.
    Source2D = 282,
    Source2DSampler = 283,
    Source2DMaskUnit = 286,
    Source2DMask = 287,
    Source2DMaskSampler = 288,
    Source2DStickerUnit = 293,
    Source2DSticker = 294,
    Source2DStickerSampler = 295,

    // Every sticker.
    StickerFlagOn = 308,

    // Bindings that are set to 0 after the draw.
    UnbindVertexArrayOES = 314,
    UnbindVertexArray = 315,
    UnbindProgram = 316,
    UnbindTexture = 317,
    UnbindFramebuffer = 318,
};

/// Calls glGetError once and logs an error with the number of \p check. Nothing else depends on the
/// result.
void CheckGLError(DrawCheck check);
