#pragma once

#include <linux_platform/Host.h>

#include <memory>

class Codec;

/// Sets the codec that this thread created last, without keeping it alive.
void SetCurrentCodec(const std::shared_ptr<Codec>& codec);

/// The behavior that the host set for this thread's next decoder. The one after that is normal.
HostBehavior TakeNextBehavior();
