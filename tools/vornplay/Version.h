#pragma once

#include <string>

/// The versions of the library, the codecs and GL, in lines.
std::string VersionText();
