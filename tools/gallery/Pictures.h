#pragma once

#include "support/Image.h"

/// An equirectangular picture: sky above checkered ground, with a grid of longitudes and latitudes
/// in degrees.
Image DrawPanorama();

/// Hills, in place of a photo.
Image DrawLandscape();
