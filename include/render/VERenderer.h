#pragma once

/// \file
/// The renderer draws video into a GL texture of the application. The video comes as raw frames or
/// as compressed access units.
///
/// C can call all functions except VEUpdateRendererWithSticker, which takes a C++ vector.
///
/// Here a *frame* is what the application hands over, and a *picture* is what is drawn. The
/// *destination* is the texture that the renderer draws into.
///
/// Lifecycle
/// ---------
///
///   1. Make an EGL context of OpenGL ES 3.0 or later current, and create a GL texture: the
///      destination.
///   2. VECreateRendererHandle: one renderer for each stream of a fixed size. The renderer copies
///      what it needs from the creation record and keeps the name of the texture.
///   3. For each displayed frame: VEUpdateRenderer or VEUpdateRendererWithSticker.
///      At any time between frames: VEUpdateUserPosition.
///      With compressed video, for each access unit: VEUpdateCompressedData.
///   4. VEDestroyRenderer, once, with the same context current. The handle is then invalid.
///
/// The library never presents a picture: the result stays in the destination.
///
/// Threads
/// -------
///
/// All calls for one handle come from one thread, with the GL context of that handle current.
/// Handles on different contexts are independent and may be used on different threads. With raw
/// frames, no call takes a lock or waits for another thread.
///
/// Creating a renderer of compressed video attaches the calling thread to the JVM. The thread stays
/// attached. The renderer starts a decoder thread, which passes decoded pictures on.
/// VEDestroyRenderer asks that thread to stop and does not wait until it has stopped. It waits at
/// most 50 ms for a call of the decoder that is in progress. If that call takes longer, a line is
/// logged, and the decoder thread deletes the decoder afterwards. Keep the library loaded for some
/// milliseconds after VEDestroyRenderer, and until such a call has returned.
///
/// Ownership
/// ---------
///
/// The application owns the textures, the creation record, the pixels and the sticker list. The
/// library never deletes them and never writes to them, except that it draws into the destination.
/// It reads pixels and stickers only during the call.
///
/// VEDestroyRenderer deletes what the renderer created. Three things stay:
///
///   - The pixel-unpack buffers stay until the context is destroyed: two for raw frames and,
///     in output mode 1, two for masks. The library deletes *framebuffers* of the same names
///     instead. Framebuffers of the application that have one of these names are deleted, too:
///     create yours again afterwards.
///   - The two shaders of the renderer's program stay until the context is destroyed.
///   - With compressed video, a small format object of the decoder stays in memory.
///
/// Results and failures
/// --------------------
///
/// A function returns 0 when it is done, even if there was nothing to do. It returns -1 for a bad
/// argument: then it did nothing and logged nothing. GL errors are logged (Android log, priority
/// INFO) and never returned. When memory runs out, std::bad_alloc leaves the function.
///
/// With compressed video, results of Java and of the decoder are not checked. Failures are logged
/// at most. If there is no decoder for the type, the platform's functions get a null decoder, and
/// crash if they do not check it. render/VERendererExt.h is the guarded way: it checks every result
/// and returns the reason. A decoder that fails is asked for pictures once a millisecond.
///
/// Java exceptions stay pending: check for them after creation and after updates, before the next
/// JNI call. Without a JVM, a renderer of compressed video is created and draws nothing.
///
/// Pixels
/// ------
///
/// Frames and masks are rows of width pixels without padding, first row first, with 3 bytes a pixel
/// (R, G, B) or 4 (R, G, B, A). There must be exactly width × height pixels: the library reads
/// that many, whatever the size argument says.
///
/// The first row of a frame becomes the first row of the destination, which glReadPixels returns
/// first and which GL samples at t = 0. A program that draws the destination with y upwards, as is
/// usual in GL, shows that row at the bottom.
///
/// The unpack alignment is the application's. The default of 4 suits rows whose length is a
/// multiple of 4 bytes: all RGBA frames, and RGB frames whose width is a multiple of 4. For other
/// RGB frames or masks, call glPixelStorei(GL_UNPACK_ALIGNMENT, 1) before the update. Otherwise GL
/// reads past the end of the block or refuses the upload.
///
/// Latency
/// -------
///
/// An uploaded frame reaches the source texture at the next call. With frames 1, 2, 3 …:
///
///     call                    1              2                    3         4
///     output mode 0   given   1 (not used)   2                    3         4
///                     drawn   nothing        undefined contents   2         3
///     output mode 1   given   1 (not used)   2 (not used)         3         4
///                     drawn   nothing        nothing              undefined 3
///
/// A call that draws nothing does not change the destination and does not allocate it. A call with
/// null data completes the pending upload and draws it: to see a frame at once, call once with its
/// pixels and once with null. The mask has the same latency as the frame.
///
/// With compressed video, each call draws the picture that the decoder delivered last. Before the
/// first one, the contents are undefined. How many pictures the decoder holds back depends on the
/// decoder and on the stream. If pictures come faster than they are drawn, only the newest is
/// drawn. In output mode 1 the first call only creates the mask's texture and draws nothing, and
/// the second draws with an undefined mask: a mask is drawn at the call after the one that got it.
///
/// Compressed video
/// ----------------
///
/// Each call takes one access unit. For H.264 that is an access unit with start codes; the
/// parameter sets come before the first key frame. For Motion-JPEG it is one JPEG image. Units come
/// in decoding order and without time stamps. Pictures are shown in the order in which the decoder
/// gives them out.
///
/// A unit must fit into an input buffer of the decoder: the library does not check that. The
/// platform chooses the size. Android's decoders derive it from the width and height of the
/// creation record. The decoder of platform/linux takes 1 MiB, or a raw frame of 3 bytes a pixel if
/// that is more. A unit waits up to 2 ms for a free buffer and is dropped if there is none, so feed
/// units at the pace of the video.
///
/// A picture whose size is not textureWidth × textureHeight is stretched to it. Its crop and
/// rotation are ignored, so padding of the decoder shows at the right and the lower edge. Decoded
/// pictures are sampled with linear filtering, raw frames with nearest filtering.
///
/// View
/// ----
///
/// The picture lies on the square [-1, 1] × [-1, 1] in the plane z = 0. x points to the right, and
/// y from the first row to the last. The camera stands on the z axis. Its vertical field of view is
/// 47 degrees. Whatever the proportions of the output, the square fills its width and its height
/// alike:
///
///                     zoom   0     1.4003    2       4       6       8
///                 distance   3     2.2998    2       1       0      -1    = 3 - zoom / 2
///     picture : output, s   0.767   1      1.150   2.300   (nothing) 2.300, from behind
///
/// s = 2.2998426 / |distance| is the size of the picture divided by the size of the output. A new
/// renderer has zoom 2, which crops the picture by a factor of 1.15. At zoom 1.4003148 the picture
/// just fills the output; at less, the clear color shows around it. At exactly 6 only the clear
/// color is drawn. Above 6 the camera stands behind the picture, and left and right are swapped.
///
/// With the camera at x = view x, a point (px, py) of the square appears at the output pixel
///
///     X = width  / 2 × (1 + s × (px - x))
///     Y = height / 2 × (1 + s × py)             counted from the first row
///
/// Mirroring
/// ---------
///
/// colorMirror true draws the frame as it is. false swaps left and right of the picture, and of the
/// image of each sticker. The positions of stickers and the mask stay as they are.
///
/// Mask
/// ----
///
/// In output mode 1, each pixel of the mask decides about the pixel of the picture at the same
/// place. Where red, green and blue of the mask are all 0, the result is the fixed color
/// (169, 210, 216) with alpha 0. Elsewhere it is the color of the picture with the alpha of the
/// mask, which is 255 for an RGB mask. The mask can have any size. It is stretched over the
/// picture with nearest filtering. The result is not premultiplied.
///
/// Stickers
/// --------
///
/// The sticker texture is drawn once for each (x, y) of the list, in the order of the list. A
/// sticker replaces the pixels below it, alpha included: nothing is blended. (x, y) is the anchor
/// of the sticker: a pixel of the output, counted from the first row and column. The sticker is
/// drawn at a distance from its anchor:
///
///          first row of the output
///        ┌───────────────────────────────┐      At s = 1, in parts of the output's size:
///        │         ┌──────┐ ─┬─          │      The sticker is 5 % of the width wide and 10 %
///        │         │last  │  │ 10 %      │      of the height high. It is centered on the
///        │         │row   │  │           │      anchor's column and ends 10 % of the height
///        │         │first │ ─┴─          │      before the anchor's row.
///        │         └──────┘  │ 10 %      │      The first row of the sticker texture is drawn
///        │            +     ─┴─          │      nearest to the anchor. To see an image upright
///        │         (x, y)                │      above the anchor, upload its last row first.
///        └───────────────────────────────┘
///
/// The view moves and scales stickers together with the picture. In the units of the square, with
/// halfW = width / 2 and halfH = height / 2 rounded down, a sticker covers
///
///     px = (x - halfW) / halfW - 0.05 … + 0.05        py = (y - halfH) / halfH - 0.4 … - 0.2
///
/// The pair (-1, -1) skips its sticker. Every other pair is a position, even outside the picture.
///
/// GL state
/// --------
///
/// The library needs a current context, and this state when it is called:
///
///     unpack alignment                      fits the rows (see Pixels); other GL_UNPACK_* are 0
///     GL_PIXEL_UNPACK_BUFFER                0 at the first call that draws
///     sampler objects                       none on texture units 0, 1 and 2
///     color mask, rasterizer discard        all channels are written, nothing is discarded
///     transform feedback                    not active
///     clear color                           the background around the picture
///     destination                           a name from glGenTextures, not immutable storage; the
///                                           first draw allocates it and discards its contents
///     sticker texture                       a complete GL_TEXTURE_2D; its filters are used
///
/// When VEUpdateRenderer and VEUpdateRendererWithSticker draw, they change this state:
///
///     saved and restored   GL_BLEND, blend function and equation; GL_SCISSOR_TEST, scissor box;
///                          GL_DEPTH_TEST, depth function and mask; GL_CULL_FACE;
///                          GL_ARRAY_BUFFER binding
///     set to 0             vertex array, program, draw and read framebuffer;
///                          GL_TEXTURE_2D on the unit that is active afterwards.
///                          Except with compressed video in output mode 0:
///                          GL_PIXEL_UNPACK_BUFFER (see below), and GL_TEXTURE_2D on the unit that
///                          was active at the call
///     changed              active unit: GL_TEXTURE1, or GL_TEXTURE2 with a sticker texture.
///                          Unit 0: the renderer's source texture; with compressed video on
///                          GL_TEXTURE_EXTERNAL_OES.
///                          GL_TEXTURE_EXTERNAL_OES on the unit that was active at the call, with
///                          compressed video: the renderer's source texture.
///                          Unit 1, with a sticker texture: the mask texture, or the name
///                          0xFFFFFFFF without a mask.
///                          Viewport: (0, 0, width, height).
///                          GL_STENCIL_TEST: disabled.
///                          Error flags: read and cleared, earlier errors of the application, too.
///                          Index buffer of the vertex array that was bound at the call: 0.
///                          Attributes 0 to 8 of vertex array 0, if stickers are drawn: disabled
///     first draw           sets the filters of the destination to GL_LINEAR_MIPMAP_LINEAR and
///                          GL_LINEAR and its wrap modes to GL_CLAMP_TO_EDGE. The destination has
///                          no mipmaps: to sample it, set another minification filter after this
///                          draw
///
/// With raw frames, a call with null data that completes an upload leaves GL_PIXEL_UNPACK_BUFFER on
/// a buffer of the renderer, unless the call also has mask data. Bind 0 before your own uploads.
///
/// The other calls:
///
///     creation             binds vertex array 0 with attributes 0 to 8 disabled, and a buffer of
///                          the renderer to GL_ARRAY_BUFFER. With compressed video: sets
///                          GL_TEXTURE_EXTERNAL_OES on the active unit to 0
///     updates that only    set GL_TEXTURE_2D on the active unit and GL_PIXEL_UNPACK_BUFFER to 0.
///     create textures      With compressed video: bind the renderer's source texture to
///                          GL_TEXTURE_EXTERNAL_OES on the active unit
///     user position and    make no GL call
///     compressed data
///     VEDestroyRenderer    deletes objects, which sets bindings to them to 0; see Ownership. If
///                          the renderer never drew, GL_INVALID_VALUE is in the error flags

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
    VE_OUTPUT_PICTURE = 0,  ///< The picture, in the view of a new renderer.
    VE_OUTPUT_MASKED = 1,   ///< The picture, keyed by a mask that comes with every update.
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
/// Sizes are in pixels, greater than 0 and at most GL_MAX_TEXTURE_SIZE. They are not checked.
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
/// \param handle    receives the renderer; not null. It does not change if no renderer is created:
///                  set it to null before the call and test it afterwards.
/// \param textureId GL name of the destination, 0 or more.
/// \param format    format of the destination: VE_FORMAT_RGB or VE_FORMAT_RGBA.
/// \param javaVM    the JavaVM* of the process. Renderers of raw frames do not use it.
/// \return -1 if \p mode is null or \p textureId is negative, otherwise 0. It is 0 even for a
///         modeType that creates no renderer: VE_MODE_NONE, and all values outside 2 … 6.
VE_EXPORT int VECreateRendererHandleWithFormat(void** handle, int textureId, int format,
                                               VERendererMode* mode, void* javaVM);

/// Draws one frame, without stickers.
///
/// \param data        the pixels of the frame, or null to draw the frame that was given last
///                    (see Latency). Ignored with compressed video.
/// \param size        ignored: the sizes of the creation record apply.
/// \param colorMirror true draws the frame as it is, false swaps left and right.
/// \param maskData    the pixels of the mask, or null. Ignored in output mode VE_OUTPUT_PICTURE.
/// \return -1 if \p handle is null, otherwise 0.
VE_EXPORT int VEUpdateRenderer(void* handle, void* data, unsigned int size, bool colorMirror,
                               void* maskData);

#ifdef __cplusplus
/// Draws one frame and a sticker at each position of a list.
///
/// \param stickerTexture GL name of a GL_TEXTURE_2D, or a negative number for no stickers.
/// \param stickers       positions (see Stickers). The library does not modify the list.
///
/// The other arguments and the result are those of VEUpdateRenderer.
VE_EXPORT int VEUpdateRendererWithSticker(void* handle, void* data, unsigned int size,
                                          bool colorMirror, void* maskData, int stickerTexture,
                                          std::vector<std::pair<int, int>>& stickers);
#endif

/// Hands a compressed access unit to the decoder (see Compressed video). Renderers of raw frames
/// ignore it.
///
/// \param data the unit. The decoder gets a copy. Null does nothing.
/// \param size in bytes, at most that of an input buffer of the decoder. 0 or less does nothing.
/// \return -1 if \p handle is null, otherwise 0, even if the unit was dropped.
VE_EXPORT int VEUpdateCompressedData(void* handle, void* data, int size);

/// Sets the view (see View) for the draws that follow. Has an effect only in output mode
/// VE_OUTPUT_MASKED.
///
/// \param a x of the camera, in halves of the picture's width. At more than 0 the picture moves to
///          the left.
/// \param b ignored: the view does not move up or down.
/// \param c zoom. A new renderer has zoom 2.
/// \param d ignored.
/// \return -1 if \p handle is null, otherwise 0.
VE_EXPORT int VEUpdateUserPosition(void* handle, float a, float b, float c, float d);

/// Destroys a renderer. Null does nothing. The GL context of the renderer must be current.
VE_EXPORT void VEDestroyRenderer(void* handle);

#ifdef __cplusplus
}  // extern "C"
#endif
