#pragma once

#include <string>

/// Tells a file from others: its size and a hash of samples of its content. Empty for what is no
/// regular file.
std::string Fingerprint(const std::string& path);
