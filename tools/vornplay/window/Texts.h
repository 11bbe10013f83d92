#pragma once

#include <string>

#include "window/Figures.h"
#include "window/Playback.h"
#include "window/TextPanel.h"

// The window's texts. They are shown in capitals.

TextLines KeyTexts(const Stage& stage);
TextLines FigureTexts(const Figures& figures, const Playback& playback, const Stage& stage);
/// Whether there is a mask, and shows.
std::string MaskText(const Stage& stage);
std::string PlaceText(double seconds);

constexpr char kNoStickerLeft[] = "No sticker left";
constexpr char kBesidePicture[] = "Beside the picture";
constexpr char kAtEnd[] = "The end. Space: once more";
