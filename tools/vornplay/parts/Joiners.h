#pragma once

#include <optional>
#include <string>
#include <vector>

#include "PartRecord.h"
#include "support/OutputFile.h"

/// The parts of a clip that have frames, in their order.
using Parts = std::vector<PartRecord>;

/// Both give what they write its name when it is whole. \return how many frames the output has;
/// none if an interrupt stopped it \throws ToolError
std::optional<int64_t> JoinVideo(const std::string& out, Existing existing, const Parts& parts);
std::optional<int64_t> JoinPictures(const std::string& out, Existing existing, const Parts& parts);
