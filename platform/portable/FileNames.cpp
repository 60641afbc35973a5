#include "platform/portable/FileNames.h"

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

} // namespace nesk::platform::portable
