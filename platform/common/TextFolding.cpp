#include "platform/TextFolding.h"

#include "platform/TextEncoding.h"
#include "platform/Utf8.h"
#include "platform/common/TextDecomposition.h"

#include <algorithm>
#include <array>

namespace nesk::platform {

namespace {

// Blocks of combining marks that are accents. Marks of other scripts make other letters, so they stay.
constexpr bool IsAccent(char32_t character) {
    return (character >= 0x300 && character <= 0x36F) || (character >= 0x1AB0 && character <= 0x1AFF) ||
           (character >= 0x1DC0 && character <= 0x1DFF) || (character >= 0x20D0 && character <= 0x20FF) ||
           (character >= 0xFE20 && character <= 0xFE2F);
}

// Letters that Unicode does not decompose, but for which users type other letters.
struct Letter {
    char32_t character;
    std::string_view typed;
};
constexpr std::array<Letter, 13> Letters{{{0xC6, "AE"},
                                          {0xD0, "D"},
                                          {0xD8, "O"},
                                          {0xDE, "TH"},
                                          {0xDF, "SS"},
                                          {0x110, "D"},
                                          {0x126, "H"},
                                          {0x131, "I"},
                                          {0x141, "L"},
                                          {0x152, "OE"},
                                          {0x166, "T"},
                                          {0x3C2, "\xCE\xA3"},
                                          {0x1E9E, "SS"}}};

} // namespace

void AppendFolded(std::string& result, std::string_view text) {
    // Written so that the compiler handles many characters at once.
    const std::size_t begin = result.size();
    result.append(text);
    unsigned char all = 0;
    for (std::size_t i = begin; i < result.size(); ++i) {
        const auto c = static_cast<unsigned char>(result[i]);
        all = static_cast<unsigned char>(all | c);
        const bool isLower = static_cast<unsigned char>(c - 'a') < 26;
        result[i] = static_cast<char>(c - (isLower ? 'a' - 'A' : 0));
    }
    if (all < 0x80) return;
    result.resize(begin);
    const std::string known = IsUtf8(text) ? std::string(text) : Utf8FromBytes(text);
    const std::string upper = ToUpper(Decomposed(known));
    for (std::size_t at = 0; at < upper.size();) {
        const std::string_view rest = std::string_view(upper).substr(at);
        const std::string_view one = rest.substr(0, std::max<std::size_t>(1, Utf8Length(rest)));
        at += one.size();
        const char32_t character = Utf8Decode(one);
        if (IsAccent(character)) continue;
        const auto* const letter = std::find_if(Letters.begin(), Letters.end(),
                                                [&](const Letter& l) { return l.character == character; });
        result += letter != Letters.end() ? letter->typed : one;
    }
}

std::string Folded(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    AppendFolded(result, text);
    return result;
}

} // namespace nesk::platform
