#include "render/VERendererExt.h"

const char* VEResultText(VEResult result) {
    switch (result) {
        case VE_OK: return "done";
        case VE_AGAIN: return "the decoder has no room for the unit now";
        case VE_BUSY: return "closed while a decoder call takes long";
        case VE_ERROR_ARGUMENT: return "an argument is missing or out of range";
        case VE_ERROR_HANDLE: return "not a renderer of VECreateRenderer";
        case VE_ERROR_UNSUPPORTED: return "not possible with this kind of source";
        case VE_ERROR_MEMORY: return "out of memory";
        case VE_ERROR_NO_CONTEXT: return "no GL context is current";
        case VE_ERROR_GL_VERSION: return "the GL context is not one of OpenGL ES 3.0 or later";
        case VE_ERROR_NO_EXTERNAL: return "GL has no external textures";
        case VE_ERROR_GL: return "GL refused a shader or the output texture";
        case VE_ERROR_PICTURE_SIZE: return "the picture is larger than GL allows";
        case VE_ERROR_JAVA: return "no Java VM, or a call of Java failed";
        case VE_ERROR_NO_DECODER: return "the platform has no decoder for this kind of video";
        case VE_ERROR_DECODER: return "the decoder failed";
        case VE_ERROR_RECLAIMED: return "the platform took the decoder away";
        case VE_ERROR_UNIT_SIZE: return "the unit is larger than the decoder's buffer";
    }
    return "unknown result";
}
