#pragma once

/// \file
/// The renderer: draws video, raw frames or compressed units, into a GL texture of the
/// application's.
///
/// Usable from C, but for VEUpdateRendererWithSticker, which takes a C++ vector.
///
/// Lifecycle
/// ---------
///
///   1. Make an EGL context of OpenGL ES 3.0 or later current, and a GL texture: the destination.
///   2. VECreateRendererHandle: one renderer per stream of a fixed size. It copies what it needs
///      from the creation record and keeps the texture's name.
///   3. For each displayed frame: VEUpdateRenderer or VEUpdateRendererWithSticker.
///      Between frames, at any time: VEUpdateUserPosition; with compressed video, as units arrive:
///      VEUpdateCompressedData.
///   4. VEDestroyRenderer, once, with the same context current. The handle is then invalid.
///
/// The library never presents anything: the result stays in the destination texture.
///
/// Threads
/// -------
///
/// All calls for one handle come from one thread, the one with the handle's GL context current.
/// Handles on different contexts are independent and may be used on different threads. With raw
/// frames no call takes a lock or waits for another thread.
///
/// A renderer of compressed video attaches the thread that creates it to the Java VM, and leaves it
/// attached. A thread of its own hands decoded pictures on. VEDestroyRenderer tells that thread to
/// end and does not wait for the end; it waits up to 50 ms for a decoder call under way. A longer
/// call is logged, and the thread deletes the decoder after it. Do not unload the library within
/// some milliseconds after VEDestroyRenderer, or before such a call returns.
///
/// Ownership
/// ---------
///
/// The destination and sticker textures, the creation record, the pixels and the sticker list are
/// the application's; the library never deletes them and never writes to memory of theirs. Pixels
/// and stickers are read during the call only. Everything a renderer makes it deletes in
/// VEDestroyRenderer, but for its two (with a mask four) pixel-unpack buffers and the two shaders
/// of its program: those live as long as the context. The names of the pixel-unpack buffers are
/// deleted *as framebuffers*: an application that keeps framebuffer objects of its own beyond
/// VEDestroyRenderer must make them anew afterwards, since any that shares such a name is gone.
///
/// Results and failures
/// --------------------
///
/// 0: done, also where there was nothing to do. -1: bad argument, nothing was done, nothing logged.
/// GL errors below the interface are logged (Android log, priority INFO) and never returned. When
/// memory runs out, std::bad_alloc passes through.
///
/// Whether the platform has a decoder is not checked: without one the platform's functions get a
/// null decoder, and crash if they do not check it either. render/VERendererExt.h is the guarded
/// way: it checks every result and returns the reason. A decoder that fails is asked for pictures
/// once a millisecond.
///
/// Failures of Java and of the decoder are logged at most. Java exceptions stay pending: look for
/// them after creation and updates, or at least before the next JNI calls. Without a Java VM a
/// renderer of compressed video is created all the same, and draws nothing.
///
/// Pixels
/// ------
///
/// Frames and masks are tightly packed rows, first row first, 3 bytes a pixel (R, G, B) or 4 (R, G,
/// B, A), exactly width × height pixels, with no padding: a block that is smaller is read past its
/// end. The first row of a frame becomes the first row of the destination, which glReadPixels
/// returns first and GL samples at t = 0. As elsewhere in GL, what is drawn over the destination
/// with y upwards sees that row at the bottom.
///
/// The unpack alignment is the application's. GL's default of 4 suits rows of a multiple of 4
/// bytes: all RGBA frames, and RGB frames whose width is a multiple of 4. For any other RGB width,
/// of frame or mask, set glPixelStorei(GL_UNPACK_ALIGNMENT, 1) before the update calls; otherwise
/// GL reads beyond the block or refuses the upload.
///
/// Latency
/// -------
///
/// Uploads go through two buffers in turn and arrive in the source texture one call later. With
/// frames 1, 2, 3 …:
///
///     call                    1              2                    3         4
///     output mode 0   given   1 (not used)   2                    3         4
///                     drawn   nothing        undefined contents   2         3
///     output mode 1   given   1 (not used)   2 (not used)         3         4
///                     drawn   nothing        nothing              undefined 3
///
/// A call that draws nothing leaves the destination untouched, not even allocated. A call with null
/// data completes the pending upload and draws it: to see frame n at once, call once with its
/// pixels and once with null. The mask takes the same path and has the same latency.
///
/// Compressed video draws the picture that the decoder delivered last, at once; before the first
/// one the contents are undefined. How long the decoder holds pictures back is its own affair. Of
/// pictures that come faster than they are drawn, all but the newest are dropped. Only the mask is
/// drawn one call later than given. In output mode 1 the first call makes its texture and draws
/// nothing.
///
/// Compressed video
/// ----------------
///
/// One access unit a call: H.264 with start codes, the parameter sets in front of the first key
/// frame; or one JPEG picture. Units come in decoding order, and without time stamps: pictures are
/// shown as the decoder gives them out, in display order.
///
/// A unit must not be larger than the decoder's input buffers, which nothing here checks. The size
/// is the platform's choice: Android's decoders derive it from the creation record's width and
/// height; the one in platform/linux takes 1 MiB, or a raw frame of 3 bytes a pixel where that is
/// more. A unit waits up to 2 ms for a free buffer and is dropped where there is none: feed
/// them at the video's pace.
///
/// Pictures of another size than textureWidth × textureHeight are stretched to it. They are sampled
/// smoothly (raw frames are not).
///
/// View
/// ----
///
/// The picture lies on the square [-1, 1] × [-1, 1] in the plane z = 0, x to the right and y from
/// the first row to the last, and is seen by a camera on the z axis with a vertical field of view
/// of 47 degrees, whatever the output's proportions:
///
///                     zoom   0     1.4003    2       4       6       8
///                 distance   3     2.2998    2       1       0      -1    = 3 - zoom / 2
///      picture : frame, s   0.767   1      1.150   2.300   (nothing) 2.300, from behind
///
/// s = 2.2998426 / |distance| is the size of the picture against the frame. A fresh renderer stands
/// at zoom 2: it crops the picture by a factor of 1.15. At zoom 1.4003148 the picture's edges meet
/// the frame's; below, the clear colour shows around it. At exactly 6 nothing but the clear colour
/// is drawn; above 6 the camera stands behind the picture, which appears with left and right
/// swapped.
///
/// A point (px, py) of the square appears at the output pixel, seen at x = view x,
///
///     X = width  / 2 × (1 + s × (px - x))      py, Y: from the first row on
///     Y = height / 2 × (1 + s × py)
///
/// Mirroring
/// ---------
///
/// colorMirror true draws the frame as it is given. false, the other way round from what the name
/// says, swaps the picture's left and right (and each sticker's image in itself; not the positions
/// of stickers, and never the mask).
///
/// Mask
/// ----
///
/// In output mode 1 every pixel of the mask is a key for the picture's pixel at the same place:
/// red, green and blue all 0 give the fixed colour (169, 210, 216) with alpha 0; anything else
/// gives the picture's colour with the mask's alpha (255 where the mask has none). The mask has its
/// own size and is stretched over the picture without smoothing. Alpha is not premultiplied.
///
/// Stickers
/// --------
///
/// A sticker is drawn for each (x, y) of the list, in list order, later ones over earlier ones. It
/// replaces the picture's pixels, its alpha included: nothing is blended. A position is an anchor
/// in output pixels counted from the first row and column; the sticker does not cover it:
///
///          first row of the output
///        ┌───────────────────────────────┐      Sizes are parts of the output's, at s = 1:
///        │         ┌──────┐ ─┬─          │      the sticker is 5 % of the width wide and
///        │         │last  │  │ 10 %      │      10 % of the height high, centred on the
///        │         │row   │  │           │      anchor's column, and ends 10 % of the height
///        │         │first │ ─┴─          │      before the anchor's row.
///        │         └──────┘  │ 10 %      │      The first row of the sticker texture lands
///        │            +     ─┴─          │      nearest to the anchor: upload an image last row
///        │         (x, y)                │      first to see it upright above the anchor.
///        └───────────────────────────────┘
///
/// The view moves and scales stickers with the picture, anchor and offset alike: in the square's
/// units, with halfW = width / 2 and halfH = height / 2 rounded down, the sticker covers
///
///     px = (x - halfW) / halfW - 0.05 … + 0.05        py = (y - halfH) / halfH - 0.4 … - 0.2
///
/// Any pair but (-1, -1), which skips its sticker, is a position, also one outside the picture.
///
/// GL state
/// --------
///
/// Required of the application when it calls, besides a current context:
///
///     unpack alignment                      fits the rows (see Pixels); all other GL_UNPACK_* at 0
///     GL_PIXEL_UNPACK_BUFFER                0 at the call that draws first
///     sampler objects                       none on texture units 0, 1 and 2
///     colour mask, rasterizer discard       all channels written, not discarded
///     transform feedback                    not active
///     clear colour                          the background around the picture: set it
///     destination texture                   a name from glGenTextures without immutable storage;
///                                           the first draw allocates it anew, contents lost
///     sticker texture                       a complete GL_TEXTURE_2D; its filters are used
///
/// What VEUpdateRenderer and VEUpdateRendererWithSticker do when they draw:
///
///     saved and restored   GL_BLEND, blend function and equation; GL_SCISSOR_TEST, scissor box;
///                          GL_DEPTH_TEST, depth function and mask; GL_CULL_FACE;
///                          GL_ARRAY_BUFFER binding
///     reset to 0           vertex array, program, draw and read framebuffer,
///                          GL_TEXTURE_2D on the unit left active;
///                          but with compressed video in output mode 0 as they were:
///                          GL_PIXEL_UNPACK_BUFFER (see also below), GL_TEXTURE_2D on the unit
///                          active at the call
///     changed              active unit: GL_TEXTURE1, or GL_TEXTURE2 with a sticker texture
///                          unit 0: the renderer's source texture stays bound; with compressed
///                          video to GL_TEXTURE_EXTERNAL_OES
///                          GL_TEXTURE_EXTERNAL_OES on the unit active at the call, with
///                          compressed video: the renderer's source texture
///                          unit 1: with a sticker texture, the mask texture stays bound (without a
///                          mask: the name 0xFFFFFFFF)
///                          viewport: (0, 0, width, height)
///                          GL_STENCIL_TEST: disabled
///                          error flags: read and cleared, the application's earlier ones too
///                          index buffer of the vertex array bound at the call: 0
///                          attributes 0 to 8 of vertex array 0: disabled, if stickers are drawn
///     the first draw       sets the destination's filters to GL_LINEAR_MIPMAP_LINEAR and GL_LINEAR
///                          and its wrap modes to GL_CLAMP_TO_EDGE. It has no mipmaps: set a
///                          minification filter of your own, after this draw, to sample it
///
/// With raw frames, and null data while an upload was pending, GL_PIXEL_UNPACK_BUFFER stays on the
/// renderer's buffer (not so in output mode 1 if mask data was given): unbind it before uploads of
/// your own.
///
/// The other calls:
///
///     creation             leaves vertex array 0 bound with attributes 0 to 8 disabled, a
///                          buffer of the renderer's bound to GL_ARRAY_BUFFER, and for compressed
///                          video 0 to GL_TEXTURE_EXTERNAL_OES on the active unit
///     updates that only    leave GL_TEXTURE_2D on the active unit and GL_PIXEL_UNPACK_BUFFER at 0
///     create textures
///     user position and    make no GL call
///     compressed data
///     VEDestroyRenderer    deletes objects, so bindings to them fall to 0; see Ownership. After a
///                          renderer that never drew GL_INVALID_VALUE is in the error flags

#include <stdint.h>

#include "render/VEExport.h"

#ifdef __cplusplus
#include <utility>
#include <vector>

#include "render/VEStickerList.h"

extern "C" {
#else
#include <stdbool.h>
#endif

/// Values of VERendererMode::outputMode. Any other draws nothing.
enum {
    VE_OUTPUT_PICTURE = 0,  ///< The picture; the view stays as it starts.
    VE_OUTPUT_MASKED = 1,   ///< The picture keyed by a mask that comes with every update.
};

/// Values of VERendererMode::modeType.
enum {
    VE_MODE_H264 = 2,   ///< H.264 access units, decoded by the platform.
    VE_MODE_RGB = 3,    ///< Raw frames, 3 bytes a pixel.
    VE_MODE_NONE = 4,   ///< Accepted, and creates nothing.
    VE_MODE_RGBA = 5,   ///< Raw frames, 4 bytes a pixel.
    VE_MODE_MJPEG = 6,  ///< Motion-JPEG access units, decoded by the platform.
};

/// Values of VERendererMode::maskFormat. Any other value but VE_MASK_RGBA means RGB too.
enum {
    VE_MASK_RGB = 3,   ///< 3 bytes a pixel.
    VE_MASK_RGBA = 5,  ///< 4 bytes a pixel.
};

/// Formats of the destination. Any other value but VE_FORMAT_RGB means RGBA too.
enum {
    VE_FORMAT_RGB = 3,
    VE_FORMAT_RGBA = 4,
};

/// What kind of renderer to create. Only read, and not kept.
/// Sizes are in pixels, positive, and within GL_MAX_TEXTURE_SIZE; none is checked.
typedef struct VERendererMode {
    int32_t outputMode;     ///< VE_OUTPUT_PICTURE or VE_OUTPUT_MASKED.
    int32_t modeType;       ///< VE_MODE_…
    int32_t textureWidth;   ///< Of the frames and of the destination.
    int32_t textureHeight;  ///< Likewise.
    int32_t maskFormat;     ///< VE_MASK_RGB or VE_MASK_RGBA.
    int32_t maskWidth;      ///< Of the mask frames, in output mode VE_OUTPUT_MASKED.
    int32_t maskHeight;     ///< Likewise.
} VERendererMode;

/// Creates a renderer that draws into an RGBA destination.
/// \see VECreateRendererHandleWithFormat
VE_EXPORT int VECreateRendererHandle(void** handle, int textureId, VERendererMode* mode,
                                     void* javaVM);

/// Creates a renderer.
///
/// \param handle    receives the renderer; not null. Untouched when none is created, so set it to
///                  null before the call and test it afterwards.
/// \param textureId GL name of the destination texture, 0 or more.
/// \param format    of the destination: VE_FORMAT_RGB or VE_FORMAT_RGBA.
/// \param javaVM    the process's JavaVM*; not used by renderers of raw frames, may be null there.
/// \return -1 when \p mode is null or \p textureId is negative. 0 otherwise, also for a modeType
///         that creates nothing: VE_MODE_NONE, and any outside 2 … 6.
VE_EXPORT int VECreateRendererHandleWithFormat(void** handle, int textureId, int format,
                                               VERendererMode* mode, void* javaVM);

/// Draws one frame, without stickers.
///
/// \param data        the frame's pixels; null to draw the frame given last (see Latency). Ignored
///                    with compressed video.
/// \param size        accepted and ignored: the sizes of the creation record hold.
/// \param colorMirror true for the picture as given, false for left and right swapped.
/// \param maskData    the mask's pixels, in output mode VE_OUTPUT_MASKED, or null; else ignored.
/// \return -1 when \p handle is null, otherwise 0.
VE_EXPORT int VEUpdateRenderer(void* handle, void* data, unsigned int size, bool colorMirror,
                               void* maskData);

#ifdef __cplusplus
/// Draws one frame and a sticker at each position of a list.
///
/// \param stickerTexture GL name of a GL_TEXTURE_2D; negative for no stickers.
/// \param stickers       positions (see Stickers), not modified; must not change during the call.
/// The other arguments and the result are those of VEUpdateRenderer.
VE_EXPORT int VEUpdateRendererWithSticker(void* handle, void* data, unsigned int size,
                                          bool colorMirror, void* maskData, int stickerTexture,
                                          std::vector<std::pair<int, int>>& stickers);
#endif

/// Hands a compressed access unit to the decoder (see Compressed video). Renderers of raw frames
/// ignore it.
///
/// \param data the unit; copied. Null does nothing.
/// \param size in bytes, at most what the decoder's input buffers hold; 0 or less does nothing.
/// \return -1 when \p handle is null, otherwise 0, which says nothing about the unit.
VE_EXPORT int VEUpdateCompressedData(void* handle, void* data, int size);

/// Moves the view (see View), from the next drawn frame on.
///
/// Acts in output mode VE_OUTPUT_MASKED only; in other modes the view stays as it is.
/// \param a camera x, in units of the picture's half width: positive moves the picture to the left.
/// \param b ignored: the view has no vertical movement.
/// \param c zoom; 2 at the start.
/// \param d ignored.
/// \return -1 when \p handle is null, otherwise 0.
VE_EXPORT int VEUpdateUserPosition(void* handle, float a, float b, float c, float d);

/// Destroys a renderer; null is allowed. Needs the renderer's GL context current.
VE_EXPORT void VEDestroyRenderer(void* handle);

#ifdef __cplusplus
}  // extern "C"
#endif
