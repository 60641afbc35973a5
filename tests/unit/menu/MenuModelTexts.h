#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace nesk::testing {

/// Random numbers that are the same on every machine and with every compiler.
class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}

    /// A number from 0 to `limit` - 1.
    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(m_engine()) % limit; }

    /// True in one of `count` cases.
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    template <typename T>
    const T& Of(const std::vector<T>& values) {
        return values[Below(values.size())];
    }

private:
    std::mt19937 m_engine;
};

/// What the texts of a menu are made of under one language, and what becomes of them.
struct TextRules {
    int languageId;

    /// What a menu can hold.
    std::vector<std::string> pieces;
    /// What makes a text one that is refused because it would break out of its line.
    std::vector<std::string> lineBreaks;
    /// What makes a text one that is refused because the code page has no place for it.
    std::vector<std::string> notEncodable;
    /// What a file gives back as something else. A byte that was typed in as one that cannot be decoded, but
    /// can be, comes back as its character.
    std::vector<std::pair<std::string, std::string>> readBack;

    /// Number of the message of the refusal of a text; 0 for one that a menu can hold.
    int Refusal(std::string_view text) const;

    /// How a text that a menu can hold comes back from a file: a tab is a blank there, and blanks around a
    /// value are not part of it.
    std::string AfterFile(std::string text) const;

    /// A text of a few pieces, now and then one that is refused.
    std::string Make(Random& random) const;
};

/// Western European, Greek, which has bytes that stand for nothing, and Japanese, which has characters of two
/// bytes. Where the code page is the system's own there is no choosing: use Western alone.
TextRules WesternTexts();
TextRules GreekTexts();
TextRules JapaneseTexts();

} // namespace nesk::testing
