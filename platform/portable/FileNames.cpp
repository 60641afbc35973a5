#include "platform/portable/FileNames.h"

#include "platform/TextEncoding.h"
#include "platform/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace nesk::platform::portable {

namespace {

// The four bytes of U+10FE00 + byte: F4 8F B8..BB 80..BF.
constexpr std::string_view EscapeLead = "\xF4\x8F";

bool IsEscape(std::string_view sequence) {
    if (sequence.size() != 4 || !sequence.starts_with(EscapeLead)) return false;
    // Bytes below 0x80 are never escaped. An escaped "/" would lead to another folder.
    const auto third = static_cast<unsigned char>(sequence[2]);
    return third == 0xBA || third == 0xBB;
}

std::size_t CharacterLength(std::string_view text) {
    const std::size_t length = Utf8Length(text);
    return length == 0 ? 1 : length;
}

} // namespace

std::string NameFromHost(std::string_view bytes) {
    return Utf8FromBytes(bytes);
}

std::string NameToHost(std::string_view name) {
    std::string bytes;
    bytes.reserve(name.size());
    while (!name.empty()) {
        const std::size_t length = CharacterLength(name);
        const std::string_view sequence = name.substr(0, length);
        if (IsEscape(sequence)) {
            const auto third = static_cast<unsigned char>(sequence[2]);
            const auto fourth = static_cast<unsigned char>(sequence[3]);
            bytes += static_cast<char>(((third - 0xB8) << 6) | (fourth & 0x3F));
        } else {
            bytes += sequence;
        }
        name.remove_prefix(length);
    }
    return bytes;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*") return true;
    const std::string upperName = ToUpper(name);
    const std::string upperPattern = ToUpper(pattern);
    std::string_view n = upperName;
    std::string_view p = upperPattern;
    // Position to resume from when the text after the last "*" does not match.
    bool hasStar = false;
    std::string_view starPattern;
    std::string_view starName;
    while (!n.empty()) {
        if (!p.empty() && p.front() == '*') {
            p.remove_prefix(1);
            hasStar = true;
            starPattern = p;
            starName = n;
        } else if (!p.empty() && p.front() == '?') {
            p.remove_prefix(1);
            n.remove_prefix(CharacterLength(n));
        } else if (!p.empty() && p.front() == n.front()) {
            p.remove_prefix(1);
            n.remove_prefix(1);
        } else if (hasStar) {
            starName.remove_prefix(CharacterLength(starName));
            n = starName;
            p = starPattern;
        } else {
            return false;
        }
    }
    while (!p.empty() && p.front() == '*')
        p.remove_prefix(1);
    return p.empty();
}

} // namespace nesk::platform::portable
