#pragma once

/// \file
/// The renderer draws video into a GL texture of the application: the *destination*. A *frame* is
/// what the application hands over, a *picture* is what is drawn. C can call all functions except
/// VEUpdateRendererWithSticker.
///
/// Lifecycle
/// ---------
///
///   1. Make an EGL context of OpenGL ES 3.0 or later current. Create the destination.
///   2. VECreateRendererHandle: one renderer for each stream of a fixed size.
///      **Destroying a renderer can break other renderers on the same context.** For several
///      renderers, or with framebuffers of your own, use VECreateRenderer and VECloseRenderer of
///      render/VERendererExt.h instead. The functions below work with those renderers, too.
///   3. For each displayed frame: VEUpdateRenderer or VEUpdateRendererWithSticker. Between frames,
///      at any time: VEUpdateUserPosition. For each compressed access unit: VEUpdateCompressedData.
///   4. VEDestroyRenderer, once, with the same context current. The handle is then invalid.
///
/// Threads
/// -------
///
/// All calls for one handle come from one thread, with the GL context of that handle current.
/// Handles on different contexts are independent and may be used on different threads. With raw
/// frames, no update waits for another thread. Compressed video uses a thread for each renderer
/// (see VECreateRendererHandleWithFormat and VEDestroyRenderer).
///
/// Ownership
/// ---------
///
/// The application owns textures, records, pixels and lists. The library reads records, pixels and
/// lists only during the call, and writes only into the destination.
///
/// VEDestroyRenderer deletes what the renderer created, except:
///
///     2 buffers            raw frames, from the update that creates their texture
///     2 buffers            output mode VE_OUTPUT_MASKED, likewise
///     1 buffer             if stickers were drawn while GL_ARRAY_BUFFER was still the buffer that
///                          creation bound. To avoid this, bind 0 after creation
///     2 shaders            from the first draw
///     texture 0xFFFFFFFF   from the first draw, output mode VE_OUTPUT_PICTURE
///     a decoder format     compressed video; stays in memory
///
/// The GL objects stay until the context is destroyed. VEDestroyRenderer deletes the *framebuffers*
/// that have the names of the first four buffers, whoever created them. A renderer that loses its
/// framebuffer draws nothing more: destroy it and create it again.
///
/// Results
/// -------
///
/// A function returns 0 when it is done, even if there was nothing to do. It returns -1 for a bad
/// argument and logs nothing then. GL errors are logged (Android log, priority INFO) and never
/// returned. When memory runs out, std::bad_alloc leaves the function. The call may be repeated. In
/// C code that is compiled without -fexceptions, the exception can end the process.

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

/// Values of VERendererMode::outputMode. With any other value nothing is drawn.
enum {
    VE_OUTPUT_PICTURE = 0,  ///< The picture, always in the view of a new renderer.
    VE_OUTPUT_MASKED = 1,   ///< The picture in the view that is set, cut out by a mask.
};

/// Values of VERendererMode::modeType.
enum {
    VE_MODE_H264 = 2,   ///< H.264 access units, decoded by the platform.
    VE_MODE_RGB = 3,    ///< Raw frames, 3 bytes a pixel.
    VE_MODE_NONE = 4,   ///< Accepted, and creates nothing.
    VE_MODE_RGBA = 5,   ///< Raw frames, 4 bytes a pixel.
    VE_MODE_MJPEG = 6,  ///< Motion-JPEG access units, decoded by the platform.
};

/// Values of VERendererMode::maskFormat. All values except VE_MASK_RGBA mean RGB.
enum {
    VE_MASK_RGB = 3,   ///< 3 bytes a pixel.
    VE_MASK_RGBA = 5,  ///< 4 bytes a pixel.
};

/// Formats of the destination. All values except VE_FORMAT_RGB mean RGBA.
enum {
    VE_FORMAT_RGB = 3,
    VE_FORMAT_RGBA = 4,
};

/// The kind of renderer to create. The library reads it during creation and does not keep it.
///
/// Sizes are in pixels, greater than 0 and at most GL_MAX_TEXTURE_SIZE. They are not checked. From
/// 2^32 bytes on, for example with 32768 × 32768 RGBA pixels, the byte count wraps, and GL reads
/// past the end of a block.
typedef struct VERendererMode {
    int32_t outputMode;     ///< VE_OUTPUT_PICTURE or VE_OUTPUT_MASKED.
    int32_t modeType;       ///< VE_MODE_…
    int32_t textureWidth;   ///< Width of the frames and of the destination.
    int32_t textureHeight;  ///< Height of the frames and of the destination.
    int32_t maskFormat;     ///< VE_MASK_RGB or VE_MASK_RGBA.
    int32_t maskWidth;      ///< Width of the masks, with VE_OUTPUT_MASKED.
    int32_t maskHeight;     ///< Height of the masks, with VE_OUTPUT_MASKED.
} VERendererMode;

/// Creates a renderer that draws into an RGBA destination.
/// \see VECreateRendererHandleWithFormat
VE_EXPORT int VECreateRendererHandle(void** handle, int textureId, VERendererMode* mode,
                                     void* javaVM);

/// Creates a renderer.
///
/// If GL lacks a function of OpenGL ES 3.0 or glBindVertexArrayOES, creation logs that and goes on.
/// This call or a later one then crashes. VECheckSource of render/VERendererExt.h finds out before.
///
/// A renderer of compressed video attaches the calling thread to the JVM, where it stays attached,
/// and starts a decoder thread. Results of Java and of the decoder are not checked: failures are
/// logged at most. A Java exception stays pending: check for one after this call and after updates,
/// before the next JNI call. If the platform has no decoder for the type, its functions get a null
/// decoder, and crash if they do not check it. Without a JVM the renderer draws nothing.
///
/// \param handle    receives the renderer; not null. It does not change if no renderer is created:
///                  set it to null before the call and test it afterwards.
/// \param textureId GL name of the destination, 0 or more.
/// \param format    format of the destination: VE_FORMAT_RGB or VE_FORMAT_RGBA.
/// \param javaVM    the JavaVM* of the process. Renderers of raw frames do not use it.
/// \return -1 if \p mode is null or \p textureId is negative, otherwise 0. It is 0 even for a
///         modeType that creates no renderer: VE_MODE_NONE, and all values outside 2 … 6.
VE_EXPORT int VECreateRendererHandleWithFormat(void** handle, int textureId, int format,
                                               VERendererMode* mode, void* javaVM);

/// Draws one frame, without stickers. The result stays in the destination: the library never
/// presents it.
///
/// **Latency.** A raw frame is drawn by the call after the one that brings it. The first calls only
/// create textures. Their frames and masks are never drawn:
///
///     call                         1         2                    3                    4
///     VE_OUTPUT_PICTURE   given    not used  2                    3                    4
///                         drawn    nothing   undefined contents   2                    3
///     VE_OUTPUT_MASKED    given    not used  not used             3                    4
///                         drawn    nothing   nothing              undefined contents   3
///
/// A call that draws nothing does not change the destination and does not allocate it. A call with
/// null data draws the frame that was given last. So, from the first call whose frame is used, two
/// calls show a frame at once: one with its pixels, one with null. Masks behave like frames.
///
/// With compressed video, each call draws the newest picture from the decoder. Before the decoder's
/// first picture, undefined contents are drawn. With VE_OUTPUT_MASKED, the first call draws nothing
/// and its mask is not used; every later mask is drawn one call late, the first draw has an
/// undefined one.
///
/// **Pixels.** Frames and masks are rows of width pixels without padding, first row first, with 3
/// bytes a pixel (R, G, B) or 4 (R, G, B, A). The library reads width × height pixels. The rows
/// must fit the unpack alignment of GL, which is 4 unless the application changes it: for RGB rows
/// whose width is not a multiple of 4, call glPixelStorei(GL_UNPACK_ALIGNMENT, 1) before. Otherwise
/// GL reads past the end of the block or refuses the upload.
///
/// The first row of a frame becomes the first row of the destination, which glReadPixels returns
/// first and which GL samples at t = 0. A program that draws the destination with y upwards, as is
/// usual in GL, shows that row at the bottom. Raw frames are sampled with nearest filtering and
/// decoded pictures with linear filtering.
///
/// **Mask.** With VE_OUTPUT_MASKED, the mask is stretched over the picture with nearest filtering.
/// Where its red, green and blue are all 0, the result is the color (169, 210, 216) with alpha 0.
/// Elsewhere it is the color of the picture with the alpha of the mask, which is 255 for an RGB
/// mask. The result is not premultiplied.
///
/// \param data        the pixels of the frame, or null. Ignored with compressed video.
/// \param size        ignored: the sizes of the creation record apply.
/// \param colorMirror true draws the frame as it is. false swaps left and right of the picture, and
///                    of the image of each sticker; the mask and the positions of stickers stay.
/// \param maskData    the pixels of the mask, or null. Ignored with VE_OUTPUT_PICTURE.
/// \return -1 if \p handle is null, otherwise 0.
VE_EXPORT int VEUpdateRenderer(void* handle, void* data, unsigned int size, bool colorMirror,
                               void* maskData);

#ifdef __cplusplus
/// Draws one frame and a sticker at each position of a list, in the order of the list.
///
/// A sticker replaces the pixels below it, alpha included: nothing is blended. A position (x, y) is
/// the anchor of the sticker, a pixel of the output counted from the first row and column. The
/// sticker is drawn above its anchor. In the view in which the picture just fills the output:
///
///          first row of the output
///        ┌───────────────────────────────┐      width: 5 % of the output's width, centered on the
///        │         ┌──────┐ ─┬─          │      anchor's column.
///        │         │last  │  │ 10 %      │      height: 10 % of the output's height. The sticker
///        │         │row   │  │           │      ends another 10 % before the anchor's row.
///        │         │first │ ─┴─          │
///        │         └──────┘  │ 10 %      │      The first row of the sticker texture is drawn
///        │            +     ─┴─          │      nearest to the anchor. To see an image upright,
///        │         (x, y)                │      upload its last row first.
///        └───────────────────────────────┘
///
/// Every other view moves and scales stickers together with the picture. In the units of
/// VEUpdateUserPosition, with halfW = width / 2 and halfH = height / 2 rounded down, a sticker
/// covers
///
///     px = (x - halfW) / halfW - 0.05 … + 0.05        py = (y - halfH) / halfH - 0.4 … - 0.2
///
/// If the width or the height is 1, its half is 0 and the place is infinite or NaN: give no
/// stickers.
///
/// \param stickerTexture GL name of a GL_TEXTURE_2D, or a negative number for no stickers.
/// \param stickers       positions, in or outside the picture. (-1, -1) skips its sticker. The
///                       library does not modify the list.
///
/// The other arguments and the result are those of VEUpdateRenderer.
VE_EXPORT int VEUpdateRendererWithSticker(void* handle, void* data, unsigned int size,
                                          bool colorMirror, void* maskData, int stickerTexture,
                                          std::vector<std::pair<int, int>>& stickers);
#endif

/// Hands one access unit to the decoder. Renderers of raw frames ignore it.
///
/// For H.264 a unit has start codes, and the parameter sets come before the first key frame. For
/// Motion-JPEG it is one JPEG image. Units come in decoding order and without time stamps; pictures
/// are drawn in the order in which the decoder gives them out. Some decoders take several units
/// before they give out the first picture. Of several new pictures an update draws the newest.
///
/// The call waits up to 2 ms for a free input buffer of the decoder. If there is none, the unit is
/// dropped without a message: hand over units at the pace of the video. A unit that is larger than
/// the buffer is written past its end. The platform chooses the size of the buffer: Android from
/// the width and height of the creation record; platform/linux takes 1 MiB, or width × height × 3
/// if that is more.
///
/// A picture of another size than textureWidth × textureHeight is stretched. Its crop and rotation
/// are ignored: padding of the decoder shows at the right and the lower edge.
///
/// \param data the unit. The decoder gets a copy. Null does nothing.
/// \param size in bytes. 0 or less does nothing.
/// \return -1 if \p handle is null, otherwise 0, even if the unit was dropped.
VE_EXPORT int VEUpdateCompressedData(void* handle, void* data, int size);

/// Moves the camera for the draws that follow. Has an effect only with VE_OUTPUT_MASKED.
///
/// The picture is the square [-1, 1] × [-1, 1] in the plane z = 0. x points to the right and y from
/// the first row to the last. The camera stands at (a, 0, 3 - c / 2) and looks straight at this
/// plane. s is the size of the picture divided by the size of the output, in both directions:
///
///     zoom c            0       1.4003   2       4       5.8 … 6.2   8
///     distance d        3       2.2998   2       1                   -1   = 3 - c / 2
///     s                 0.767   1        1.150   2.300   nothing     2.300, from behind
///                                                                    = 2.2998426 / |d|
///
/// At zoom 1.4003148 the picture just fills the output. At less, the clear color shows around it.
/// The picture is visible at distances from 0.1 to 100. Only the clear color is drawn at zooms from
/// 5.8 to 6.2, below -194 and above 206. A point (px, py) of the square appears at the output pixel
///
///     X = width  / 2 × (1 + s × (px - a))       with zooms below 5.8
///     X = width  / 2 × (1 - s × (px - a))       with zooms above 6.2: left and right are swapped
///     Y = height / 2 × (1 + s × py)             counted from the first row
///
/// \param a x of the camera, in halves of the picture's width. A positive value moves the picture
///          to the left with zooms below 5.8, and to the right with zooms above 6.2.
/// \param b ignored: the camera does not move up or down.
/// \param c zoom. A new renderer has a = 0 and zoom 2.
/// \param d ignored.
/// \return -1 if \p handle is null, otherwise 0.
VE_EXPORT int VEUpdateUserPosition(void* handle, float a, float b, float c, float d);

/// Destroys a renderer (see Ownership for what stays). Null does nothing. The GL context of the
/// renderer must be current.
///
/// With compressed video, this waits at most 50 ms for a decoder call in progress, and deletes the
/// decoder. If the call takes longer, a line is logged, and the decoder thread deletes the decoder
/// after it. The end of the decoder thread is not waited for: keep the library loaded for some
/// milliseconds, and until such a call has returned.
VE_EXPORT void VEDestroyRenderer(void* handle);

#ifdef __cplusplus
}  // extern "C"
#endif

/// \page gl_state GL state
///
/// The calls need this state:
///
///     GL_PIXEL_UNPACK_BUFFER      0 at each update up to the first that draws. Otherwise the
///                                 destination may stay black for the renderer's life. A renderer
///                                 can leave its buffer bound (see below): bind 0 before the first
///                                 updates of another one
///     other unpack state          an alignment that fits the rows; row length, skipped rows and
///                                 skipped pixels 0
///     sampler objects             none on texture units 0, 1 and 2
///     color mask                  all channels are written
///     GL_RASTERIZER_DISCARD       disabled; no transform feedback is active
///     clear color                 the background around the picture
///     destination                 a name from glGenTextures, not immutable storage. The first draw
///                                 allocates it, discards its contents, and sets its wrap modes to
///                                 GL_CLAMP_TO_EDGE and its filters to GL_LINEAR_MIPMAP_LINEAR and
///                                 GL_LINEAR. It has no mipmaps: to sample it, set another
///                                 minification filter after that
///     sticker texture             a complete GL_TEXTURE_2D; its filters are used
///
/// The calls change this state. A test compares the table with GL. Rows apply in their order.
///
///     call: creation, prepare (an update that only creates textures), draw (one that draws)
///     if:   raw, compressed, masked: the kind of renderer; stickers: with a sticker texture
///           frame, mask: with pixels; pending-frame, pending-mask: null completes an upload
///     own:  an object of the renderer
///
///     call      if             state                                             is then
///     -----------------------------------------------------------------------------------------
///     creation                 GL_VERTEX_ARRAY_BINDING                           0
///     creation                 GL_VERTEX_ATTRIB_ARRAY_ENABLED 0-8, array 0       0
///     creation                 GL_ARRAY_BUFFER_BINDING                           own
///     creation  compressed     GL_TEXTURE_BINDING_EXTERNAL_OES, active unit      0
///     prepare                  GL_TEXTURE_BINDING_2D, active unit                0
///     prepare   compressed     GL_TEXTURE_BINDING_EXTERNAL_OES, active unit      own
///     draw                     GL_CURRENT_PROGRAM                                0
///     draw                     GL_ELEMENT_ARRAY_BUFFER_BINDING, bound array      0
///     draw                     GL_VERTEX_ARRAY_BINDING                           0
///     draw      stickers       GL_VERTEX_ATTRIB_ARRAY_ENABLED 0-8, array 0       0
///     draw                     GL_DRAW_FRAMEBUFFER_BINDING                       0
///     draw                     GL_READ_FRAMEBUFFER_BINDING                       0
///     draw                     GL_VIEWPORT                                       0 0 width height
///     draw                     GL_STENCIL_TEST                                   0
///     draw                     blending, draw buffers 1 and up                   as buffer 0
///     draw      raw            GL_TEXTURE_BINDING_2D, active unit                0
///     draw      masked         GL_TEXTURE_BINDING_2D, active unit                0
///     draw      compressed     GL_TEXTURE_BINDING_EXTERNAL_OES, active unit      own
///     draw      raw            GL_TEXTURE_BINDING_2D, unit 0                     own
///     draw      compressed     GL_TEXTURE_BINDING_EXTERNAL_OES, unit 0           own
///     draw                     GL_TEXTURE_BINDING_2D, unit 1                     0
///     draw                     GL_ACTIVE_TEXTURE                                 GL_TEXTURE1
///     draw      stickers       GL_TEXTURE_BINDING_2D, unit 1                     0xFFFFFFFF
///     draw      masked stickers  GL_TEXTURE_BINDING_2D, unit 1                   own
///     draw      stickers       GL_TEXTURE_BINDING_2D, unit 2                     0
///     draw      stickers       GL_ACTIVE_TEXTURE                                 GL_TEXTURE2
///     draw      pending-frame  GL_PIXEL_UNPACK_BUFFER_BINDING                    own
///     draw      raw frame      GL_PIXEL_UNPACK_BUFFER_BINDING                    0
///     draw      pending-mask   GL_PIXEL_UNPACK_BUFFER_BINDING                    own
///     draw      masked mask    GL_PIXEL_UNPACK_BUFFER_BINDING                    0
///
/// "Active unit" and "bound array" are those at the call. A draw also reads and clears the error
/// flags, and an active query counts what it draws. VEDestroyRenderer deletes objects, which sets
/// bindings to them to 0; if the renderer never drew, GL_INVALID_VALUE is then in the error flags.
/// VEUpdateUserPosition and VEUpdateCompressedData make no GL call.
