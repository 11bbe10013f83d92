#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>

/// Compares \p lines with those of a file of the test data. Behind two spaces the file has
/// comments.
inline void ExpectStored(const std::string& lines, const std::string& name) {
    std::ifstream file(std::string(TEST_DATA_DIR) + "/" + name);
    std::string stored;
    for (std::string line; std::getline(file, line);) {
        stored += line.substr(0, line.find("  ")) + "\n";
    }
    const std::string path = testing::TempDir() + name;
    std::ofstream(path) << lines;
    EXPECT_TRUE(lines == stored) << "compare " << path << " with " << TEST_DATA_DIR << "/" << name;
}
