#include "platform/TextEncoding.h"

#include "platform/Languages.h"
#include "platform/Utf8.h"
#include "platform/common/CodePageTable.h"
#include "platform/common/StationText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace nesk::platform {

namespace {

using common::CodeOf;
using common::CodePageTable;

// Checks eight bytes at a time: the function is called for every text that is loaded or saved, and nearly all
// of them are ASCII.
bool IsAscii(std::string_view text) {
    constexpr std::uint64_t HighBits = 0x8080808080808080;
    while (text.size() >= sizeof(std::uint64_t)) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data(), sizeof bytes);
        if ((bytes & HighBits) != 0) return false;
        text.remove_prefix(sizeof bytes);
    }
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

int CodePageOfLanguage(int languageId) {
    const Language* language = FindLanguage(languageId);
    return language != nullptr ? language->codePage : 1252;
}

int CodePage() {
    return common::SelectedCodePage().CodePage();
}

std::string FromAnsi(std::string_view bytes) {
    if (IsAscii(bytes)) return std::string(bytes);
    const CodePageTable& codePage = common::SelectedCodePage();
    if (codePage.CodePage() == CodePageTable::Utf8) return Utf8FromBytes(bytes);
    std::string text;
    text.reserve(bytes.size() * 2);
    bool afterKept = false;
    while (!bytes.empty()) {
        const auto byte = static_cast<unsigned char>(bytes.front());
        std::size_t length = 1;
        bool keep = false;
        if (byte < 0x80) {
            text += bytes.front();
        } else {
            const char16_t character = codePage.Decode(bytes, length);
            // A character with several codes may be written with another code than the one read. That code
            // could combine with an escaped byte before it to form another character.
            keep = character == 0 ||
                   (afterKept && codePage.Encode(character) != CodeOf(bytes.substr(0, length)));
            // Only the offending byte is escaped; the next byte may begin a valid character.
            if (keep) length = 1;
            Utf8Append(text, keep ? EscapeBase + byte : char32_t{character});
        }
        afterKept = keep;
        bytes.remove_prefix(length);
    }
    return text;
}

std::optional<std::string> ToAnsi(std::string_view text) {
    if (IsAscii(text)) return std::string(text);
    const CodePageTable& codePage = common::SelectedCodePage();
    const bool isUtf8 = codePage.CodePage() == CodePageTable::Utf8;
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        if (length == 0) return std::nullopt;
        const char32_t character = Utf8Decode(text.substr(0, length));
        text.remove_prefix(length);
        if (character < 0x80) {
            bytes += static_cast<char>(character);
        } else if (character >= EscapeBase + 0x80 && character <= EscapeBase + 0xFF) {
            // Bytes below 0x80 are never escaped. Decoding them would let a typed escape for a line end
            // corrupt the file.
            bytes += static_cast<char>(character - EscapeBase);
        } else if (isUtf8) {
            Utf8Append(bytes, character);
        } else {
            const std::uint16_t code = codePage.Encode(character);
            if (code == 0) return std::nullopt;
            if (code > 0xFF) bytes += static_cast<char>(code >> 8);
            bytes += static_cast<char>(code & 0xFF);
        }
    }
    return bytes;
}

std::string FirstNotEncodable(std::string_view text) {
    while (!text.empty()) {
        const std::string_view character = text.substr(0, std::max<std::size_t>(Utf8Length(text), 1));
        if (!ToAnsi(character)) return std::string(character);
        text.remove_prefix(character.size());
    }
    return "";
}

std::string ToUpper(std::string_view text) {
    std::string upper;
    upper.reserve(text.size());
    while (!text.empty()) {
        const char c = text.front();
        const std::size_t length = Utf8Length(text);
        if (static_cast<unsigned char>(c) < 0x80) {
            upper += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        } else if (length == 0) {
            upper += c;
        } else {
            Utf8Append(upper, common::UpperCase(Utf8Decode(text.substr(0, length))));
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return upper;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    return a == b || ToUpper(a) == ToUpper(b);
}

} // namespace nesk::platform
