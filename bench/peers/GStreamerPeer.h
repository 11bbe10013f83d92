#pragma once

#include <memory>

#include "Peer.h"
#include "render/FrameCase.h"

/// GStreamer's GL upload and transformation, in a context and threads of its own. It samples with
/// linear filters, for it has no others.
///
/// \param scale how much larger the picture is than the output.
std::unique_ptr<Peer> MakeGStreamerPeer(const FrameCase& frame, float scale);
