#include "behaviour/Table.h"
#include "platform/LetterCase.h"
#include "platform/TextEncoding.h"
#include "platform/TextFolding.h"

#include <optional>

namespace nesk::behaviour {

namespace {

// UTF-8 of a character of the basic plane.
std::string Character(unsigned code) {
    std::string text;
    if (code < 0x80) return text.append(1, static_cast<char>(code));
    if (code < 0x800)
        return text.append(1, static_cast<char>(0xC0 | code >> 6U))
            .append(1, static_cast<char>(0x80 | (code & 63U)));
    return text.append(1, static_cast<char>(0xE0 | code >> 12U))
        .append(1, static_cast<char>(0x80 | (code >> 6U & 63U)))
        .append(1, static_cast<char>(0x80 | (code & 63U)));
}

std::string Encoded(const std::string& text) {
    return platform::ToAnsi(text).value_or("none");
}

} // namespace

void AddStringCases(Table& table) {
    table.Add("string code page", platform::CodePage());
    for (unsigned byte = 0; byte < 256; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        const std::string text = platform::FromAnsi(bytes);
        table.Add("string decode " + std::to_string(byte), text);
        table.Add("string encode again " + std::to_string(byte), Encoded(text));
    }
    for (unsigned code = 0x80; code < 0x2200; code += code < 0x530 ? 1 : 13)
        table.Add("string encode U+" + std::to_string(code), Encoded(Character(code)));
    // Latin, Greek, Cyrillic, and characters without an upper case of the same length.
    for (unsigned code = 0x20; code < 0x530; ++code) {
        // These were added to Unicode long after the tables of such old stations.
        if (code >= 0x220 && code < 0x250) continue;
        if ((code >= 0x370 && code < 0x386) || (code >= 0x3CF && code < 0x400) || code >= 0x460) continue;
        table.Add("string upper U+" + std::to_string(code), platform::ToUpper(Character(code)));
    }
    for (const char* text : {"", "abc", "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F",
                             "stra\xC3\x9F"
                             "e",
                             "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xF0\x90\x90\xA8"}) {
        const std::string name = Shown(text);
        table.Add("string upper " + name, platform::ToUpper(text));
        table.Add("string encode " + name, Encoded(text));
        table.Add("string first not encodable " + name, platform::FirstNotEncodable(text));
    }
    // Latin letters with accents, Greek and Cyrillic.
    for (unsigned code = 0x20; code < 0x460; ++code) {
        if ((code >= 0x180 && code < 0x386) || (code >= 0x3CF && code < 0x400)) continue;
        table.Add("string folded U+" + std::to_string(code), platform::Folded(Character(code)));
    }
    table.Add("string folded marks", platform::Folded("e\xCC\x81o\xCC\x88"));
    for (const int language : {1031, 1033, 1055}) {
        const std::string of = " of " + std::to_string(language) + " U+";
        for (unsigned code = 0x20; code < 0x180; ++code) {
            using platform::LetterCase;
            const std::string text = Character(code);
            table.Add("string in upper case" + of + std::to_string(code),
                      platform::InCase(text, LetterCase::Upper, language));
            table.Add("string in lower case" + of + std::to_string(code),
                      platform::InCase(text, LetterCase::Lower, language));
        }
    }
    table.Add("string equal", platform::EqualNoCase("Gr\xC3\x96SSE", "gr\xC3\xB6sse") ? 1 : 0);
    table.Add("string not equal", platform::EqualNoCase("Stra\xC3\x9F"
                                                        "e",
                                                        "STRASSE")
                                      ? 1
                                      : 0);
    for (const int language : {0, 9, 1028, 1031, 1033, 1036, 1041, 1042, 1045, 1049, 1054, 2052, 9999})
        table.Add("string code page of " + std::to_string(language), platform::CodePageOfLanguage(language));
}

} // namespace nesk::behaviour
