#include "menu/LineScan.h"

#include "unit/menu/LineScanChecks.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace nesk {
namespace {

using testing::LineScanDifference;
using testing::PaddedText;

// Builds for x86, 32 bits as well, require a processor with SSE2.
#if defined(__x86_64__) || defined(__i386__)
#ifndef __SSE2__
#error "the reader would use the slow functions"
#endif
#endif

// Every byte at every position of a text that is longer than the longest step.
TEST(LineScanTest, BothKindsAgreeOnEveryByte) {
    for (const char around : {'x', ' '})
        for (int byte = 0; byte < 256; ++byte)
            for (std::size_t place = 0; place < 70; ++place) {
                std::string text(70, around);
                text[place] = static_cast<char>(byte);
                ASSERT_EQ(LineScanDifference(PaddedText(text), 0), "")
                    << "byte " << byte << " at " << place << " among " << around;
            }
}

TEST(LineScanTest, BothKindsAgreeOnRandomTexts) {
    constexpr unsigned Seed = 20261122;
    std::mt19937 random(Seed);
    // Contains many of the characters that matter.
    const std::string alphabet = std::string("  \t\t==\r\naz`{AZ[@~\x1f\x7f\x80\xff") + std::string(1, '\0');
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 150, ' ');
        for (char& c : text)
            c = random() % 4 != 0 ? 'm' : alphabet[random() % alphabet.size()];
        const std::size_t from = random() % (text.size() + 1);
        ASSERT_EQ(LineScanDifference(PaddedText(text), from), "") << "seed " << Seed << ", round " << round;
    }
}

TEST(LineScanTest, TheScalarFunctionsFindWhatIsMeant) {
    using namespace LineScan;
    const PaddedText text(" \tKEY=va\r\nx");
    EXPECT_EQ(Scalar::SkipBlanks(text.At(0)), text.At(2));
    EXPECT_EQ(Scalar::SkipPrintable(text.At(2)), text.At(8));
    EXPECT_EQ(Scalar::FindEquals(text.At(0), text.End()), text.At(5));
    EXPECT_EQ(Scalar::FindEquals(text.At(0), text.At(5)), text.At(5))
        << "the end, where there is none before";
    EXPECT_EQ(Scalar::FindLineEnd(text.At(0), text.End()), text.At(8));
    EXPECT_TRUE(Scalar::StartsWith(text.At(2), Key("KEY")));
    EXPECT_FALSE(Scalar::StartsWith(text.At(2), Key("KE")));
    EXPECT_FALSE(Scalar::HasLowerCase(text.At(2), 4));
    EXPECT_TRUE(Scalar::HasLowerCase(text.At(2), 5));
}

} // namespace
} // namespace nesk
