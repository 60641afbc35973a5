#include "menu/Arena.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {
namespace {

TEST(ArenaTest, TextsStayAsTheyWere) {
    Arena arena;
    std::vector<std::string_view> kept;
    std::vector<std::string> texts;
    // Lengths around the end of a block, and around the size from which a text gets a block of its own.
    for (const std::size_t length : std::initializer_list<std::size_t>{0, 1, 7, 100, 2047, 2048, 2049, 8191,
                                                                       8192, 8193, 300000, 3000000})
        for (char c = 'a'; c <= 'z'; ++c)
            texts.emplace_back(length, c);
    for (const std::string& text : texts)
        kept.push_back(arena.Keep(text));
    for (std::size_t i = 0; i < texts.size(); ++i)
        ASSERT_EQ(kept[i], texts[i]) << i;
}

TEST(ArenaTest, ATextCanBeKeptAgain) {
    Arena arena;
    const std::string_view first = arena.Keep("caption");
    const std::string_view second = arena.Keep(first.substr(3));
    EXPECT_EQ(first, "caption");
    EXPECT_EQ(second, "tion");
}

TEST(ArenaTest, ObjectsAreAlignedAndApart) {
    Arena arena;
    std::vector<std::uint64_t*> numbers;
    for (std::uint64_t i = 0; i < 100000; ++i) {
        arena.Keep(std::string_view("xyz").substr(0, i % 4));
        numbers.push_back(new (arena.Allocate(sizeof i, alignof(std::uint64_t))) std::uint64_t(i));
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(numbers.back()) % alignof(std::uint64_t), 0u) << i;
    }
    for (std::size_t i = 0; i < numbers.size(); ++i)
        ASSERT_EQ(*numbers[i], i);
}

TEST(ArenaTest, AContainerTakesItsMemoryFromIt) {
    Arena arena;
    const std::size_t before = arena.Bytes();
    std::pmr::vector<std::uint64_t> numbers(&arena);
    for (std::uint64_t i = 0; i < 100000; ++i)
        numbers.push_back(i);
    EXPECT_GE(arena.Bytes(), before + numbers.size() * sizeof(std::uint64_t));
    EXPECT_LT(arena.Bytes(), before + 5 * numbers.size() * sizeof(std::uint64_t));
    for (std::size_t i = 0; i < numbers.size(); ++i)
        ASSERT_EQ(numbers[i], i);
}

} // namespace
} // namespace nesk
