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
uniform sampler2D Texture0;
uniform sampler2D Texture2;
varying highp vec2 oTexCoord;
varying highp vec2 aTexCoord;
void main()
{
if(vSticker){
    gl_FragColor = texture2D( Texture2,oTexCoord);
}else{
    gl_FragColor = texture2D( Texture0,oTexCoord);
}
}
