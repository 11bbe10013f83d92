#pragma once

#include <memory>

class Codec;

/// Sets the codec that this thread created last, without keeping it alive.
void SetCurrentCodec(const std::shared_ptr<Codec>& codec);
