#pragma once

#include <cstdint>
#include <string>

/// Says what is broken in a file. \return whether something is
bool ReportBroken(const std::string& path, int64_t lost, int64_t damaged);
