#pragma once

#include <string>

#include "window/Figures.h"
#include "window/Playback.h"
#include "window/TextPanel.h"

// The window's texts. They are shown in capitals.

/// All keys, and which of them work with this mask.
TextLines KeyTexts(MaskUse masking);
TextLines FigureTexts(const Figures& figures, const Playback& playback, const Stage& stage);
/// What the picture shows with this mask.
std::string MaskText(MaskUse masking);
std::string PlaceText(double seconds);

constexpr char kViewStands[] = "No mask (output mode 0): the view stands still. K: mask";
constexpr char kOnlySideways[] = "The view moves sideways only";
constexpr char kNoStickerLeft[] = "No sticker left";
constexpr char kBesidePicture[] = "Beside the picture";
constexpr char kAtEnd[] = "The end. Space: once more";
