#pragma once

#include <memory>

class Codec;

/// Remembers, without keeping it alive, the codec that this thread created last.
void SetCurrentCodec(const std::shared_ptr<Codec>& codec);
