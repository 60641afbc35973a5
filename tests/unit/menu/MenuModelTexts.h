#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace nesk::testing {

/// A random number generator with the same sequence on every machine and with every compiler.
class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}

    /// A number from 0 to `limit` - 1.
    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(m_engine()) % limit; }

    /// Returns true in one of `count` cases on average.
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    template <typename T>
    const T& Of(const std::vector<T>& values) {
        return values[Below(values.size())];
    }

private:
    std::mt19937 m_engine;
};

/// The pieces that menu texts are made of under one language, and how saving and loading changes them.
struct TextRules {
    int languageId;

    /// Pieces that a menu can store.
    std::vector<std::string> pieces;
    /// Pieces that make a text refused because it would break out of its line.
    std::vector<std::string> lineBreaks;
    /// Pieces that make a text refused because the code page cannot encode it.
    std::vector<std::string> notEncodable;
    /// Pieces that a file returns as something else. A byte that was typed in as undecodable, but can be
    /// decoded, is read back as its character.
    std::vector<std::pair<std::string, std::string>> readBack;

    /// Number of the message that refuses a text; 0 for a text that a menu can store.
    int Refusal(std::string_view text) const;

    /// A storable text as it is read back from a file: tabs become spaces, and spaces around a value are
    /// removed.
    std::string AfterFile(std::string text) const;

    /// Makes a text of a few pieces; now and then one that is refused.
    std::string Make(Random& random) const;
};

/// Western European; Greek, which has undefined bytes; and Japanese, which has two-byte characters. Use only
/// Western where the code page is the system's own and cannot be chosen.
TextRules WesternTexts();
TextRules GreekTexts();
TextRules JapaneseTexts();

} // namespace nesk::testing
