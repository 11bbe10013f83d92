#pragma once

#include <string>

#include "window/Clip.h"
#include "window/hud/TextPanel.h"

// The window's texts.

/// Plain words for every key and what the mouse does.
TextRows KeyTexts();
TextRows FigureTexts(const Clip& clip);
/// Whether there is a mask, and shows.
std::string MaskText(const Stage& stage);
std::string VolumeText(double level, bool mute);
/// A time of the clip to the millisecond.
std::string PlaceText(double seconds);

constexpr char kNoStickerLeft[] = "No sticker left";
constexpr char kBesidePicture[] = "Beside the picture";
constexpr char kAtEnd[] = "The end. Space plays it again";
constexpr char kAtBeginning[] = "The first frame";
constexpr char kNoSound[] = "No sound";
constexpr char kDropHere[] = "Drop a file here";
constexpr char kHelpHint[] = "H shows the keys";
