#pragma once

#include <string>
#include <vector>

#include "PartRecord.h"
#include "support/OutputFile.h"

/// The parts of a clip that have frames, in their order.
using Parts = std::vector<PartRecord>;

/// Both give the joined output its name when it is whole. \return how many frames it has
/// \throws ToolError
int64_t JoinVideo(const std::string& out, Existing existing, const Parts& parts);
int64_t JoinPictures(const std::string& out, Existing existing, const Parts& parts);
