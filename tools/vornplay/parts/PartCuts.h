#pragma once

#include <cstdint>

#include "Options.h"
#include "PartRange.h"

/// Where a part of the options' clip begins and ends. Parts begin at key frames, so that each can
/// be decoded alone; a part may be empty. Only the neighborhood of the cuts is read, and with a
/// mask or --view-to what lies before the part.
///
/// A clip whose packets have no stamps, or that does not say how long it is, is not cut: its first
/// part has everything. \throws ToolError
PartRange FindPart(const Options& options);
