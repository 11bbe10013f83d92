// The native methods of org.vornrenderer.NativeRenderer, whose callers have checked the arguments.
// Those that can fail return a VEResult.

#include <EGL/egl.h>
#include <jni.h>

#include <array>
#include <memory>
#include <new>
#include <vector>

#include "render/VERendererExt.h"

namespace {

constexpr char kClassName[] = "org/vornrenderer/NativeRenderer";
constexpr jint kJniVersion = JNI_VERSION_1_6;
constexpr jsize kMatrixSize = 16;
constexpr jint kNewPicture = 1;  // NativeRenderer.NEW_PICTURE.

/// A renderer and what is kept between its draws.
struct Peer {
    Peer() = default;
    /// Without a context, GL calls would crash.
    ~Peer() {
        const bool noGL = contextLost || eglGetCurrentContext() == EGL_NO_CONTEXT;
        VECloseRenderer(renderer, noGL ? VE_CONTEXT_LOST : VE_CONTEXT_CURRENT);
    }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    VERenderer* renderer = nullptr;
    bool contextLost = false;
    uint32_t maskTexture = 0;  ///< 0: no new one.
    bool hideMask = false;
    uint32_t stickerTexture = 0;
    std::vector<jint> stickers;  ///< Pairs x, y.
    int64_t pictureTimeUs = VE_NO_TIME;
};

Peer& AsPeer(jlong peer) {
    return *reinterpret_cast<Peer*>(static_cast<intptr_t>(peer));
}

/// Takes the address of a position in a direct buffer; null for no buffer.
/// \return false if the VM gives no address.
bool TakeAddress(JNIEnv* env, jobject buffer, jint position, const void*& address) {
    address = nullptr;
    if (buffer == nullptr) {
        return true;
    }
    const auto* begin = static_cast<const char*>(env->GetDirectBufferAddress(buffer));
    if (begin != nullptr) {
        address = begin + position;
    }
    return begin != nullptr;
}

jint Create(JNIEnv* env, jclass /*type*/, jint texture, jint format, jint source, jint width,
            jint height, jint outputWidth, jint outputHeight, jint maskFormat, jint maskWidth,
            jint maskHeight, jboolean drawLater, jboolean drawOnce, jboolean keepState,
            jlongArray created) {
    std::unique_ptr<Peer> peer(new (std::nothrow) Peer);
    if (peer == nullptr) {
        return VE_ERROR_MEMORY;
    }
    JavaVM* jvm = nullptr;
    if (env->GetJavaVM(&jvm) != JNI_OK) {
        return VE_ERROR_JAVA;
    }
    VERendererOptions options = VEMakeRendererOptions();
    options.source = source;
    options.sourceWidth = width;
    options.sourceHeight = height;
    options.outputWidth = outputWidth;
    options.outputHeight = outputHeight;
    options.outputTexture = static_cast<uint32_t>(texture);
    options.outputFormat = format;
    options.maskFormat = maskWidth > 0 ? maskFormat : 0;
    options.maskWidth = maskWidth;
    options.maskHeight = maskHeight;
    options.drawLater = drawLater != JNI_FALSE;
    options.drawOnce = drawOnce != JNI_FALSE;
    options.keepState = keepState != JNI_FALSE;
    options.javaVM = jvm;
    const VEResult result = VECreateRenderer(&options, &peer->renderer);
    if (result != VE_OK) {
        return result;
    }
    const auto address = static_cast<jlong>(reinterpret_cast<intptr_t>(peer.get()));
    env->SetLongArrayRegion(created, 0, 1, &address);
    if (env->ExceptionCheck() != JNI_FALSE) {
        return VE_ERROR_JAVA;
    }
    static_cast<void>(peer.release());  // Java's now.
    return VE_OK;
}

jint Draw(JNIEnv* env, jclass /*type*/, jlong renderer, jobject frame, jint framePosition,
          jobject mask, jint maskPosition, jint texture, jfloatArray sourceMatrix, jint rotation,
          jboolean mirrored, jfloat x, jfloat y, jfloat zoom) {
    Peer& peer = AsPeer(renderer);
    std::array<jfloat, kMatrixSize> matrix = {};
    const VEView view = {x, y, zoom};
    VEDrawOptions options = VEMakeDrawOptions();
    if (!TakeAddress(env, frame, framePosition, options.frame) ||
        !TakeAddress(env, mask, maskPosition, options.mask)) {
        return VE_ERROR_JAVA;
    }
    options.sourceTexture = static_cast<uint32_t>(texture);
    if (sourceMatrix != nullptr) {
        env->GetFloatArrayRegion(sourceMatrix, 0, kMatrixSize, matrix.data());
        options.sourceMatrix = matrix.data();
    }
    options.maskTexture = mask == nullptr ? peer.maskTexture : 0;
    options.hideMask = peer.hideMask;
    options.rotation = rotation;
    options.mirror = mirrored != JNI_FALSE;
    options.view = &view;
    options.stickerTexture = peer.stickerTexture;
    options.stickers = peer.stickers.data();
    options.stickerCount = peer.stickers.size() / 2;
    VEDrawn drawn = VEMakeDrawn();
    const VEResult result = VEDraw(peer.renderer, &options, &drawn);
    if (result == VE_OK) {
        peer.maskTexture = 0;  // Taken, or replaced by pixels.
    }
    if (drawn.picture) {
        peer.pictureTimeUs = drawn.ptsUs;
    }
    return drawn.newPicture ? kNewPicture : static_cast<jint>(result);
}

void SetMask(JNIEnv* /*env*/, jclass /*type*/, jlong renderer, jint texture, jboolean hidden) {
    Peer& peer = AsPeer(renderer);
    if (texture != 0) {
        peer.maskTexture = static_cast<uint32_t>(texture);
    }
    peer.hideMask = hidden != JNI_FALSE;
}

jint SetStickers(JNIEnv* env, jclass /*type*/, jlong renderer, jint texture, jintArray positions) {
    Peer& peer = AsPeer(renderer);
    const jsize count = env->GetArrayLength(positions);
    try {
        peer.stickers.resize(static_cast<size_t>(count));
    } catch (const std::bad_alloc&) {
        return VE_ERROR_MEMORY;
    }
    env->GetIntArrayRegion(positions, 0, count, peer.stickers.data());
    peer.stickerTexture = static_cast<uint32_t>(texture);
    return env->ExceptionCheck() == JNI_FALSE ? VE_OK : VE_ERROR_JAVA;
}

jintArray Stickers(JNIEnv* env, jclass /*type*/, jlong renderer) {
    const std::vector<jint>& stickers = AsPeer(renderer).stickers;
    const auto count = static_cast<jsize>(stickers.size());
    jintArray positions = env->NewIntArray(count);
    if (positions != nullptr) {
        env->SetIntArrayRegion(positions, 0, count, stickers.data());
    }
    return positions;
}

jlong PictureTimeUs(JNIEnv* /*env*/, jclass /*type*/, jlong renderer) {
    return AsPeer(renderer).pictureTimeUs;
}

jint QueueUnit(JNIEnv* env, jclass /*type*/, jlong renderer, jobject bytes, jint position,
               jint size, jlong timeUs, jlong waitUs, jint flags) {
    VEUnit unit = VEMakeUnit();
    if (!TakeAddress(env, bytes, position, unit.data)) {
        return VE_ERROR_JAVA;
    }
    unit.size = static_cast<size_t>(size);
    unit.ptsUs = timeUs;
    unit.waitUs = waitUs;
    unit.flags = flags;
    return VEQueueUnit(AsPeer(renderer).renderer, &unit);
}

jint Flush(JNIEnv* /*env*/, jclass /*type*/, jlong renderer) {
    return VEFlush(AsPeer(renderer).renderer);
}

jint GetDecoderState(JNIEnv* env, jclass /*type*/, jlong renderer, jlongArray values) {
    VEDecoderState state = VEMakeDecoderState();
    const VEResult result = VEGetDecoderState(AsPeer(renderer).renderer, &state);
    if (result != VE_OK) {
        return result;
    }
    const std::array all = {
        static_cast<jlong>(state.result),          static_cast<jlong>(state.platformCode),
        static_cast<jlong>(state.unitsQueued),     static_cast<jlong>(state.unitsDropped),
        static_cast<jlong>(state.picturesDecoded), static_cast<jlong>(state.picturesShown),
        static_cast<jlong>(state.unitCapacity),    static_cast<jlong>(state.width),
        static_cast<jlong>(state.height),          static_cast<jlong>(state.cropLeft),
        static_cast<jlong>(state.cropTop),         static_cast<jlong>(state.cropRight),
        static_cast<jlong>(state.cropBottom),      static_cast<jlong>(state.endOfStream),
    };
    env->SetLongArrayRegion(values, 0, static_cast<jsize>(all.size()), all.data());
    return env->ExceptionCheck() == JNI_FALSE ? VE_OK : VE_ERROR_JAVA;
}

jstring ResultText(JNIEnv* env, jclass /*type*/, jint result) {
    return env->NewStringUTF(VEResultText(static_cast<VEResult>(result)));
}

void Destroy(JNIEnv* /*env*/, jclass /*type*/, jlong renderer, jboolean contextLost) {
    AsPeer(renderer).contextLost = contextLost != JNI_FALSE;
    delete &AsPeer(renderer);
}

/// Members of JNINativeMethod are const in Android's jni.h and not in the JDK's.
template <typename Function>
JNINativeMethod Method(const char* name, const char* signature, Function* function) {
    return {const_cast<char*>(name), const_cast<char*>(signature),
            reinterpret_cast<void*>(function)};
}

bool RegisterMethods(JNIEnv* env) {
    const std::array methods = {
        Method("create", "(IIIIIIIIIIZZZ[J)I", Create),
        Method("draw", "(JLjava/nio/ByteBuffer;ILjava/nio/ByteBuffer;II[FIZFFF)I", Draw),
        Method("setMask", "(JIZ)V", SetMask),
        Method("setStickers", "(JI[I)I", SetStickers),
        Method("stickers", "(J)[I", Stickers),
        Method("pictureTimeUs", "(J)J", PictureTimeUs),
        Method("queueUnit", "(JLjava/nio/ByteBuffer;IIJJI)I", QueueUnit),
        Method("flush", "(J)I", Flush),
        Method("getDecoderState", "(J[J)I", GetDecoderState),
        Method("resultText", "(I)Ljava/lang/String;", ResultText),
        Method("destroy", "(JZ)V", Destroy),
    };
    jclass type = env->FindClass(kClassName);
    return type != nullptr &&
           env->RegisterNatives(type, methods.data(), static_cast<jint>(methods.size())) == JNI_OK;
}

}  // namespace

extern "C" JNIEXPORT jint JNICALL JNI_OnLoad(JavaVM* jvm, void* /*reserved*/) {
    void* env = nullptr;
    if (jvm->GetEnv(&env, kJniVersion) != JNI_OK || !RegisterMethods(static_cast<JNIEnv*>(env))) {
        return JNI_ERR;
    }
    return kJniVersion;
}
