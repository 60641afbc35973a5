#include "platform/TextEncoding.h"

#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>

namespace nesk::platform {
namespace {

// Mostly bytes that begin or end a two-byte character, so that many of them are unpaired.
std::string RandomBytes(std::mt19937& random) {
    std::string bytes;
    for (auto length = random() % 7; length > 0; --length) {
        const bool low = random() % 8 == 0;
        bytes += static_cast<char>(low ? 0x20 + random() % 0x60 : 0x80 + random() % 0x80);
    }
    return bytes;
}

class KeptBytesTest : public ::testing::TestWithParam<int> {
protected:
    KeptBytesTest() { SelectCodePage(GetParam()); }
    ~KeptBytesTest() override { SelectCodePage(1033); }
};

TEST_P(KeptBytesTest, TextStaysTheSameOnceItWasRead) {
    std::mt19937 random(19970612);
    for (int i = 0; i < 300000; ++i) {
        const std::string bytes = RandomBytes(random);
        const std::string text = FromAnsi(bytes);
        const std::optional<std::string> written = ToAnsi(text);
        ASSERT_TRUE(written.has_value()) << ::testing::PrintToString(bytes);
        ASSERT_EQ(FromAnsi(*written), text) << ::testing::PrintToString(bytes);
        ASSERT_EQ(written->size(), bytes.size()) << ::testing::PrintToString(bytes);
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, KeptBytesTest,
                         ::testing::Values(1033, 1032, 1037, 1054, 1066, 1041, 2052, 1042, 1028));

TEST(KeptByteTest, BeforeACharacterWithTwoCodes) {
    SelectCodePage(1041);
    const std::string bytes = "\x81\xEE\xF9";
    EXPECT_EQ(FromAnsi("\xEE\xF9"), "￢");
    EXPECT_EQ(ToAnsi("￢"), "\x81\xCA");
    EXPECT_EQ(ToAnsi(FromAnsi(bytes)), bytes) << "81 81 would be a character, and what is left another";
    SelectCodePage(1033);
}

} // namespace
} // namespace nesk::platform
