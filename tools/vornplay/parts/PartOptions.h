#pragma once

#include <string>
#include <vector>

#include "Options.h"
#include "support/CommandLine.h"

/// Adds --part, and tells of --join, which main() looks for.
void AddPartOptions(CommandLine& line, Options& options);

/// The given options on which the pictures and the files of all parts depend, with what their files
/// hold.
std::vector<std::string> OptionsOfPictures(const CommandLine& line);
