// Real clips, if scripts/footage has fetched them.

#include "DecodeFixture.h"

namespace {

class Footage : public DecodeTest,
                public testing::WithParamInterface<std::pair<const char*, int>> {};

TEST_P(Footage, ComesOutFrameByFrameAsLibavcodecDecodesIt) {
    const auto& [name, count] = GetParam();
    const std::string path = std::string(FOOTAGE "/") + name;
    if (!std::filesystem::exists(path)) {
        GTEST_SKIP() << path << " is not there";
    }
    EXPECT_EQ(ExpectAsDecoded(path), count);
}

// The one has 456 packets, the last of which is not for show.
INSTANTIATE_TEST_SUITE_P(, Footage,
                         testing::Values(std::pair("box.mp4", 455), std::pair("cup.mp4", 217)));

}  // namespace
