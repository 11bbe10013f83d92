#pragma once

#include <string>

/// A font of the system.
struct FontFile {
    std::string path;  ///< Empty: there is none.
    long index = 0;    ///< Of the font in the file.
};

/// The usual font without serifs, or the one most like it that has \p character, if it is not 0.
FontFile FindFontFile(char32_t character = 0);
