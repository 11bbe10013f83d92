#pragma once

/// \file
/// The guarded way in: a renderer that checks everything, reports every failure, and leaves nothing
/// behind. Plain C.
///
/// VERenderer.h is the other way in. It trusts its caller and the platform; this one trusts
/// neither. A renderer made here also works with the functions of VERenderer.h: they return -1 for
/// all errors, start at zoom 2, move the view in every output mode, and draw no application's
/// texture.
///
/// In short
/// --------
///
///     VERendererOptions options = VEMakeRendererOptions();
///     options.source = VE_SOURCE_H264;
///     options.sourceWidth = 1920;
///     options.sourceHeight = 1080;
///     options.outputTexture = texture;
///     options.javaVM = vm;
///     VERenderer* renderer = NULL;
///     VEResult result = VECreateRenderer(&options, &renderer);   // else VEResultText(result)
///
///     VEQueueUnit(renderer, &unit);                              // as units arrive
///     VEDraw(renderer, NULL, NULL);                              // once per displayed frame
///
///     VECloseRenderer(renderer, VE_CONTEXT_CURRENT);
///
/// Structs
/// -------
///
/// The first member of each struct is its size. Take a struct from its VEMake… function, which sets
/// the size and zeroes the rest; zero is always the usual choice. The library accepts structs of
/// older and newer callers. From newer ones it refuses members that it does not know and that are
/// not zero.
///
/// Results
/// -------
///
/// Each call returns a VEResult: VE_OK, a positive one where there is nothing wrong but nothing was
/// done yet, or a negative one for an error. A call that fails changes nothing and may be repeated,
/// also when memory ran out. No call throws, crashes on a null pointer, or passes one on. A handle
/// that VECreateRendererHandle made gives VE_ERROR_HANDLE. A destroyed handle is not recognized.
///
/// Threads
/// -------
///
/// All calls for one renderer come from one thread, with the GL context current in which it was
/// created. VEGetDecoderState may come from any thread. VEResultText needs no context.
///
/// For compressed video the thread is attached to the Java VM, and stays attached: a native thread
/// detaches itself before it ends. The decoder has a thread of its own, which is not attached.
///
/// Ownership
/// ---------
///
/// All textures given are the application's. They are never deleted. Pixels, units, structs and
/// lists are read during the call only. After VECloseRenderer the context holds exactly the GL
/// names that it held before VECreateRenderer.
///
/// GL state
/// --------
///
/// The context is one of OpenGL ES 3.0 or later. Draws are right from any state, with any clear
/// color as the background; one thing is needed: without keepState no transform feedback may be
/// active.
///
/// With VERendererOptions::keepState, VEDraw gives back all GL state that it changes. Without it,
/// which is faster, VEDraw leaves these values. A test compares the table with GL.
///
///     call      if             state                                             is then
///     -----------------------------------------------------------------------------------------
///     draw                     GL_CURRENT_PROGRAM                                0
///     draw                     GL_VERTEX_ARRAY_BINDING                           0
///     draw                     GL_ARRAY_BUFFER_BINDING                           0
///     draw                     GL_DRAW_FRAMEBUFFER_BINDING                       0
///     draw                     GL_READ_FRAMEBUFFER_BINDING                       0
///     draw                     GL_PIXEL_UNPACK_BUFFER_BINDING                    0
///     draw                     GL_ACTIVE_TEXTURE                                 GL_TEXTURE0
///     draw                     GL_SAMPLER_BINDING, unit 0                        0
///     draw                     GL_SAMPLER_BINDING, unit 1                        0
///     draw                     GL_TEXTURE_BINDING_2D, unit 0                     0
///     draw                     GL_TEXTURE_BINDING_2D, unit 1                     0
///     draw                     GL_TEXTURE_BINDING_EXTERNAL_OES, unit 0           0
///     draw      picture        GL_VIEWPORT                                       0 0 width height
///     draw                     GL_BLEND, draw buffer 0                           0
///     draw                     GL_COLOR_WRITEMASK, draw buffer 0                 1 1 1 1
///     draw                     GL_SCISSOR_TEST                                   0
///     draw                     GL_CULL_FACE                                      0
///     draw                     GL_RASTERIZER_DISCARD                             0
///     draw      upload         GL_UNPACK_ALIGNMENT                               1
///     draw      upload         GL_UNPACK_ROW_LENGTH                              0
///     draw      upload         GL_UNPACK_SKIP_ROWS                               0
///     draw      upload         GL_UNPACK_SKIP_PIXELS                             0
///
/// "picture": something is drawn. "upload": pixels of a frame or mask reach their texture, which is
/// one call late with VERendererOptions::drawLater. Where the context has no separate draw buffers,
/// "draw buffer 0" means all of them.
///
/// VECreateRenderer and VECloseRenderer always give back all bindings. Creation reads and clears
/// the error flags; draws do not touch them. GL itself cannot give back: a program or texture that
/// was deleted while it was bound, and the samples that an active query counts.

#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "render/VERenderer.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What a call came to.
typedef enum VEResult {
    VE_OK = 0,
    VE_AGAIN = 1,  ///< No room for the unit now. Try again.
    VE_BUSY = 2,   ///< Closed; a decoder call that takes long ends by itself.
    VE_ERROR_ARGUMENT = -1,
    VE_ERROR_HANDLE = -2,        ///< Null, or not made by VECreateRenderer.
    VE_ERROR_UNSUPPORTED = -3,   ///< Not with this kind of source.
    VE_ERROR_MEMORY = -4,        ///< Of the process or of GL.
    VE_ERROR_NO_CONTEXT = -5,    ///< No GL context is current.
    VE_ERROR_GL_VERSION = -6,    ///< GL lacks entries of OpenGL ES 3.0.
    VE_ERROR_NO_EXTERNAL = -7,   ///< GL has no external textures.
    VE_ERROR_GL = -8,            ///< GL refused a shader or the output texture.
    VE_ERROR_PICTURE_SIZE = -9,  ///< Larger than GL allows.
    VE_ERROR_JAVA = -10,         ///< No Java VM, or Java refused.
    VE_ERROR_NO_DECODER = -11,   ///< The platform has no decoder for this source.
    VE_ERROR_DECODER = -12,      ///< The decoder failed.
    VE_ERROR_RECLAIMED = -13,    ///< The platform took the decoder away. Create a new renderer.
    VE_ERROR_UNIT_SIZE = -14,    ///< Larger than the decoder's buffer.
} VEResult;

/// \return a static English text, also for a value that is no VEResult.
VE_EXPORT const char* VEResultText(VEResult result);

/// Where pictures come from.
enum {
    VE_SOURCE_RGB = VE_MODE_RGB,      ///< Raw frames, 3 bytes a pixel.
    VE_SOURCE_RGBA = VE_MODE_RGBA,    ///< Raw frames, 4 bytes a pixel.
    VE_SOURCE_H264 = VE_MODE_H264,    ///< H.264 access units, decoded by the platform.
    VE_SOURCE_MJPEG = VE_MODE_MJPEG,  ///< Motion-JPEG access units, decoded by the platform.
    VE_SOURCE_TEXTURE_2D = 16,        ///< The application's GL_TEXTURE_2D.
    VE_SOURCE_TEXTURE_EXTERNAL = 17,  ///< The application's GL_TEXTURE_EXTERNAL_OES.
};

/// Whether this device, with the context that is current, can draw pictures of \p source: has GL
/// all entries, are there external textures (where needed), is there a decoder (where needed)?
/// Leaves nothing behind.
///
/// \param source VE_SOURCE_…
VE_EXPORT VEResult VECheckSource(int32_t source);

/// A renderer. Where a function of VERenderer.h takes a handle, it takes this pointer.
typedef struct VERenderer VERenderer;

/// What kind of renderer to create.
typedef struct VERendererOptions {
    size_t structSize;
    int32_t source;  ///< VE_SOURCE_…
    /// Of raw frames: their size in pixels. Of compressed video: the size to expect. Not used with
    /// the application's textures.
    int32_t sourceWidth;
    int32_t sourceHeight;
    int32_t outputWidth;   ///< Size of the output texture; 0: the source's.
    int32_t outputHeight;  ///< Likewise.
    /// A GL_TEXTURE_2D. Without immutable storage it is given storage of the output's size that is
    /// transparent black, with linear filters and clamped edges. Give it no other storage before
    /// the renderer is closed.
    uint32_t outputTexture;
    int32_t outputFormat;  ///< VE_FORMAT_RGB or VE_FORMAT_RGBA; 0: RGBA.
    int32_t maskFormat;    ///< Of mask pixels: VE_MASK_RGB or VE_MASK_RGBA; 0: none are given.
    int32_t maskWidth;     ///< Of mask pixels.
    int32_t maskHeight;    ///< Likewise.
    /// Raw frames and their masks: false draws them in the call that brings them; true draws them
    /// one call later, through pixel buffers. For GPUs that make the call wait otherwise; slower on
    /// software GL.
    bool drawLater;
    bool keepState;       ///< VEDraw gives back all GL state.
    int32_t closeWaitMs;  ///< How long VECloseRenderer may wait for the decoder; 0: 50 ms.
    void* javaVM;         ///< The process's JavaVM*, for compressed video.
    /// Called on the decoder's thread when a decoded picture is on its way to the surface; null:
    /// no calls. Inside, only VEGetDecoderState may be called: wake the thread that draws. VEDraw
    /// may still find no new picture for some milliseconds. Never called after VECloseRenderer.
    void (*onPicture)(void* listener);
    void* listener;  ///< Passed to onPicture.
    /// Draws into outputFramebuffer, the application's, at once: no copy is needed to show it. Its
    /// last row is the picture's first row, as windows have it. outputTexture is 0 then, and
    /// outputFormat is not used.
    bool toFramebuffer;
    uint32_t outputFramebuffer;  ///< 0: the window's.
    /// Raw frames: each is drawn by the call that brings it and by no other, so a call without a
    /// frame draws nothing. Saves a copy of frames that fit the output. Not with drawLater.
    bool drawOnce;
} VERendererOptions;

/// Creates a renderer.
///
/// \param renderer receives the renderer; null on failure.
/// \return VE_OK, or why there is none. Nothing is left behind then.
VE_EXPORT VEResult VECreateRenderer(const VERendererOptions* options, VERenderer** renderer);

/// The camera's place, as in VERenderer.h: x, y in halves of the picture.
typedef struct VEView {
    float x;  ///< Positive moves the picture to the left.
    float y;  ///< Positive moves the picture towards the output's first row.
    /// Less than 6, and nothing shows from 5.8 on. VE_ZOOM_FIT fits; 2 is the start of
    /// VERenderer.h.
    float zoom;
} VEView;

/// The zoom at which the picture's edges meet the output's.
#define VE_ZOOM_FIT 1.40031481F

/// What to draw. All zero: the newest picture as it is, fitting the output.
///
/// The order is: source matrix, rotation, mask, mirror, view, stickers. Matrix, rotation and mirror
/// act on the picture only; mask and stickers keep their places.
typedef struct VEDrawOptions {
    size_t structSize;
    /// Raw frames: the pixels, tightly packed, first row first. Null: no new frame.
    const void* frame;
    /// The application's texture, where that is the source; sampled with its own filters.
    uint32_t sourceTexture;
    /// 16 floats, column by column, as SurfaceTexture.getTransformMatrix gives them for this
    /// texture. They take (s, t, 0, 1), t = 0 at the picture's last row. Null: the texture's first
    /// row is the picture's first row. For the application's textures only.
    const float* sourceMatrix;
    int32_t rotation;  ///< Clockwise: 0, 90, 180 or 270 degrees. Comes after the source matrix.
    bool mirror;       ///< Swaps left and right of the picture, and of each sticker in itself.
    /// A new mask (see VERenderer.h): pixels of the size given at creation, or a texture, at most
    /// one of the two. Without one the last mask stays; a texture must exist as long. Before the
    /// first mask the whole picture shows. A texture is sampled with its own filters: with
    /// GL_LINEAR, an alpha that falls to 0 towards black gives soft edges.
    const void* mask;
    uint32_t maskTexture;
    bool hideMask;            ///< Draws without a mask, which is kept.
    const VEView* view;       ///< Null: the picture fits.
    uint32_t stickerTexture;  ///< A GL_TEXTURE_2D; 0: no stickers.
    /// Pairs x, y of output pixels, each the anchor of a sticker (see VERenderer.h).
    const int32_t* stickers;
    size_t stickerCount;  ///< Number of pairs.
} VEDrawOptions;

/// "No time": of a picture that has none.
#define VE_NO_TIME INT64_MIN

/// What was drawn.
typedef struct VEDrawn {
    size_t structSize;
    bool picture;     ///< A picture was drawn. False: there was none, the output is as before.
    bool newPicture;  ///< It is another one than in the call before.
    int64_t ptsUs;    ///< Its presentation time in µs: the unit's. VE_NO_TIME without a decoder.
} VEDrawn;

/// Draws the newest picture into the output.
///
/// A call without a raw frame draws the last one, or with VERendererOptions::drawOnce nothing. With
/// VERendererOptions::drawLater the first call draws nothing, the second draws the first frame, and
/// no frame is lost. Where nothing is drawn, the output stays as it is.
///
/// \param options null: all zero.
/// \param drawn   receives what was drawn; may be null.
VE_EXPORT VEResult VEDraw(VERenderer* renderer, const VEDrawOptions* options, VEDrawn* drawn);

/// VEUnit::flags.
enum {
    VE_UNIT_CONFIG = 2,  ///< Parameter sets only; gives no picture.
    VE_UNIT_END = 4,  ///< The stream ends with this unit, which may be empty. VEFlush comes next.
};

/// An access unit of compressed video.
typedef struct VEUnit {
    size_t structSize;
    const void* data;
    size_t size;     ///< In bytes.
    int64_t ptsUs;   ///< Presentation time in µs, within 292 years of 0.
    int64_t waitUs;  ///< How long to wait for room; 0: not at all.
    int32_t flags;   ///< VE_UNIT_…, or 0.
} VEUnit;

/// Hands a unit to the decoder, in decoding order.
///
/// \return VE_OK: queued, the unit was copied. VE_AGAIN: no room within the wait.
///         VE_ERROR_UNIT_SIZE: VEDecoderState::unitCapacity says what fits. VE_ERROR_DECODER,
///         VE_ERROR_RECLAIMED, VE_ERROR_PICTURE_SIZE: the decoder is no longer of use.
///         VE_ERROR_UNSUPPORTED: the source is no compressed video.
VE_EXPORT VEResult VEQueueUnit(VERenderer* renderer, const VEUnit* unit);

/// Drops all units and pictures in the decoder, for seeking. The next unit starts with a key frame.
/// Parameter sets need not be given again if a picture has come out since they were given. Draws
/// show no picture of before the flush for the first time: they may draw nothing until the next one
/// comes.
VE_EXPORT VEResult VEFlush(VERenderer* renderer);

/// How a decoder stands.
typedef struct VEDecoderState {
    size_t structSize;
    VEResult result;       ///< VE_OK: running. Else why it is no longer of use.
    int32_t platformCode;  ///< The platform's own code (media_status_t) of a failure, or 0.
    uint64_t unitsQueued;
    uint64_t unitsDropped;  ///< Refused by VEQueueUnit, at each try.
    uint64_t picturesDecoded;
    uint64_t picturesShown;  ///< Drawn as a new picture.
    size_t unitCapacity;     ///< Bytes that a unit may have; 0 until the first unit.
    int32_t width;           ///< Of the decoder's pictures with their padding; 0 until known.
    int32_t height;          ///< Likewise.
    int32_t cropLeft;        ///< The first column that shows.
    int32_t cropTop;         ///< The first row that shows.
    int32_t cropRight;       ///< The last column that shows.
    int32_t cropBottom;      ///< The last row that shows.
    bool endOfStream;        ///< The last picture has come out. A flush resets it.
} VEDecoderState;

/// \thread any.
VE_EXPORT VEResult VEGetDecoderState(VERenderer* renderer, VEDecoderState* state);

/// The Java objects of a renderer of compressed video, as jobject: global references of the
/// renderer, valid until it is closed.
///
/// \param surface        an android.view.Surface; may be null.
/// \param surfaceTexture an android.graphics.SurfaceTexture; may be null.
VE_EXPORT VEResult VEGetSurface(VERenderer* renderer, void** surface, void** surfaceTexture);

/// What became of the GL context.
typedef enum VEContext {
    VE_CONTEXT_CURRENT = 0,  ///< It is current: GL objects are deleted.
    VE_CONTEXT_LOST = 1,     ///< It is gone, and the objects with it: no GL call is made.
} VEContext;

/// Destroys a renderer, its thread and its decoder, as VEDestroyRenderer does with the context
/// current. The handle is then invalid.
///
/// \return VE_BUSY when a decoder call takes longer than closeWaitMs: the renderer is destroyed all
///         the same, and the decoder's thread ends by itself after that call.
VE_EXPORT VEResult VECloseRenderer(VERenderer* renderer, VEContext context);

/// \name Structs with their size set and all else zero.
/// @{
#define VE_MAKE_STRUCT(Type, Function)  \
    static inline Type Function(void) { \
        Type made;                      \
        memset(&made, 0, sizeof(made)); \
        made.structSize = sizeof(made); \
        return made;                    \
    }
VE_MAKE_STRUCT(VERendererOptions, VEMakeRendererOptions)
VE_MAKE_STRUCT(VEDrawOptions, VEMakeDrawOptions)
VE_MAKE_STRUCT(VEDrawn, VEMakeDrawn)
VE_MAKE_STRUCT(VEUnit, VEMakeUnit)
VE_MAKE_STRUCT(VEDecoderState, VEMakeDecoderState)
#undef VE_MAKE_STRUCT
/// @}

#ifdef __cplusplus
}  // extern "C"
#endif
