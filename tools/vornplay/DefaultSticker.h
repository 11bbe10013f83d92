#pragma once

#include <cstddef>
#include <cstdint>

/// assets/sticker.png, byte by byte.
extern const uint8_t kDefaultSticker[];
extern const size_t kDefaultStickerSize;
