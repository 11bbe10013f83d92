#version 100 
#define DISABLE_MULTIVIEW 1

#ifndef DISABLE_MULTIVIEW
 #define DISABLE_MULTIVIEW 0
#endif
#define NUM_VIEWS 2
#if __VERSION__ < 300
  #define in attribute
  #define out varying
#else
  #define attribute in
  #define varying out
#endif
#if defined( GL_OVR_multiview2 ) && ! DISABLE_MULTIVIEW && __VERSION__ >= 300
  #extension GL_OVR_multiview2 : require
  layout(num_views=NUM_VIEWS) in;
  #define VIEW_ID gl_ViewID_OVR
#else
  uniform lowp int ViewID;
  #define VIEW_ID ViewID
#endif

uniform highp mat4 ModelMatrix;
#if __VERSION__ >= 300
// Use a ubo in v300 path to workaround corruption issue on Adreno 420+v300
// when uniform array of matrices used.
uniform SceneMatrices
{
	highp mat4 ViewMatrix[NUM_VIEWS];
	highp mat4 ProjectionMatrix[NUM_VIEWS];
} sm;
// Use a function macro for TransformVertex to workaround an issue on exynos8890+Android-M driver:
// gl_ViewID_OVR outside of the vertex main block causes VIEW_ID to be 0 for every view.
//highp vec4 TransformVertex( highp vec4 oPos )
//{
//	highp vec4 hPos = sm.ProjectionMatrix[VIEW_ID] * ( sm.ViewMatrix[VIEW_ID] * ( ModelMatrix * oPos ) );
//	return hPos;
#define TransformVertex(localPos) (sm.ProjectionMatrix[VIEW_ID] * ( sm.ViewMatrix[VIEW_ID] * ( ModelMatrix * localPos )))
#else
// Still support v100 for image_external as v300 support is lacking in Mali-T760/Android-L drivers.
uniform highp mat4 ViewMatrix[NUM_VIEWS];
uniform highp mat4 ProjectionMatrix[NUM_VIEWS];
highp vec4 TransformVertex( highp vec4 oPos )
{
	highp vec4 hPos = ProjectionMatrix[VIEW_ID] * ( ViewMatrix[VIEW_ID] * ( ModelMatrix * oPos ) );
	return hPos;
}
#endif
attribute vec4 Position;
attribute vec4 TexCoord;
uniform mat4 vMatrix;
uniform bool vColorMirror;
uniform bool vSticker;
varying highp vec2 oTexCoord;
varying highp vec2 aTexCoord;
void main()
{
gl_Position =  vMatrix * vec4(Position.x,  Position.y , 0.0,  1.0);
aTexCoord = TexCoord.xy;
if(vColorMirror){
    oTexCoord = vec2(TexCoord.x, 1.0-TexCoord.y);
}else{
    oTexCoord = vec2(1.0-TexCoord.x, 1.0-TexCoord.y);
}
}
