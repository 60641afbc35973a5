#include "base/FileHash.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace nesk {
namespace {

FileHash HashOf(const std::string& bytes) {
    FileHash hash;
    hash.Add(bytes);
    return hash;
}

TEST(FileHashTest, TheTextIsThatOfTheBytesHoweverTheyAreAdded) {
    const std::string bytes(100, 'x');
    FileHash inPieces;
    for (const char c : bytes)
        inPieces.Add({&c, 1});
    EXPECT_EQ(inPieces.Text(), HashOf(bytes).Text());
    EXPECT_EQ(HashOf(bytes).Text().size(), 80u);
    EXPECT_EQ(HashOf(bytes).Text().find_first_not_of("0123456789abcdef"), std::string::npos);
}

TEST(FileHashTest, EveryByteAndTheLengthChangeTheText) {
    std::set<std::string> texts{HashOf("").Text()};
    std::size_t count = 1;
    for (std::size_t length = 1; length <= 70; ++length) {
        texts.insert(HashOf(std::string(length, '\0')).Text());
        ++count;
        for (std::size_t at = 0; at < length; ++at, ++count) {
            std::string bytes(length, '\0');
            bytes[at] = 1;
            texts.insert(HashOf(bytes).Text());
        }
    }
    EXPECT_EQ(texts.size(), count);
}

TEST(FileHashTest, AMissingFileHasItsOwnText) {
    EXPECT_EQ(FileHash().Text(), FileHash::MissingText);
    EXPECT_NE(HashOf("").Text(), FileHash::MissingText);
}

} // namespace
} // namespace nesk
