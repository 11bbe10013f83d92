#pragma once

#include <string>

/// The versions of the library and the codecs.
std::string CodecVersions();

/// The versions of the library, the codecs and GL, in lines.
std::string VersionText();
