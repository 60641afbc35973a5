#include "journal/JournalCode.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace nesk {
namespace {

TEST(JournalCodeTest, NumbersAndTextsComeBack) {
    const std::vector<std::uint64_t> numbers = {
        0, 1, 127, 128, 300, 16383, 16384, std::uint64_t{1} << 40, ~std::uint64_t{0}};
    const std::vector<std::int64_t> signedNumbers = {0,
                                                     -1,
                                                     1,
                                                     -64,
                                                     64,
                                                     std::numeric_limits<std::int64_t>::min(),
                                                     std::numeric_limits<std::int64_t>::max()};
    std::string bytes;
    JournalEncoder out(bytes);
    for (const std::uint64_t number : numbers)
        out.Number(number);
    for (const std::int64_t number : signedNumbers)
        out.SignedNumber(number);
    out.Text("");
    out.Text(std::string("a\0b", 3));
    JournalDecoder in(bytes);
    for (const std::uint64_t number : numbers)
        EXPECT_EQ(in.Number(), number);
    for (const std::int64_t number : signedNumbers)
        EXPECT_EQ(in.SignedNumber(), number);
    EXPECT_EQ(in.Text(), "");
    EXPECT_EQ(in.Text(), std::string("a\0b", 3));
    EXPECT_TRUE(in.AtEnd());
}

TEST(JournalCodeTest, SmallNumbersTakeOneByte) {
    std::string bytes;
    JournalEncoder(bytes).Number(127);
    EXPECT_EQ(bytes.size(), 1u);
    JournalEncoder(bytes).SignedNumber(-64);
    EXPECT_EQ(bytes.size(), 2u);
}

TEST(JournalCodeTest, WhatIsCutOffIsDamage) {
    EXPECT_THROW(JournalDecoder("").Number(), JournalDamage);
    EXPECT_THROW(JournalDecoder("\x80").Number(), JournalDamage);
    EXPECT_THROW(JournalDecoder(std::string(11, '\xFF')).Number(), JournalDamage);
    EXPECT_THROW(JournalDecoder("\x03xy").Text(), JournalDamage);
}

TEST(JournalCodeTest, ANumberHasToBeInItsRange) {
    EXPECT_EQ(JournalDecoder("\x05").NumberFrom(5, 7), 5);
    EXPECT_EQ(JournalDecoder("\x07").NumberFrom(5, 7), 7);
    EXPECT_THROW(JournalDecoder("\x04").NumberFrom(5, 7), JournalDamage);
    EXPECT_THROW(JournalDecoder("\x08").NumberFrom(5, 7), JournalDamage);
    std::string bytes;
    JournalEncoder(bytes).Number(~std::uint64_t{0});
    EXPECT_THROW(JournalDecoder(bytes).NumberFrom(0, 7), JournalDamage);
}

class JournalFrameTest : public ::testing::Test {
protected:
    JournalFrameTest() {
        JournalFrame::Append(m_bytes, "first");
        m_first = m_bytes.size();
        JournalFrame::Append(m_bytes, "");
        JournalFrame::Append(m_bytes, "a third frame");
    }

    // The states of all frames of bytes, and the payloads of the whole ones.
    std::vector<std::string> FramesOf(std::string_view bytes, JournalFrame::State& end) {
        std::vector<std::string> frames;
        std::string_view payload;
        while ((end = JournalFrame::Take(bytes, payload)) == JournalFrame::State::Whole)
            frames.emplace_back(payload);
        return frames;
    }

    const std::vector<std::string> m_all = {"first", "", "a third frame"};
    std::string m_bytes;
    std::size_t m_first = 0;
};

TEST_F(JournalFrameTest, FramesComeBack) {
    JournalFrame::State end{};
    EXPECT_EQ(FramesOf(m_bytes, end), m_all);
    EXPECT_EQ(end, JournalFrame::State::End);
}

TEST_F(JournalFrameTest, ATornFrameIsNoDamage) {
    for (std::size_t length = 1; length < m_first; ++length) {
        JournalFrame::State end{};
        EXPECT_TRUE(FramesOf(m_bytes.substr(0, length), end).empty());
        EXPECT_EQ(end, JournalFrame::State::Torn) << length;
    }
}

TEST_F(JournalFrameTest, ZerosAfterAPowerCutAreNoDamage) {
    for (const std::size_t zeros : {1U, 24U, 4096U}) {
        JournalFrame::State end{};
        EXPECT_EQ(FramesOf(m_bytes + std::string(zeros, '\0'), end), m_all);
        EXPECT_EQ(end, JournalFrame::State::Torn);
        EXPECT_EQ(FramesOf(m_bytes + std::string(zeros, '\0') + std::string(30, 'x'), end), m_all);
        EXPECT_EQ(end, JournalFrame::State::Damaged);
    }
}

TEST_F(JournalFrameTest, EveryFlippedBitIsFound) {
    for (std::size_t at = 0; at < m_first; ++at)
        for (int bit = 0; bit < 8; ++bit) {
            std::string bytes = m_bytes;
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << bit));
            JournalFrame::State end{};
            EXPECT_TRUE(FramesOf(bytes, end).empty());
            EXPECT_EQ(end, JournalFrame::State::Damaged) << at << " " << bit;
        }
}

} // namespace
} // namespace nesk
