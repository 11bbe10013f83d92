#pragma once

#include <string>

#include "support/Image.h"

/// An equirectangular picture: sky above checkered ground, with a grid of longitudes and latitudes
/// in degrees.
Image DrawPanorama();

/// The first picture of the file \p path; a drawn landscape if it is empty. \throws ToolError
Image LoadPhoto(const std::string& path);
