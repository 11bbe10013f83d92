#version 100 
#extension GL_OES_EGL_image_external : enable
#extension GL_OES_EGL_image_external_essl3 : enable
#define DISABLE_MULTIVIEW 1

#if __VERSION__ < 300
	#define in varying
#else
	#define varying in
	#define gl_FragColor fragColor
	out mediump vec4 fragColor;
	#define texture2D texture
	#define textureCube texture
#endif
uniform bool vSticker;
uniform samplerExternalOES Texture0;
uniform sampler2D Texture1;
uniform sampler2D Texture2;
varying highp vec2 oTexCoord;
varying highp vec2 aTexCoord;
const lowp float unity_bg_r = 169.0/255.0;
const lowp float unity_bg_g = 210.0/255.0;
const lowp float unity_bg_b = 216.0/255.0;
void main()
{
if(vSticker){
    gl_FragColor = texture2D( Texture2,oTexCoord);
}else{
lowp vec4 textureColor = texture2D(Texture0,oTexCoord); 
lowp vec4 textureDepth =  texture2D(Texture1,vec2(aTexCoord.x, 1.0-aTexCoord.y)); 
if(textureDepth.r == 0.0 && textureDepth.g == 0.0 && textureDepth.b == 0.0) {
gl_FragColor = vec4(unity_bg_r, unity_bg_g, unity_bg_b, 0.0);
} 
else { 
gl_FragColor = vec4(textureColor.r, textureColor.g, textureColor.b, textureDepth.a);
}
}
}
