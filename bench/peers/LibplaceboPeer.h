#pragma once

#include <memory>

#include "Peer.h"
#include "render/FrameCase.h"

/// libplacebo in the current context, as fast as it goes: no dithering, no filters beyond GL's.
///
/// \param scale how much larger the picture is than the output.
std::unique_ptr<Peer> MakeLibplaceboPeer(const FrameCase& frame, float scale);
