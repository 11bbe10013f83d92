#pragma once

#include <string>

#include "support/Image.h"

/// An equirectangular picture: the sky over a chequered ground, with the degrees of longitude and
/// latitude on a grid.
Image DrawPanorama();

/// The first picture of a file, or without one a picture of our own. \throws ToolError
Image LoadPhoto(const std::string& path);
