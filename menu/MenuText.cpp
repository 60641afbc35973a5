#include "menu/MenuText.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "platform/TextEncoding.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <utility>

namespace nesk::MenuText {

// This is called for every text that is loaded or saved, so it checks eight bytes at a time.
bool IsPlain(std::string_view text) {
    constexpr std::uint64_t Blanks = 0x2020202020202020;
    constexpr std::uint64_t HighBits = 0x8080808080808080;
    const auto isPlain = [](std::uint64_t bytes) { return (((bytes - Blanks) | bytes) & HighBits) == 0; };
    const auto wordAt = [&](std::size_t at) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data() + at, sizeof bytes);
        return bytes;
    };
    constexpr std::size_t word = sizeof(std::uint64_t);
    if (text.size() < word)
        return std::all_of(text.begin(), text.end(),
                           [](char c) { return static_cast<signed char>(c) >= ' '; });
    for (std::size_t at = 0; at + word < text.size(); at += word)
        if (!isPlain(wordAt(at))) return false;
    // The last word overlaps the previous one.
    return isPlain(wordAt(text.size() - word));
}

std::string Encode(std::string_view text, const std::string& source) {
    std::optional<std::string> bytes = platform::ToAnsi(text);
    if (!bytes)
        throw NeskError(
            5000, source, Message::NotEncodable,
            {std::string(text), platform::FirstNotEncodable(text), std::to_string(platform::CodePage())});
    return std::move(*bytes);
}

void Check(std::string_view text, const std::string& source) {
    constexpr std::string_view lineEnds("\r\n\0", 3);
    if (text.find_first_of(lineEnds) != std::string_view::npos)
        throw NeskError(5000, source, Message::LineBreakInText);
    Encode(text, source);
}

void CheckChange(std::string_view text, std::string_view before, const std::string& source) {
    if (text != before) Check(text, source);
}

std::string OnOneLine(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        const bool crLf = c == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (crLf) continue;
        if (c == '\r' || c == '\n' || c == '\t')
            result += ' ';
        else if (c >= 32 && c != 127)
            result += text[i];
    }
    return result;
}

} // namespace nesk::MenuText
