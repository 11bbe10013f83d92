#pragma once

#include <android/log.h>

constexpr char kMediaLogTag[] = "MediaCodec";
