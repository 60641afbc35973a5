#include "widgets/GifCodes.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace nesk {
namespace {

constexpr std::int64_t Many = 1'000'000;

struct Code {
    unsigned value;
    unsigned bits;
};

// Codes of three bits, the first length when a pixel has two bits.
std::vector<Code> Short(const std::vector<unsigned>& values) {
    std::vector<Code> codes;
    for (const unsigned value : values)
        codes.push_back({value, 3});
    return codes;
}
constexpr unsigned Clear = 4;
constexpr unsigned End = 5;

// The data of a picture without the empty block at its end.
std::string Data(const std::vector<Code>& codes, char pixelBits = 2, std::size_t blockLength = 255) {
    std::string bytes;
    std::size_t count = 0;
    for (const Code& code : codes) {
        for (unsigned bit = 0; bit < code.bits; ++bit, ++count) {
            if (count % 8 == 0) bytes += '\0';
            if (bit < 32 && (code.value >> bit & 1U) != 0)
                bytes.back() = static_cast<char>(static_cast<unsigned char>(bytes.back()) | 1U << count % 8);
        }
    }
    std::string data(1, pixelBits);
    for (std::size_t at = 0; at < bytes.size(); at += blockLength) {
        const std::string block = bytes.substr(at, blockLength);
        data += static_cast<char>(block.size());
        data += block;
    }
    return data;
}

bool IsValid(const std::string& data, std::int64_t pixels = Many) {
    return EndOfGifCodes(data + '\0', 0, pixels).has_value();
}

TEST(GifCodesTest, CodesThatAreKnown) {
    EXPECT_TRUE(IsValid(Data(Short({Clear, 0, 3, End}))));
    EXPECT_TRUE(IsValid(Data(Short({0, 3, End})))) << "the codes need not be cleared first";
    EXPECT_TRUE(IsValid(Data(Short({Clear, 0, 6, 7})))) << "a code may be the one that it defines";
    EXPECT_TRUE(IsValid(Data(Short({Clear, 0, 1, 6})))) << "0 and 1 defined it";
    EXPECT_TRUE(IsValid(Data(Short({Clear, Clear, 0, 1, Clear, 2, 6, End}))));
    EXPECT_TRUE(IsValid(Data({}))) << "no code at all";
}

TEST(GifCodesTest, CodesThatAreNotKnown) {
    EXPECT_FALSE(IsValid(Data(Short({6})))) << "the first code defines none";
    EXPECT_FALSE(IsValid(Data(Short({7, 7}))));
    EXPECT_FALSE(IsValid(Data(Short({Clear, 6}))));
    EXPECT_FALSE(IsValid(Data(Short({Clear, 0, 7}))));
    EXPECT_FALSE(IsValid(Data(Short({Clear, 0, 6, Clear, 6})))) << "a code that was cleared";
    EXPECT_FALSE(IsValid(Data({{0, 3}, {6, 3}, {7, 3}, {9, 4}, {11, 4}})));
    EXPECT_TRUE(IsValid(Data({{0, 3}, {6, 3}, {7, 3}, {8, 4}, {9, 4}}))) << "codes become longer";
}

TEST(GifCodesTest, NumberOfBitsInAPixel) {
    for (int bits = 0; bits < 256; ++bits) {
        const auto length = static_cast<unsigned>(bits) + 1;
        const std::string data = Data({{0, length}, {1, length}}, static_cast<char>(bits));
        EXPECT_EQ(IsValid(data), bits >= 2 && bits <= 8) << bits;
    }
}

TEST(GifCodesTest, TheLongestCodes) {
    std::vector<Code> codes{{0, 3}};
    unsigned bits = 3;
    for (unsigned value = 6; value < 4096; ++value) {
        codes.push_back({value, bits});
        if (value + 1 == 1U << bits && bits < 12) ++bits;
    }
    EXPECT_EQ(bits, 12U);
    for (int i = 0; i < 10'000; ++i)
        codes.push_back({4095, 12});
    codes.push_back({Clear, 12});
    EXPECT_TRUE(IsValid(Data(codes), Many * 1000)) << "no more codes are defined";
    std::vector<Code> cleared = codes;
    cleared.push_back({0, 3});
    EXPECT_TRUE(IsValid(Data(cleared), Many * 1000));
    cleared.push_back({7, 3});
    EXPECT_FALSE(IsValid(Data(cleared), Many * 1000));
}

TEST(GifCodesTest, WhereADecoderStops) {
    // Each of these codes stands for one pixel more than the one before it: 1 + 2 + 3.
    const std::string data = Data(Short({0, 6, 7}));
    const std::string more = data + "\1\xFF";
    EXPECT_EQ(EndOfGifCodes(more, 0, 6), data.size()) << "after the last pixel";
    EXPECT_EQ(EndOfGifCodes(more, 0, 1), data.size()) << "a block is read as a whole";
    EXPECT_EQ(EndOfGifCodes(more, 0, 8), more.size()) << "the next code goes on in the next block";
    const std::string ended = Data(Short({0, End}));
    EXPECT_EQ(EndOfGifCodes(ended + "\1\xFF", 0, Many), ended.size());
    EXPECT_EQ(EndOfGifCodes(std::string("\0", 1) + ended, 1, Many), ended.size() + 1);
    const std::string empty = data + '\0';
    EXPECT_EQ(EndOfGifCodes(empty + "\1\xFF", 0, Many), data.size());
}

TEST(GifCodesTest, EveryLengthOfBlocks) {
    std::vector<unsigned> values(50, Clear);
    values.push_back(1);
    for (std::size_t length = 1; length <= 255; ++length) {
        const std::string data = Data(Short(values), 2, length);
        EXPECT_EQ(EndOfGifCodes(data + '\0', 0, Many), data.size()) << length;
        EXPECT_EQ(EndOfGifCodes(data, 0, Many), std::nullopt) << length;
        EXPECT_EQ(EndOfGifCodes(data, 0, 1), data.size()) << length;
    }
}

TEST(GifCodesTest, FilesThatAreCutOff) {
    const std::string data = Data(Short({Clear, 0, 1, 6, End})) + '\0';
    for (std::size_t length = 0; length + 1 < data.size(); ++length)
        EXPECT_EQ(EndOfGifCodes(data.substr(0, length), 0, Many), std::nullopt) << length;
    EXPECT_EQ(EndOfGifCodes(data, data.size(), Many), std::nullopt);
    EXPECT_EQ(EndOfGifCodes("", 0, Many), std::nullopt);
}

TEST(GifCodesTest, RandomBytesDoNoHarm) {
    std::mt19937 random(1);
    int valid = 0;
    for (int i = 0; i < 20'000; ++i) {
        std::string data(1, static_cast<char>(random() % 8 + 2));
        const std::size_t length = random() % 40;
        for (std::size_t k = 0; k < length; ++k)
            data += static_cast<char>(random() % (k == 0 ? 10 : 256));
        const auto end = EndOfGifCodes(data, 0, 20);
        if (!end) continue;
        ++valid;
        EXPECT_LE(*end, data.size());
    }
    EXPECT_GT(valid, 0);
    EXPECT_LT(valid, 20'000);
}

} // namespace
} // namespace nesk
