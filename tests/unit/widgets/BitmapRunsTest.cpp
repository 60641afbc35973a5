#include "widgets/BitmapRuns.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

namespace nesk {
namespace {

std::string Little(std::int64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(number >> (8 * i));
    return text;
}

// A BMP file of 10 x 4 pixels, without its colours and pixels.
std::string Front(int kind, std::int64_t colours, std::int64_t place = 0, std::int64_t height = 4) {
    return "BM" + std::string(8, '\0') + Little(place, 4) + Little(40, 4) + Little(10, 4) +
           Little(height, 4) + Little(1, 2) + Little(kind == 2 ? 4 : 8, 2) + Little(kind, 4) +
           std::string(12, '\0') + Little(colours, 4) + Little(0, 4);
}

template <std::size_t Size>
bool Inside(int kind, const char (&runs)[Size], std::int64_t height = 4) {
    return AreRunsInside(Front(kind, 2, 0, height) + std::string(8, '\x7F') + std::string(runs, Size - 1));
}

TEST(BitmapRunsTest, RunsInsideThePicture) {
    for (const int kind : {1, 2}) {
        EXPECT_TRUE(Inside(kind, "\0\1")) << "no pixel";
        EXPECT_TRUE(Inside(kind, "\x0A\1\x0A\1\x0A\1\x0A\1")) << "nothing marks the end";
        EXPECT_TRUE(Inside(kind, "\x0A\1\0\0\x0A\1\0\0\x0A\1\0\0\x0A\1\0\1"));
        EXPECT_TRUE(Inside(kind, "\xFF\1\0\1")) << "the rest of a repeated pixel is left out";
        EXPECT_TRUE(Inside(kind, "\0\2\x09\3\1\1\0\1")) << "the last pixel";
        EXPECT_TRUE(Inside(kind, "\0\2\xFF\xFF\0\1")) << "a move alone does nothing";
        EXPECT_TRUE(Inside(kind, "\0\2\5\3\5\1\0\1", -4));
    }
    EXPECT_TRUE(Inside(1, "\0\x0A\1\1\1\1\1\1\1\1\1\1\0\1"));
    EXPECT_TRUE(Inside(2, "\0\x0A\1\1\1\1\1\1\0\1"));
    EXPECT_TRUE(Inside(1, "\0\3\1\1\1\0\0\1")) << "an even number of bytes";
    EXPECT_TRUE(Inside(2, "\0\5\1\1\1\0\0\1"));
}

TEST(BitmapRunsTest, RunsOutsideThePicture) {
    for (const int kind : {1, 2}) {
        EXPECT_FALSE(Inside(kind, "\0\2\0\4\1\1\0\1")) << "after the last row";
        EXPECT_FALSE(Inside(kind, "\0\2\0\4\1\1\0\1", -4));
        EXPECT_FALSE(Inside(kind, "\0\2\0\3\0\2\0\1\1\1\0\1")) << "two moves";
        EXPECT_FALSE(Inside(kind, "\0\2\0\4\0\3\1\1\1\0\0\1"));
    }
    EXPECT_FALSE(Inside(1, "\0\x0B\1\1\1\1\1\1\1\1\1\1\1\0\0\1")) << "a pixel more than a row";
    EXPECT_FALSE(Inside(2, "\0\x0B\1\1\1\1\1\1\0\1"));
    EXPECT_FALSE(Inside(1, "\x08\1\0\3\1\1\1\0\0\1"));
    EXPECT_FALSE(Inside(1, "\x0A\1\0\0\x0A\1\0\0\x08\1\0\3\1\1\1\0\0\1"))
        << "the mark after a full row is not another row";
}

TEST(BitmapRunsTest, RunsThatAreCutOff) {
    const std::string whole =
        Front(1, 2) + std::string(8, '\0') + std::string("\3\1\0\2\1\1\0\3\1\1\1\0\0\1", 14);
    EXPECT_TRUE(AreRunsInside(whole));
    for (std::size_t length = 54; length < whole.size(); ++length)
        EXPECT_FALSE(AreRunsInside(whole.substr(0, length))) << length;
}

TEST(BitmapRunsTest, WhereTheRunsBegin) {
    const std::string good("\x0A\1\0\1", 4);
    const std::string bad("\0\2\0\4\1\1\0\1", 8);
    EXPECT_TRUE(AreRunsInside(Front(1, 0) + std::string(1024, '\x7F') + good)) << "0 means all colours";
    EXPECT_FALSE(AreRunsInside(Front(1, 0) + std::string(1024, '\0') + bad));
    EXPECT_TRUE(AreRunsInside(Front(2, 0) + std::string(64, '\x7F') + good));
    const std::string gap = bad + good;
    EXPECT_TRUE(AreRunsInside(Front(1, 2, 54 + 8 + 8) + std::string(8, '\0') + gap));
    EXPECT_FALSE(AreRunsInside(Front(1, 2, 54 + 8) + std::string(8, '\0') + gap));
    EXPECT_FALSE(AreRunsInside(Front(1, 2, 20) + std::string(8, '\0') + gap)) << "a place before the colours";
    EXPECT_FALSE(AreRunsInside(Front(1, 2, 0xFFFFFFFF) + std::string(8, '\0') + gap));
    EXPECT_TRUE(AreRunsInside(Front(1, 2, 0xFFFFFFFF) + std::string(8, '\0') + good));
    EXPECT_FALSE(AreRunsInside(Front(1, 2, 0x7FFFFFFF) + std::string(8, '\0') + good)) << "after the end";
    EXPECT_FALSE(AreRunsInside(Front(1, 0x7FFFFFFF) + std::string(8, '\0') + good));
    std::string longer = Front(1, 2) + std::string(8 + 8, '\0') + good;
    longer[14] = 48;
    EXPECT_TRUE(AreRunsInside(longer)) << "a longer header";
    std::string shorter = Front(1, 2) + std::string(8, '\0') + std::string("\1\0\1", 3);
    shorter[14] = 39;
    EXPECT_FALSE(AreRunsInside(shorter)) << "a header without all its fields";
}

TEST(BitmapRunsTest, OtherFiles) {
    EXPECT_TRUE(AreRunsInside(""));
    EXPECT_TRUE(AreRunsInside("GIF89a"));
    EXPECT_TRUE(AreRunsInside(Front(0, 2)));
    std::string old = Front(1, 2);
    old[14] = 12;
    EXPECT_TRUE(AreRunsInside(old));
    std::string mismatch = Front(1, 2) + std::string(8, '\0') + std::string("\0\1", 2);
    mismatch[28] = 4;
    EXPECT_FALSE(AreRunsInside(mismatch)) << "runs of bytes in a picture of half bytes";
}

} // namespace
} // namespace nesk
