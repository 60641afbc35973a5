#include "platform/Utf8.h"

namespace nesk::platform {

std::size_t Utf8Length(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if (!ContinuesCharacter(text[i])) return 0;
    const unsigned char second = byte(1);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool surrogate = lead == 0xED && second > 0x9F;
    const bool tooLarge = lead == 0xF4 && second > 0x8F;
    return overlong || surrogate || tooLarge ? 0 : length;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

char32_t Utf8Decode(std::string_view character) {
    const auto lead = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) return lead;
    // The lead byte of n bytes begins with n ones and a zero.
    char32_t code = lead & (0xFFu >> (character.size() + 1));
    for (const char c : character.substr(1))
        code = (code << 6) | (static_cast<unsigned char>(c) & 0x3Fu);
    return code;
}

void Utf8Append(std::string& text, char32_t character) {
    const auto tail = [&](unsigned shift) {
        text += static_cast<char>(0x80 | ((character >> shift) & 0x3F));
    };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        tail(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | (character >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | (character >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::string Utf8FromBytes(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        std::size_t length = Utf8Length(bytes);
        const char32_t character = length != 0 ? Utf8Decode(bytes.substr(0, length)) : EscapeBase;
        if (character >= EscapeBase && character <= EscapeBase + 0xFF) {
            length = 1;
            Utf8Append(text, EscapeBase + static_cast<unsigned char>(bytes.front()));
        } else {
            text += bytes.substr(0, length);
        }
        bytes.remove_prefix(length);
    }
    return text;
}

} // namespace nesk::platform
