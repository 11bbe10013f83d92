#pragma once

/// Sources of the gallery's programs, in the dialect of version 300.
extern const char kMeshVertexShader[];
extern const char kFacesShader[];
extern const char kPictureShader[];
extern const char kVertexColorShader[];
extern const char kOneColorShader[];
