#include "FilterShaders.h"

// Frozen: shader texts

const char kFilterVertexShader[] =
    "attribute vec4 Position;\n"
    "attribute vec4 TexCoord;\n"
    "uniform mat4 vMatrix;\n"
    "uniform bool vColorMirror;\n"
    "uniform bool vSticker;\n"
    "varying highp vec2 oTexCoord;\n"
    "varying highp vec2 aTexCoord;\n"
    "void main()\n"
    "{\n"
    "gl_Position =  vMatrix * vec4(Position.x,  Position.y , 0.0,  1.0);\n"
    "aTexCoord = TexCoord.xy;\n"
    "if(vColorMirror){\n"
    "    oTexCoord = vec2(TexCoord.x, 1.0-TexCoord.y);\n"
    "}else{\n"
    "    oTexCoord = vec2(1.0-TexCoord.x, 1.0-TexCoord.y);\n"
    "}\n"
    "}\n";

namespace {

// The sources differ only in the type of Texture0.
#define FLAG "uniform bool vSticker;\n"
#define EXTERNAL_SOURCE "uniform samplerExternalOES Texture0;\n"
#define TEXTURE_2D_SOURCE "uniform sampler2D Texture0;\n"

#define PICTURE_ONLY                                       \
    "uniform sampler2D Texture2;\n"                        \
    "varying highp vec2 oTexCoord;\n"                      \
    "varying highp vec2 aTexCoord;\n"                      \
    "void main()\n"                                        \
    "{\n"                                                  \
    "if(vSticker){\n"                                      \
    "    gl_FragColor = texture2D( Texture2,oTexCoord);\n" \
    "}else{\n"                                             \
    "    gl_FragColor = texture2D( Texture0,oTexCoord);\n" \
    "}\n"                                                  \
    "}\n"

#define PICTURE_AND_MASK                                                                     \
    "uniform sampler2D Texture1;\n"                                                          \
    "uniform sampler2D Texture2;\n"                                                          \
    "varying highp vec2 oTexCoord;\n"                                                        \
    "varying highp vec2 aTexCoord;\n"                                                        \
    "const lowp float unity_bg_r = 169.0/255.0;\n"                                           \
    "const lowp float unity_bg_g = 210.0/255.0;\n"                                           \
    "const lowp float unity_bg_b = 216.0/255.0;\n"                                           \
    "void main()\n"                                                                          \
    "{\n"                                                                                    \
    "if(vSticker){\n"                                                                        \
    "    gl_FragColor = texture2D( Texture2,oTexCoord);\n"                                   \
    "}else{\n"                                                                               \
    "lowp vec4 textureColor = texture2D(Texture0,oTexCoord); \n"                             \
    "lowp vec4 textureDepth =  texture2D(Texture1,vec2(aTexCoord.x, 1.0-aTexCoord.y)); \n"   \
    "if(textureDepth.r == 0.0 && textureDepth.g == 0.0 && textureDepth.b == 0.0) {\n"        \
    "gl_FragColor = vec4(unity_bg_r, unity_bg_g, unity_bg_b, 0.0);\n"                        \
    "} \n"                                                                                   \
    "else { \n"                                                                              \
    "gl_FragColor = vec4(textureColor.r, textureColor.g, textureColor.b, textureDepth.a);\n" \
    "}\n"                                                                                    \
    "}\n"                                                                                    \
    "}\n"

constexpr char kExternal[] = FLAG EXTERNAL_SOURCE PICTURE_ONLY;
constexpr char kExternalMasked[] = FLAG EXTERNAL_SOURCE PICTURE_AND_MASK;
constexpr char kTexture2D[] = FLAG TEXTURE_2D_SOURCE PICTURE_ONLY;
constexpr char kTexture2DMasked[] = FLAG TEXTURE_2D_SOURCE PICTURE_AND_MASK;

}  // namespace

const char* FilterFragmentShader(bool sourceIsExternal, bool masked) {
    if (sourceIsExternal) {
        return masked ? kExternalMasked : kExternal;
    }
    return masked ? kTexture2DMasked : kTexture2D;
}
